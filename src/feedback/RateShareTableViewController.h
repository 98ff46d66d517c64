#pragma once

#include "app/AppDelegate.h"
#include "toolkit/TableViewController.h"

#include <QUrl>

#include <optional>

/** Five rows that lead out of the program: its pages, sharing them, and mail to its maker. */
class RateShareTableViewController : public TableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")

public:
    explicit RateShareTableViewController(AppDelegate& application);

    std::optional<QUrl> productURL =
        QUrl(QStringLiteral("https://store.lantern.example/app/id1000000001"));
    QString instructions =
        QStringLiteral("Click the following link to visit the Lantern App website");
    std::optional<QUrl> website = QUrl(QStringLiteral("http://www.lantern.example"));

    void viewDidLoad() override;
    int numberOfRowsInSection(int section) const override;
    TableViewCell* cellForRowAtIndexPath(int row) override;
    void didSelectRowAtIndexPath(int row) override;

private:
    void rate();
    void open(const QUrl& address);
    void share(std::vector<ActivityItem> items);
    void mailFeedback();

    AppDelegate& m_application;
};
