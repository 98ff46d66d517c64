#include "RateShareTableViewController.h"

#include "app/Outcomes.h"
#include "shared/CommonLook.h"
#include "toolkit/ActivityViewController.h"
#include "toolkit/AlertController.h"
#include "toolkit/SubtitleTableViewCell.h"

#include <QUrlQuery>

namespace {

const QStringList captions{QStringLiteral("Rate Lantern"), QStringLiteral("Share Lantern"),
                           QStringLiteral("Share the Website"), QStringLiteral("Visit the Website"),
                           QStringLiteral("Send Feedback")};
const QStringList feedbackRecipients{QStringLiteral("feedback@lantern.example")};

} // namespace

RateShareTableViewController::RateShareTableViewController(AppDelegate& application)
    : m_application(application) {}

void RateShareTableViewController::viewDidLoad() {
    setTitle(QStringLiteral("Rate/Share"));
    tableView()->reloadData();
}

int RateShareTableViewController::numberOfRowsInSection(int /*section*/) const {
    return int(captions.size());
}

TableViewCell* RateShareTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell = tableView()->dequeueReusableCell<SubtitleTableViewCell>(QStringLiteral("Cell"));
    styleRow(*cell);
    cell->textLabel->setText(captions.at(row));
    return cell;
}

void RateShareTableViewController::didSelectRowAtIndexPath(int row) {
    tableView()->deselectRow();
    switch (row) {
    case 0:
        rate();
        break;
    case 1:
        if (productURL)
            share({productURL->toString()});
        break;
    case 2:
        if (website)
            share({instructions, website->toString()});
        break;
    case 3:
        if (website)
            open(*website);
        break;
    case 4:
        mailFeedback();
        break;
    default:
        break;
    }
}

void RateShareTableViewController::rate() {
    if (!productURL)
        return;
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("action"), QStringLiteral("write-review"));
    QUrl address = *productURL;
    address.setQuery(query);
    open(address);
}

void RateShareTableViewController::open(const QUrl& address) {
    // An address that cannot be opened is passed over.
    m_application.services.platform.open(address, [](const Outcome&) {});
}

void RateShareTableViewController::share(std::vector<ActivityItem> items) {
    Platform& platform = m_application.services.platform;
    if (platform.canSendText())
        present(makeActivityViewController(platform, m_application.services.longWork,
                                           std::move(items), tellOn(*this, m_application)));
    else
        presentAlert(*this, QStringLiteral("Can't Send Text Message"),
                     QStringLiteral("Your Device is not able to send text messages."));
}

void RateShareTableViewController::mailFeedback() {
    Platform& platform = m_application.services.platform;
    if (!platform.canSendMail()) {
        presentAlert(*this, QStringLiteral("Can't Send Email"),
                     QStringLiteral("Your Device is not able to send Email."));
        return;
    }
    MailMessage message;
    message.recipients = feedbackRecipients;
    message.body = QStringLiteral("<p>Enter your comments about Lantern app below: </p>");
    message.isHtml = true;
    platform.mail(message, tellOn(*this, m_application));
}
