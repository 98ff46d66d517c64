import QtQuick
import Lantern

/** The quote alone, large and calm. */
ReaderPage {
    id: root

    required property QuoteFullScreenViewController controller

    control: controller.QuoteTextView
    chosenSize: controller.readingSize
    onTapped: controller.touchesBegan()
}
