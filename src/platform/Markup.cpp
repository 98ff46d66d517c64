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
    // The parser hides all that follows one of these where it is not closed.
    static const QRegularExpression hiding(
        QStringLiteral("<(?=(?:link|title|style|script|head)\\b|[!?])"),
        QRegularExpression::CaseInsensitiveOption);
    setHtml(QString(markup).replace(hiding, QStringLiteral("&lt;")));
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
