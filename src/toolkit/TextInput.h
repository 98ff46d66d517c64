#pragma once

#include "toolkit/TextLines.h"
#include "toolkit/Toolbar.h"
#include "toolkit/View.h"

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
    void setText(const QString& text);
    View* inputView() const { return m_inputView; }
    void setInputView(View* view);
    Toolbar* inputAccessoryView() const { return m_inputAccessoryView; }
    void setInputAccessoryView(Toolbar* toolbar);

    bool isEditing() const { return m_editing; }
    Q_INVOKABLE void beginEditing();
    Q_INVOKABLE void endEditing();

Q_SIGNALS:
    void textChanged();
    void editingChanged();
    void inputViewChanged();
    void editingDidBegin();

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
};

/** How a text view breaks lines that are too long for it. */
enum class LineBreakMode { WordWrapping, TruncatingTail };

/** Many lines of text. A bottom inset (points) keeps them clear of the keyboard. */
class TextView : public TextInput {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitTextView)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(double bottomInset READ bottomInset NOTIFY bottomInsetChanged)
    Q_PROPERTY(TextLines* lines READ lines CONSTANT)

public:
    explicit TextView(QObject* parent, const QString& accessibilityLabel = {});

    double bottomInset() const { return m_bottomInset; }
    void setBottomInset(double inset);
    /** Asks the view to bring the selected text into sight. */
    void scrollSelectionToVisible() { Q_EMIT scrollToSelectionRequested(); }
    LineBreakMode lineBreakMode() const { return m_lineBreakMode; }
    void setLineBreakMode(LineBreakMode mode) { m_lineBreakMode = mode; }
    /** The text a line a row, for views that show a long text without laying out all of it. */
    TextLines* lines() { return &m_lines; }

Q_SIGNALS:
    void bottomInsetChanged();
    void scrollToSelectionRequested();

private:
    double m_bottomInset = 0;
    LineBreakMode m_lineBreakMode = LineBreakMode::WordWrapping;
    TextLines m_lines;
};
