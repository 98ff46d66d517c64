#include "RawText.h"

#include <QTextDocument>

QString RawText::of(const QQuickTextDocument* document) {
    return document->textDocument()->toRawText().replace(QChar::ParagraphSeparator,
                                                         QLatin1Char('\n'));
}
