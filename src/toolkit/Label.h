#pragma once

#include "toolkit/View.h"

/** One piece of text that is only read. */
class Label : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitLabel)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(QString text READ text NOTIFY textChanged)
    Q_PROPERTY(int captionLength READ captionLength NOTIFY textChanged)
    Q_PROPERTY(double fontSize READ fontSize NOTIFY lookChanged)
    Q_PROPERTY(bool bold READ isBold NOTIFY lookChanged)
    Q_PROPERTY(bool centered READ isCentered NOTIFY lookChanged)
    Q_PROPERTY(QString textColor READ textColorName NOTIFY lookChanged)

public:
    explicit Label(QObject* parent);

    QString text() const { return m_text; }
    void setText(const QString& text);
    /** A value that its caption stands before. */
    void setText(const QString& caption, const QString& value);
    /** How much of the text is its caption. */
    int captionLength() const { return m_captionLength; }
    double fontSize() const { return m_fontSize; } ///< points
    bool isBold() const { return m_bold; }
    void setBoldSystemFont(double size);
    bool isCentered() const { return m_centered; }
    void setCentered(bool centered);
    Color textColor() const { return m_textColor; }
    void setTextColor(const Color& color);

Q_SIGNALS:
    void textChanged();

private:
    QString textColorName() const { return m_textColor.name(); }

    QString m_text;
    int m_captionLength = 0;
    double m_fontSize = 17;
    bool m_bold = false;
    bool m_centered = false;
    Color m_textColor = black;
};
