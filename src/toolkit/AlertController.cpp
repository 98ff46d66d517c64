#include "AlertController.h"

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

void AlertController::addAction(const QString& title, std::function<void()> handler) {
    m_actions.push_back({title, std::move(handler)});
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
