#pragma once

#include "toolkit/View.h"

#include <QAbstractListModel>

class PickerView;

/** What one row of a picker shows. */
struct PickerLabel {
    QString text;
    double fontSize = 0; ///< points
    bool bold = false;
    bool centered = false;
};

/** Where a picker takes its rows from, and what it tells of a choice. */
class PickerViewDelegate {
public:
    virtual ~PickerViewDelegate() = default;
    virtual int numberOfComponentsInPickerView(const PickerView& picker) const = 0;
    virtual int numberOfRowsInComponent(const PickerView& picker, int component) const = 0;
    virtual QString titleForRow(const PickerView& picker, int row, int component) const = 0;
    virtual PickerLabel viewForRow(const PickerView& picker, int row, int component) const = 0;
    virtual void didSelectRow(const PickerView& picker, int row, int component) = 0;
};

/** The rows of a picker's one component as a model; each role is a field of PickerLabel. */
class PickerRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Pickers make their rows")

public:
    explicit PickerRows(const PickerView& picker);

    void reload();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    const PickerView& m_picker;
};

/** A wheel of rows, one of which is chosen. The tag tells pickers of one delegate apart. */
class PickerView : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitPickerView)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(PickerRows* rows READ rows CONSTANT)
    Q_PROPERTY(int tag READ tag CONSTANT)

public:
    PickerView(QObject* parent, const QString& accessibilityLabel);

    PickerViewDelegate* delegate() const { return m_delegate; }
    void setDelegate(PickerViewDelegate* delegate) { m_delegate = delegate; }
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }
    PickerRows* rows() { return &m_rows; }

    /** Takes the rows anew; a view does so whenever it shows the picker. */
    Q_INVOKABLE void reloadAllComponents() { m_rows.reload(); }
    /** What turning the wheel to a row does. */
    Q_INVOKABLE void choose(int row);
    /** The first row with this title, else the first that begins with it, in whatever case; -1 when
     * there is none. */
    Q_INVOKABLE int rowWithTitle(const QString& title) const;

private:
    PickerViewDelegate* m_delegate = nullptr;
    int m_tag = 0;
    PickerRows m_rows;
};
