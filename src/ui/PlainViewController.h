#pragma once

#include "toolkit/ViewController.h"

/** A page in the place of a screen that is yet to come: it says the screen's title. */
class PlainViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
};
