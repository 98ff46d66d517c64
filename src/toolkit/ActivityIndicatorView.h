#pragma once

#include "toolkit/View.h"

/** A spinner that shows that work is going on. */
class ActivityIndicatorView : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitActivityIndicatorView)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(bool animating READ isAnimating NOTIFY animatingChanged)
    Q_PROPERTY(ActivityIndicatorView::Style style READ style NOTIFY lookChanged)

public:
    enum Style { Grey, Large };
    Q_ENUM(Style)

    using View::View;

    Style style() const { return m_style; }
    void setStyle(Style style);
    bool hidesWhenStopped() const { return m_hidesWhenStopped; }
    void setHidesWhenStopped(bool hides);
    bool isAnimating() const { return m_animating; }
    void startAnimating() { setAnimating(true); }
    void stopAnimating() { setAnimating(false); }

Q_SIGNALS:
    void animatingChanged();

private:
    void setAnimating(bool animating);

    Style m_style = Grey;
    bool m_hidesWhenStopped = false;
    bool m_animating = false;
};
