#pragma once

#include "toolkit/View.h"

#include <QStringList>

/** A row of titles of which one is selected. */
class SegmentedControl : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitSegmentedControl)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(QStringList items READ items CONSTANT)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectedIndexChanged)
    Q_PROPERTY(QString tintColor READ tintColorName NOTIFY lookChanged)

public:
    SegmentedControl(QObject* parent, const QStringList& items);

    QStringList items() const { return m_items; }
    int selectedIndex() const { return m_selectedIndex; } ///< -1 when none is
    void setSelectedIndex(int index);
    Color tintColor() const { return m_tintColor; }
    void setTintColor(const Color& color);

    /** What a tap on a title does: selects it and, if that is a change, tells so. */
    Q_INVOKABLE void choose(int index);

Q_SIGNALS:
    void selectedIndexChanged();
    void valueChanged();

private:
    QString tintColorName() const { return m_tintColor.name(); }

    QStringList m_items;
    int m_selectedIndex = -1;
    Color m_tintColor = black;
};
