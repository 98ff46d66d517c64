#include "PickerView.h"

namespace {
enum Role { Text = Qt::UserRole, FontSize, Bold, Centered };
} // namespace

PickerRows::PickerRows(const PickerView& picker)
    : m_picker(picker) {}

void PickerRows::reload() {
    beginResetModel();
    endResetModel();
}

int PickerRows::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || !m_picker.delegate())
        return 0;
    return m_picker.delegate()->numberOfRowsInComponent(m_picker, 0);
}

QVariant PickerRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !m_picker.delegate())
        return {};
    const PickerLabel label = m_picker.delegate()->viewForRow(m_picker, index.row(), 0);
    switch (role) {
    case Text:
        return label.text;
    case FontSize:
        return label.fontSize;
    case Bold:
        return label.bold;
    case Centered:
        return label.centered;
    default:
        return {};
    }
}

QHash<int, QByteArray> PickerRows::roleNames() const {
    return {{Text, "text"}, {FontSize, "fontSize"}, {Bold, "bold"}, {Centered, "centered"}};
}

PickerView::PickerView(QObject* parent, const QString& accessibilityLabel)
    : View(parent, accessibilityLabel)
    , m_rows(*this) {}

void PickerView::choose(int row) {
    if (m_delegate && row >= 0 && row < m_rows.rowCount())
        m_delegate->didSelectRow(*this, row, 0);
}

int PickerView::rowWithTitle(const QString& title) const {
    int beginning = -1;
    for (int row = 0; row < m_rows.rowCount(); ++row) {
        const QString candidate = m_delegate->titleForRow(*this, row, 0);
        if (candidate == title)
            return row;
        if (beginning < 0 && !title.isEmpty() && candidate.startsWith(title, Qt::CaseInsensitive))
            beginning = row;
    }
    return beginning;
}
