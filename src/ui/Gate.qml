import QtQuick
import Lantern

/** Takes what a press does, where something has to come before it. */
QtObject {
    signal asked(action: var)
}
