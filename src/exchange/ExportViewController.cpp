#include "ExportViewController.h"

#include "app/Outcomes.h"
#include "exchange/Collection.h"
#include "foundation/FatalError.h"
#include "foundation/Files.h"
#include "shared/CommonLook.h"
#include "toolkit/AlertController.h"

#include <QLoggingCategory>
#include <QPointer>

Q_DECLARE_LOGGING_CATEGORY(lcExchange)

namespace {

const auto fileName = QStringLiteral("QuoteCollection.csv");

} // namespace

ExportViewController::ExportViewController(AppDelegate& application)
    : ExportButton(new Button(this, QStringLiteral("Create Export File")))
    , SaveButton(new Button(this, QStringLiteral("Save To Files")))
    , EmailButton(new Button(this, QStringLiteral("Email File")))
    , ExportTextView(new TextView(this, QStringLiteral("Export text")))
    , ProgressView(new ProgressBar(this, QStringLiteral("Progress")))
    , HelpTextView(new TextView(this, QStringLiteral("Help")))
    , activityIndicator(new ActivityIndicatorView(this, QStringLiteral("Working")))
    , m_application(application) {
    connect(ExportButton, &Button::touchUpInside, this, &ExportViewController::CreateUpdateFile);
    connect(SaveButton, &Button::touchUpInside, this, &ExportViewController::SaveToFiles);
    connect(EmailButton, &Button::touchUpInside, this, &ExportViewController::WriteTextFile);
}

void ExportViewController::viewDidLoad() {
    setTitle(QStringLiteral("Export Quotes"));
    for (Button* button : {ExportButton, SaveButton, EmailButton}) {
        styleButton(*button);
        button->setDisabledTitleColor(grey);
    }
    SaveButton->setEnabled(false);
    EmailButton->setEnabled(false);
    styleFormField(*ExportTextView);
    activityIndicator->setHidesWhenStopped(true);
    const bool hasLargeStyle =
        m_application.services.environment.systemVersion >= SystemVersion{13, 0};
    activityIndicator->setStyle(hasLargeStyle ? ActivityIndicatorView::Large
                                              : ActivityIndicatorView::Grey);
    progress.totalUnitCount = 0;
    HelpTextView->setText(
        QStringLiteral("Step 1: Create the Export File\n"
                       "Step 2: Option 1: Click 'Save To Files' button\n"
                       "               Option 2: Click the Email File button to email the file to "
                       "yourself and then from your email save the file to your iCloud Drive. "
                       "There are size limits to email attachments for most carriers."));
}

void ExportViewController::CreateUpdateFile() {
    activityIndicator->startAnimating();
    ExportButton->setEnabled(false);
    ExportTextView->setText(QString());
    ProgressView->setProgress(0, false);
    progress.completedUnitCount = 0;
    managedObjectContext = &m_application.persistentContainer().viewContext();
    // Topics are too few to move the bar.
    Exported exported = exportCollection(
        *managedObjectContext, [this] { postProgress(1); }, [this] { postProgress(0); });
    theEventList = std::move(exported.quotes);
    theTopicList = std::move(exported.topics);
    DataString = std::move(exported.file);
    ExportTextView->setText(exported.text);
    EmailButton->setEnabled(true);
    SaveButton->setEnabled(true);
    m_application.services.mainQueue.after(1, [screen = QPointer(this)] {
        if (screen)
            presentAlert(*screen, QStringLiteral("Data Export File"),
                         QStringLiteral("Process Complete - File Ready to Save To Files or Email"));
    });
    m_application.services.mainQueue.after(0.0001, [screen = QPointer(this)] {
        if (screen)
            screen->activityIndicator->stopAnimating();
    });
}

void ExportViewController::postProgress(int units) {
    m_application.services.mainQueue.async([screen = QPointer(this), units] {
        if (!screen)
            return;
        screen->progress.completedUnitCount += units;
        screen->ProgressView->setProgress(screen->progress.fractionCompleted(), true);
    });
}

void ExportViewController::SaveToFiles() {
    if (!DataString)
        fatalError(QStringLiteral("A collection was to be saved before it was made"));
    const QString path = filePath();
    qCInfo(lcExchange) << path;
    if (const auto failure = writeTemporaryFile(path, *DataString))
        qCWarning(lcExchange) << failure->description;
    present(makeActivityViewController(
        m_application.services.platform, m_application.services.longWork, {SharedFile{path}},
        tellOn(*this, m_application),
        {ActivityType::AirDrop, ActivityType::AddToReadingList, ActivityType::Mail,
         ActivityType::Message, ActivityType::PostToFacebook, ActivityType::PostToTwitter,
         ActivityType::MarkupAsPDF, ActivityType::CopyToPasteboard, ActivityType::Print}));
}

void ExportViewController::WriteTextFile() {
    const QString path = filePath();
    const QString text = ExportTextView->text();
    if (!text.isEmpty()) {
        if (const auto failure = writeTemporaryFile(path, text.toUtf8()))
            qCWarning(lcExchange) << failure->description;
    }
    // What is shown from here on is what is sent.
    const auto bytes = readOwnFile(path);
    if (bytes && !text.isEmpty())
        ExportTextView->setText(QString::fromUtf8(*bytes));
    Platform& platform = m_application.services.platform;
    if (!platform.canSendMail()) {
        presentAlert(*this, QStringLiteral("Sending Email"),
                     QStringLiteral("Email not Setup or Unavailable"));
        return;
    }
    if (!bytes)
        return;
    MailMessage message;
    message.subject = QStringLiteral("Quote Collection Update Text File");
    message.body = QStringLiteral("Attachment: Quote Collection Text File");
    message.attachments.push_back({*bytes, QStringLiteral("csv"), fileName});
    platform.mail(message, tellOn(*this, m_application));
}

QString ExportViewController::filePath() const {
    return m_application.services.temporaryFolder + u'/' + fileName;
}
