#pragma once

#include <QTextDocument>
#include <QTextObjectInterface>

/** A document of markup that opens nothing, whatever the markup names: no image, no style sheet,
 * no file and no address. */
class MarkupDocument : public QTextDocument, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    MarkupDocument();
    void setMarkup(const QString& markup);

    /** An image takes no room and shows nothing. */
    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                    const QTextFormat& format) override;

protected:
    QVariant loadResource(int type, const QUrl& name) override;
};

/** Markup that shows a text as it is, with its line feeds. */
QString markupOf(const QString& text);

/** The text that markup shows. */
QString textOfMarkup(const QString& markup);
