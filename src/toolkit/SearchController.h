#pragma once

#include "toolkit/View.h"

#include <functional>
#include <optional>

/** The search field above a table. Its text is absent only before anything has set one. */
class SearchBar : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitSearchBar)
    QML_UNCREATABLE("Search controllers make their bars")
    Q_PROPERTY(QString text READ shownText WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QString placeholder READ placeholder NOTIFY placeholderChanged)

public:
    using View::View;

    std::optional<QString> text() const { return m_text; }
    void setText(const std::optional<QString>& text);
    QString placeholder() const { return m_placeholder; }
    void setPlaceholder(const QString& placeholder);

Q_SIGNALS:
    void textChanged();
    void placeholderChanged();

private:
    QString shownText() const { return m_text.value_or(QString()); }

    std::optional<QString> m_text = QString();
    QString m_placeholder;
};

/** Runs a search as the user types, in the table that it belongs to. */
class SearchController : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Controllers make their search controllers")
    Q_PROPERTY(SearchBar* searchBar READ searchBar CONSTANT)
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged)

public:
    SearchController(QObject* parent, const QString& accessibilityLabel);

    SearchBar* searchBar() { return &m_searchBar; }
    const SearchBar& searchBar() const { return m_searchBar; }
    /** Called after every change of the search text. */
    std::function<void(SearchController&)> searchResultsUpdater;
    bool hidesNavigationBarDuringPresentation = true;
    bool obscuresBackgroundDuringPresentation = true;

    /** Active while the user is in the search field. */
    bool isActive() const { return m_active; }
    void setActive(bool active);
    /** Leaves the search field; the text and with it the results stay. */
    void dismiss() { setActive(false); }

Q_SIGNALS:
    void activeChanged();
    /** The results are those of another search text. */
    void resultsUpdated();

private:
    SearchBar m_searchBar;
    bool m_active = false;
};
