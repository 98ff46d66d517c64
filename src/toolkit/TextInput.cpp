#include "TextInput.h"

void TextInput::setText(const QString& text) {
    if (text == m_text)
        return;
    m_text = text;
    Q_EMIT textChanged();
}

void TextInput::setInputView(View* view) {
    m_inputView = view;
    Q_EMIT inputViewChanged();
}

void TextInput::setInputAccessoryView(Toolbar* toolbar) {
    m_inputAccessoryView = toolbar;
    Q_EMIT inputViewChanged();
}

void TextInput::enter(const QString& text) {
    setText(text);
    Q_EMIT entered();
}

void TextInput::beginEditing() {
    if (m_editing)
        return;
    if (parent()) {
        for (TextInput* other : parent()->findChildren<TextInput*>())
            other->endEditing();
    }
    m_editing = true;
    Q_EMIT editingDidBegin();
    Q_EMIT editingChanged();
}

void TextInput::endEditing() {
    if (!m_editing)
        return;
    m_editing = false;
    Q_EMIT editingChanged();
}

void TextField::pressReturn() {
    if (!shouldReturn || shouldReturn())
        endEditing();
}

TextView::TextView(QObject* parent, const QString& accessibilityLabel)
    : TextInput(parent, accessibilityLabel) {
    connect(this, &TextInput::textChanged, this,
            [this] { m_lines.setText(text(), m_lineBreakMode); });
}

void TextView::setText(const QString& text) {
    m_attributedText.reset();
    TextInput::setText(text);
}

void TextView::setAttributedText(const AttributedText& text) {
    TextInput::setText(text.text);
    m_attributedText = text;
    setFont(text.font);
}

void TextView::setFont(const Font& font) {
    m_font = font;
    Q_EMIT fontChanged();
}

void TextView::setLineBreakMode(LineBreakMode mode) {
    m_lineBreakMode = mode;
    m_lines.setText(text(), mode);
    Q_EMIT lookChanged();
}

void TextView::setBottomInset(double inset) {
    m_bottomInset = inset;
    Q_EMIT bottomInsetChanged();
}
