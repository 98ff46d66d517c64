#pragma once

#include "toolkit/BarButtonItem.h"
#include "toolkit/View.h"

#include <QList>

/** A row of bar buttons, such as the one above a date picker. */
class Toolbar : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitToolbar)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(QList<QObject*> items READ items CONSTANT)
    Q_PROPERTY(QString tintColor READ tintColorName CONSTANT)

public:
    Toolbar(QObject* parent, const Color& tintColor, bool translucent);

    /** Adds an item at the right end; the toolbar owns it. */
    void addItem(BarButtonItem* item);

    QList<QObject*> items() const { return m_items; }
    Color tintColor() const { return m_tintColor; }
    bool isTranslucent() const { return m_translucent; }

private:
    QString tintColorName() const { return m_tintColor.name(); }

    QList<QObject*> m_items;
    Color m_tintColor;
    bool m_translucent;
};
