#pragma once

#include "foundation/RegularExpression.h"
#include "toolkit/TextLines.h"
#include "toolkit/Toolbar.h"
#include "toolkit/View.h"

#include <functional>
#include <optional>
#include <vector>

/**
 * Text that the user may edit. At most one of a screen's text inputs is being edited (the first
 * responder). An input view takes the place of the keyboard while it is; the accessory view
 * stands above it.
 */
class TextInput : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitTextInput)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(bool editing READ isEditing NOTIFY editingChanged)
    Q_PROPERTY(View* inputView READ inputView NOTIFY inputViewChanged)
    Q_PROPERTY(Toolbar* inputAccessoryView READ inputAccessoryView NOTIFY inputViewChanged)

public:
    using View::View;

    QString text() const { return m_text; }
    virtual void setText(const QString& text);
    View* inputView() const { return m_inputView; }
    void setInputView(View* view);
    Toolbar* inputAccessoryView() const { return m_inputAccessoryView; }
    void setInputAccessoryView(Toolbar* toolbar);

    /** What typing does: the text changes, and the screen is told that the user did it. */
    Q_INVOKABLE void enter(const QString& text);

    bool isEditing() const { return m_editing; }
    Q_INVOKABLE void beginEditing();
    Q_INVOKABLE void endEditing();

Q_SIGNALS:
    void textChanged();
    void editingChanged();
    void inputViewChanged();
    void editingDidBegin();
    void entered();

private:
    QString m_text;
    bool m_editing = false;
    View* m_inputView = nullptr;
    Toolbar* m_inputAccessoryView = nullptr;
};

/** One line of text. */
class TextField : public TextInput {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitTextField)
    QML_UNCREATABLE("Controllers make their controls")

public:
    using TextInput::TextInput;

    /** Whether Return ends the editing, as it does where nothing is set. */
    std::function<bool()> shouldReturn;
    Q_INVOKABLE void pressReturn();
};

/** A font by name and size in points; the system font has no name. */
struct Font {
    QString family;
    double size = 0;

    bool operator==(const Font&) const = default;
};

/** A text with one font for all of it, and parts with a background colour. */
struct AttributedText {
    QString text;
    Font font;
    bool centered = false;
    Color foreground = black;
    std::vector<TextRange> highlights;
    Color highlightColor{1, 1, 0, 1};
};

/** Many lines of text. A bottom inset (points) keeps them clear of the keyboard. */
class TextView : public TextInput {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitTextView)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(QString fontFamily READ fontFamily NOTIFY fontChanged)
    Q_PROPERTY(double fontSize READ fontSize NOTIFY fontChanged)
    Q_PROPERTY(double bottomInset READ bottomInset NOTIFY bottomInsetChanged)
    Q_PROPERTY(TextLines* lines READ lines CONSTANT)
    Q_PROPERTY(bool wrapsLines READ wrapsLines NOTIFY lookChanged)

public:
    explicit TextView(QObject* parent, const QString& accessibilityLabel = {});

    /** Sets plain text, in the font that is there. */
    void setText(const QString& text) override;
    std::optional<AttributedText> attributedText() const { return m_attributedText; }
    void setAttributedText(const AttributedText& text);
    std::optional<Font> font() const { return m_font; }
    void setFont(const Font& font);
    double bottomInset() const { return m_bottomInset; }
    void setBottomInset(double inset);
    /** Asks the view to bring the selected text into sight. */
    void scrollSelectionToVisible() { Q_EMIT scrollToSelectionRequested(); }
    LineBreakMode lineBreakMode() const { return m_lineBreakMode; }
    void setLineBreakMode(LineBreakMode mode);
    /** The text a line a row, for views that show a long text without laying out all of it. */
    TextLines* lines() { return &m_lines; }

Q_SIGNALS:
    void fontChanged();
    void bottomInsetChanged();
    void scrollToSelectionRequested();

private:
    bool wrapsLines() const { return m_lineBreakMode == LineBreakMode::WordWrapping; }
    QString fontFamily() const { return m_font ? m_font->family : QString(); }
    double fontSize() const { return m_font ? m_font->size : 0; }

    std::optional<AttributedText> m_attributedText;
    std::optional<Font> m_font;
    double m_bottomInset = 0;
    LineBreakMode m_lineBreakMode = LineBreakMode::WordWrapping;
    TextLines m_lines;
};
