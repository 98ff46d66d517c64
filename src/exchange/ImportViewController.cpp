#include "ImportViewController.h"

#include "foundation/FatalError.h"
#include "foundation/TextFile.h"
#include "shared/CommonLook.h"
#include "shared/Screens.h"
#include "toolkit/AlertController.h"
#include "toolkit/DocumentPickerViewController.h"

#include <QLoggingCategory>
#include <QPointer>

#include <memory>

Q_DECLARE_LOGGING_CATEGORY(lcExchange)

ImportViewController::ImportViewController(AppDelegate& application)
    : ImportButton(new Button(this, QStringLiteral("Import File")))
    , LoadFileButton(new Button(this, QStringLiteral("Load File")))
    , ImportTextView(new TextView(this, QStringLiteral("Import text")))
    , HelpTextView(new TextView(this, QStringLiteral("Help")))
    , m_application(application) {
    connect(LoadFileButton, &Button::touchUpInside, this, &ImportViewController::LoadFile);
    connect(ImportButton, &Button::touchUpInside, this, &ImportViewController::ImportTextFile);
}

void ImportViewController::viewDidLoad() {
    setTitle(QStringLiteral("Import Quote Records"));
    for (Button* button : {ImportButton, LoadFileButton}) {
        styleButton(*button);
        button->setDisabledTitleColor(grey);
    }
    styleFormField(*ImportTextView);
    ImportTextView->setLineBreakMode(LineBreakMode::TruncatingTail);
    ImportButton->setEnabled(false);
    wrongFile = false;
    HelpTextView->setText(QStringLiteral("1: First create an Export file if you haven't yet.\n"
                                         "2: Select the file you saved to your iCloud drive\n"
                                         "3: Import the file into your device"));
    WhichSection = QStringLiteral("[QUOTECOLLECTION]");

    managedObjectContext = &m_application.persistentContainer().viewContext();
    TopicList = topicNames(*managedObjectContext);
}

void ImportViewController::LoadFile() {
    const bool hasContentTypes =
        m_application.services.environment.systemVersion >= SystemVersion{14, 0};
    auto picker = std::make_unique<DocumentPickerViewController>(
        hasContentTypes ? QStringList{QStringLiteral("public.file-url"),
                                      QStringLiteral("public.image"), QStringLiteral("public.item")}
                        : QStringList{QStringLiteral("public.data")});
    picker->didPickDocumentAtURL = [this](const QUrl& url) { didPickDocumentAtURL(url); };
    picker->wasCancelled = [this] { documentPickerWasCancelled(); };
    present(std::move(picker));
}

void ImportViewController::didPickDocumentAtURL(const QUrl& url) {
    filename = url.adjusted(QUrl::StripTrailingSlash).fileName();
    const auto read = readTextFile(url.toLocalFile());
    if (const auto* failure = std::get_if<ReadFailure>(&read)) {
        qCWarning(lcExchange) << failure->description;
    } else {
        document = std::get<QString>(read);
        ImportTextView->setText(*document);
        ImportButton->setEnabled(true);
        LoadFileButton->setEnabled(false);
    }
    // The same words after a failed read: the button that stays disabled tells the difference.
    presentAlert(*this, QStringLiteral("Data Import File"),
                 QStringLiteral("File Loaded and Ready to Import"));
}

void ImportViewController::ImportTextFile() {
    if (!document)
        fatalError(QStringLiteral("An import was started before a file was loaded"));
    managedObjectContext = &m_application.persistentContainer().viewContext();
    const auto import = std::make_shared<CollectionImport>(*managedObjectContext, *document,
                                                           TopicList, filename.value_or(QString()),
                                                           m_application.services.environment);
    m_application.services.longWork.run(
        QStringLiteral("Importing"), [import] { return import->step(); },
        [import, screen = QPointer(this)](bool isCancelled) {
            if (isCancelled)
                import->cancel();
            else if (screen)
                screen->finish(import->end());
        });
}

void ImportViewController::finish(Imported imported) {
    wrongFile = !imported.isCollection;
    if (imported.line) {
        theAuthor = imported.line->author;
        theCategory = imported.line->topic;
        theSource = imported.line->source;
    }
    results = std::move(imported.quotes);
    resultCount = qsizetype(results.size());
    theTopic = imported.topic;
    topicResults = std::move(imported.topics);
    topicCount = qsizetype(topicResults.size());
    report();
}

void ImportViewController::report() {
    const auto done = [this] { performSegue(unwinds::toMainMenu, this); };
    if (!wrongFile.value_or(true))
        presentAlert(*this, QStringLiteral("Data Import File"),
                     QStringLiteral("Data File Import Completed"), done);
    else
        presentAlert(*this, QStringLiteral("Data Import"),
                     filename.value_or(QString()) + QStringLiteral(" Is The Incorrect Import File"),
                     done);
}
