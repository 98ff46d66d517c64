#include "ActivityIndicatorView.h"

void ActivityIndicatorView::setStyle(Style style) {
    m_style = style;
    Q_EMIT lookChanged();
}

void ActivityIndicatorView::setHidesWhenStopped(bool hides) {
    m_hidesWhenStopped = hides;
    setHidden(hides && !m_animating);
}

void ActivityIndicatorView::setAnimating(bool animating) {
    m_animating = animating;
    setHidden(m_hidesWhenStopped && !animating);
    Q_EMIT animatingChanged();
}
