#include "ImportViewController.h"

#include "foundation/FatalError.h"
#include "foundation/TextFile.h"
#include "shared/CommonLook.h"
#include "shared/Screens.h"
#include "toolkit/AlertController.h"
#include "toolkit/DocumentPickerViewController.h"

#include <QLoggingCategory>
#include <QSet>

Q_LOGGING_CATEGORY(lcExchange, "lantern.exchange")

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
    auto request = Topics::fetchRequest();
    request.sortDescriptors = {{Topics::Keys::topic, true}};
    const auto topics = managedObjectContext->fetch(request);
    if (topics.error)
        qCWarning(lcExchange) << topics.error->description;
    for (const Topics* topic : topics.records) {
        if (const auto name = topic->topic())
            TopicList.append(trimmedOfBlanks(*name));
    }
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
    SaveGroup group(*managedObjectContext);
    importQuotes();
    importTopics();
    if (const auto error = group.finish())
        qCWarning(lcExchange) << error->description;
    report();
}

void ImportViewController::importQuotes() {
    wrongFile = !readQuoteLines(*document, [this](const QuoteLine& line) { importQuote(line); });
}

void ImportViewController::importQuote(const QuoteLine& line) {
    theAuthor = line.author;
    theCategory = line.topic;
    theSource = line.source;
    if (line.topic.isEmpty())
        return;
    auto request = Event::fetchRequest();
    request.predicate = Event::Keys::author == line.author && Event::Keys::category == line.topic &&
                        Event::Keys::source == line.source;
    auto found = managedObjectContext->fetch(request);
    if (found.error)
        qCWarning(lcExchange) << found.error->description;
    results = std::move(found.records);
    resultCount = qsizetype(results.size());
    if (resultCount > 1)
        return;

    // Read before the record is touched, so that a line that ends the program leaves no half quote.
    std::optional<Date> timestamp;
    if (!line.date.isEmpty()) {
        timestamp = readDate(line.date, m_application.services.environment);
        if (!timestamp)
            fatalError(QStringLiteral("Line %1 of %2 has a date that cannot be read: \"%3\"")
                           .arg(line.number)
                           .arg(filename.value_or(QString()), line.date.left(100)));
    }
    Event& quote = resultCount == 1 ? *results.front() : *managedObjectContext->insert<Event>();
    if (!line.author.isEmpty())
        quote.setAuthor(line.author);
    quote.setCategory(line.topic);
    if (!line.source.isEmpty())
        quote.setSource(line.source);
    if (timestamp)
        quote.setTimestamp(timestamp);
    if (!line.quote.isEmpty())
        quote.setQuote(line.quote);
    if (resultCount == 0)
        save();
}

void ImportViewController::importTopics() {
    if (wrongFile.value_or(true))
        return;
    const QSet<QString> known(TopicList.cbegin(), TopicList.cend());
    readTopicNames(*document, [&](const QString& name) {
        theTopic = name;
        if (known.contains(name)) {
            updateTopic();
            return;
        }
        managedObjectContext->insert<Topics>()->setTopic(name);
        save();
    });
}

void ImportViewController::updateTopic() {
    auto request = Topics::fetchRequest();
    request.predicate = Topics::Keys::topic == *theTopic;
    auto found = managedObjectContext->fetch(request);
    if (found.error)
        qCWarning(lcExchange) << found.error->description;
    topicResults = std::move(found.records);
    topicCount = qsizetype(topicResults.size());
    if (topicResults.empty())
        fatalError(
            QStringLiteral("The topic \"%1\" is stored only with blanks around it").arg(*theTopic));
    topicResults.front()->setTopic(theTopic);
}

void ImportViewController::save() {
    if (const auto error = managedObjectContext->save())
        qCWarning(lcExchange) << error->description;
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
