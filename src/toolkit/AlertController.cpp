#include "AlertController.h"

#include <algorithm>

AlertController::AlertController(const QString& title, const QString& message)
    : m_message(message) {
    setTitle(title);
}

QStringList AlertController::actionTitles() const {
    QStringList titles;
    for (const Action& action : m_actions)
        titles.append(action.title);
    return titles;
}

void AlertController::addAction(const QString& title, std::function<void()> handler, Style style) {
    m_actions.push_back({title, std::move(handler), style});
}

int AlertController::cancelAction() const {
    return m_actions.size() == 1 ? 0 : actionOf(Style::Cancel);
}

int AlertController::actionOf(Style style) const {
    const auto found = std::ranges::find(m_actions, style, &Action::style);
    return found == m_actions.end() ? -1 : int(found - m_actions.begin());
}

void AlertController::choose(int action) {
    const auto handler = m_actions.at(std::size_t(action)).handler;
    dismiss();
    if (handler)
        handler();
}

bool presentAlert(ViewController& presenting, const QString& title, const QString& message,
                  std::function<void()> handler) {
    auto alert = std::make_unique<AlertController>(title, message);
    alert->addAction(QStringLiteral("OK"), std::move(handler));
    return presenting.present(std::move(alert));
}

bool askToDiscardChanges(ViewController& presenting, std::function<void()> discard) {
    auto alert = std::make_unique<AlertController>(
        QStringLiteral("Discard changes?"), QStringLiteral("What you changed is not saved yet."));
    alert->addAction(QStringLiteral("Cancel"), nullptr, AlertController::Style::Cancel);
    alert->addAction(QStringLiteral("Discard"), std::move(discard),
                     AlertController::Style::Destructive);
    return presenting.present(std::move(alert));
}
