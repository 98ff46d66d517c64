#include "SearchController.h"

void SearchBar::setText(const std::optional<QString>& text) {
    if (text == m_text)
        return;
    m_text = text;
    Q_EMIT textChanged();
}

void SearchBar::setPlaceholder(const QString& placeholder) {
    m_placeholder = placeholder;
    Q_EMIT placeholderChanged();
}

SearchController::SearchController(QObject* parent, const QString& accessibilityLabel)
    : QObject(parent)
    , m_searchBar(this, accessibilityLabel) {
    connect(&m_searchBar, &SearchBar::textChanged, this, [this] {
        if (searchResultsUpdater)
            searchResultsUpdater(*this);
        Q_EMIT resultsUpdated();
    });
}

void SearchController::setActive(bool active) {
    if (active == m_active)
        return;
    m_active = active;
    Q_EMIT activeChanged();
}
