#include "ProgressBar.h"

#include <algorithm>

void ProgressBar::setProgress(double progress, bool animated) {
    progress = std::clamp(progress, 0.0, 1.0);
    if (progress == m_progress)
        return;
    m_progress = progress;
    m_animated = animated;
    Q_EMIT progressChanged();
}
