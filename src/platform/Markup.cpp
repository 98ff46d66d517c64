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
    // The parser hides all that follows one of these where it is not closed, and takes any other
    // character than a letter or a slash for the beginning of an element too.
    static const QRegularExpression noElement(
        QStringLiteral("<(?=(?:link|title|style|script|head)\\b|[^a-z/]|$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DontCaptureOption);
    // The white space stays as it stands.
    setHtml(QStringLiteral("<body style=\"white-space: pre-wrap\">") +
            QString(markup).replace(noElement, QStringLiteral("&lt;")));
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
