#pragma once

#include "toolkit/View.h"

/** A bar that fills as work goes on. */
class ProgressBar : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitProgressBar)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(bool animated READ isAnimated NOTIFY progressChanged)

public:
    using View::View;

    double progress() const { return m_progress; } ///< 0 to 1
    bool isAnimated() const { return m_animated; } ///< of the last change
    /** Takes the nearest value from 0 to 1. */
    void setProgress(double progress, bool animated);

Q_SIGNALS:
    void progressChanged();

private:
    double m_progress = 0;
    bool m_animated = false;
};
