#include "Label.h"

Label::Label(QObject* parent)
    : View(parent) {}

void Label::setText(const QString& text) {
    setText({}, text);
}

void Label::setText(const QString& caption, const QString& value) {
    const QString text = caption + value;
    const int captionLength = int(caption.size());
    if (text == m_text && captionLength == m_captionLength)
        return;
    m_text = text;
    m_captionLength = captionLength;
    Q_EMIT textChanged();
}

void Label::setBoldSystemFont(double size) {
    m_fontSize = size;
    m_bold = true;
    Q_EMIT lookChanged();
}

void Label::setCentered(bool centered) {
    m_centered = centered;
    Q_EMIT lookChanged();
}

void Label::setTextColor(const Color& color) {
    m_textColor = color;
    Q_EMIT lookChanged();
}
