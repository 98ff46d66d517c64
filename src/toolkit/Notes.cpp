#include "Notes.h"

#include <utility>

void Notes::offerUndo(const QString& text, std::function<void()> undo) {
    m_offers.push_back({text, std::move(undo)});
    Q_EMIT undoableChanged();
}

void Notes::undo() {
    if (m_offers.empty())
        return;
    const Offer last = std::move(m_offers.back());
    m_offers.pop_back();
    last.undo();
    Q_EMIT undone();
    Q_EMIT undoableChanged();
}

void Notes::endUndo() {
    m_offers.clear();
    Q_EMIT undoableChanged();
}
