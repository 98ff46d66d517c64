#include "RawText.h"

#include <QTextCursor>
#include <QTextDocument>

QString RawText::of(const QQuickTextDocument* document) {
    return document->textDocument()->toRawText().replace(QChar::ParagraphSeparator,
                                                         QLatin1Char('\n'));
}

void RawText::replace(const QQuickTextDocument* document, const QString& text) {
    QTextCursor cursor(document->textDocument());
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
    cursor.endEditBlock();
}
