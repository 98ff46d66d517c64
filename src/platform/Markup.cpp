#include "Markup.h"

#include <QAbstractTextDocumentLayout>
#include <QRegularExpression>

MarkupDocument::MarkupDocument() {
    // The layout's own way with images opens a file that loadResource has not given.
    documentLayout()->registerHandler(QTextFormat::ImageObject, this);
}

QSizeF MarkupDocument::intrinsicSize(QTextDocument* /*document*/, int /*position*/,
                                     const QTextFormat& /*format*/) {
    return {0, 0};
}

void MarkupDocument::drawObject(QPainter* /*painter*/, const QRectF& /*place*/,
                                QTextDocument* /*document*/, int /*position*/,
                                const QTextFormat& /*format*/) {}

void MarkupDocument::setMarkup(const QString& markup) {
    // The parser takes all that follows a link element for a part of it, and hides it.
    static const QRegularExpression link(QStringLiteral("<link\\b[^>]*>"),
                                         QRegularExpression::CaseInsensitiveOption);
    setHtml(QString(markup).remove(link));
}

QVariant MarkupDocument::loadResource(int /*type*/, const QUrl& /*name*/) {
    return {};
}

QString markupOf(const QString& text) {
    return text.toHtmlEscaped().replace(u'\n', QStringLiteral("<br />"));
}

QString textOfMarkup(const QString& markup) {
    MarkupDocument document;
    document.setMarkup(markup);
    return document.toPlainText();
}
