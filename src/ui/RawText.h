#pragma once

#include <QObject>
#include <QQuickTextDocument>
#include <qqml.h>

/** Reads and writes text documents as they are: a text area's own text has other characters in the
 * place of no-break spaces and line separators. */
class RawText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /** The document's text. Its paragraphs end in line feeds, whatever ended them when they were
     * put in: a document keeps neither carriage returns nor U+2029, U+FDD0 and U+FDD1. */
    Q_INVOKABLE static QString of(const QQuickTextDocument* document);
    /** Puts another text in the document's place, which the user can undo. */
    Q_INVOKABLE static void replace(const QQuickTextDocument* document, const QString& text);
};
