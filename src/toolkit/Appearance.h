#pragma once

#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

/** How the user wants programs to look: views follow it while they show. */
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes the one appearance")
    Q_PROPERTY(bool dark MEMBER dark NOTIFY changed)
    Q_PROPERTY(bool highContrast MEMBER highContrast NOTIFY changed)
    Q_PROPERTY(bool reducedMotion MEMBER reducedMotion NOTIFY changed)
    /** How much larger than usual texts are. */
    Q_PROPERTY(double textScale MEMBER textScale NOTIFY changed)

public:
    using QObject::QObject;

    // Whoever writes one tells of it.
    bool dark = false;
    bool highContrast = false;
    bool reducedMotion = false;
    double textScale = 1;

Q_SIGNALS:
    void changed();
};
