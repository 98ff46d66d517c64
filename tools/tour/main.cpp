#include "exchange/ImportViewController.h"
#include "store/Records.h"
#include "support/FakePlatform.h"
#include "support/Pilot.h"
#include "toolkit/AlertController.h"
#include "toolkit/DocumentPickerViewController.h"
#include "toolkit/NavigationController.h"
#include "toolkit/Storyboard.h"
#include "ui/Program.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QUrl>

#include <array>
#include <cstdio>
#include <stdexcept>

namespace {

QStringList warnings; // of the program, while the tour uses it

void keepWarnings(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type != QtInfoMsg && type != QtDebugMsg)
        warnings.append(QString::fromUtf8(context.category) + QStringLiteral(": ") + message);
}

/** Whether a picture has one colour only. */
bool isBlank(const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, 0))
                return false;
        }
    }
    return true;
}

/** What one walk looks at: a size of the window and how the user wants programs to look. */
struct Look {
    QSize size;
    const char* name = "";
    bool dark = false;
    bool highContrast = false;
    double textScale = 1;

    QString folder() const {
        return QStringLiteral("%1x%2%3")
            .arg(size.width())
            .arg(size.height())
            .arg(QLatin1String(name));
    }
};

const std::array looks{Look{{390, 844}},
                       Look{{320, 568}},
                       Look{{844, 390}},
                       Look{{1024, 768}},
                       Look{{1600, 1000}},
                       Look{{390, 844}, "-dark", true},
                       Look{{1600, 1000}, "-dark", true},
                       Look{{390, 844}, "-contrast", false, true},
                       Look{{390, 844}, "-dark-contrast", true, true},
                       Look{{390, 844}, "-large", false, false, 1.5},
                       Look{{320, 568}, "-large", false, false, 1.5},
                       Look{{844, 390}, "-large-dark", true, false, 1.5}};

/** One walk through all screens in one look, with a new store. */
class Walk {
public:
    Walk(const Look& look, const QString& collection, const QString& outputFolder)
        : m_program({m_home.filePath(QStringLiteral("store")),
                     m_home.filePath(QStringLiteral("settings/Lantern.ini"))},
                    environment(), m_platform)
        , m_pilot(launched(m_program))
        , m_collection(collection)
        , m_output(outputFolder + u'/' + look.folder()) {
        if (!QDir().mkpath(m_output.path()))
            throw std::runtime_error("the output folder cannot be made");
        Appearance& appearance = m_program.appearance();
        appearance.dark = look.dark;
        appearance.highContrast = look.highContrast;
        appearance.textScale = look.textScale;
        Q_EMIT appearance.changed();
        m_pilot.resize(look.size);
    }

    void all() {
        menu();
        import();
        quoteList();
        addQuote();
        readQuote();
        settings();
        browseLists();
        nameRecords();
        exportQuotes();
        rateAndShare();
    }

private:
    static Environment environment() {
        Environment environment = Environment::ofThisDevice();
        environment.locale = QStringLiteral("en_US");
        return environment;
    }

    static QQuickWindow& launched(Program& program) {
        if (!program.launch())
            throw std::runtime_error("the window cannot be made");
        return program.quickWindow();
    }

    /** Takes a picture, in which a text must be seen. */
    void shoot(const QByteArray& name, const QByteArray& text) {
        m_pilot.settle();
        const QImage picture = m_pilot.grab();
        const QString file = m_output.filePath(QStringLiteral("%1-%2.png")
                                                   .arg(++m_shots, 2, 10, QLatin1Char('0'))
                                                   .arg(QString::fromUtf8(name)));
        if (!picture.save(file))
            throw std::runtime_error("cannot write " + file.toStdString());
        const QRect place = m_pilot.placeOf(QString::fromUtf8(text));
        if (place.isEmpty() || isBlank(picture.copy(place)))
            throw std::runtime_error((name + " does not show \"" + text + '"').toStdString());
    }

    void menu() {
        shoot("menu-closed", "Menu");
        m_pilot.tap(QStringLiteral("Menu"));
        shoot("menu", "Quote List");
    }

    void import() {
        m_pilot.tap(QStringLiteral("Import"));
        shoot("import", "Load File");
        m_pilot.tap(QStringLiteral("Load File"));
        shoot("import-file-chooser", "Cancel");
        auto* picker = qobject_cast<DocumentPickerViewController*>(
            m_program.navigation().presentedViewController());
        if (!picker)
            throw std::runtime_error("no file chooser is shown");
        picker->pick(QUrl::fromLocalFile(m_collection));
        shoot("import-loaded-alert", "OK");
        m_pilot.tap(QStringLiteral("OK"));
        shoot("import-loaded", "Import File");
        m_pilot.tap(QStringLiteral("Import File"));
        shoot("import-report", "OK");
        m_pilot.tap(QStringLiteral("OK"));
        m_pilot.find(QStringLiteral("Menu"));
        hardQuotes();
    }

    /** Quotes whose names are long, blank, or run from right to left. */
    void hardQuotes() {
        ManagedObjectContext& context = m_program.application().persistentContainer().viewContext();
        const std::array<std::array<const char*, 3>, 6> names{
            {{"", "", "A quote of nobody about nothing"},
             {"Wolfgang Amadeus Theophilus von und zu Hohenlohe-Schillingsfürst",
              " A topic whose name is longer than any window of a phone is wide", "Long names"},
             {"جبران خليل جبران", " الحكمة", "أنتم الأقواس التي منها ينطلق أولادكم سهاماً حيّة"},
             {"עמוס עוז", " תקווה", "מי שאין לו תקווה אין לו כלום"},
             {"孔子", " 仁 · 学习与思考", "學而不思則罔，思而不學則殆。"},
             {"คนไทย 👩🏽‍🚀", " 😀 हिन्दी", "ภาษาไทย 😀 हिन्दी"}}};
        for (const auto& [author, topic, text] : names) {
            Event& quote = *context.insert<Event>();
            quote.setAuthor(QString::fromUtf8(author));
            quote.setCategory(QString::fromUtf8(topic));
            quote.setSource(QString::fromUtf8(author));
            quote.setQuote(QString::fromUtf8(text));
            quote.setTimestamp(m_program.application().services.environment.now());
        }
        m_program.application().saveContext();
    }

    void quoteList() {
        open("Quote List");
        shoot("quotes-by-topic", "Sorted/Search by Topic");
        m_pilot.tap(QStringLiteral("Author"));
        shoot("quotes-by-author", "Sorted/Search by Author");
        m_pilot.tap(QStringLiteral("Sort"));
        shoot("quotes-by-author-descending", "Sorted/Search by Author");
        m_pilot.tap(QStringLiteral("Sort"));
        m_pilot.tap(QStringLiteral("Source"));
        shoot("quotes-by-source", "Sorted/Search by Source");
        m_pilot.tap(QStringLiteral("Search quotes"));
        m_pilot.type(QStringLiteral("hamlet"));
        shoot("quotes-search", "# of Quotes in your search");
        for (int letters = 0; letters < 6; ++letters)
            m_pilot.press(Qt::Key_Backspace);
        m_pilot.tap(QStringLiteral("Quote"));
        shoot("quotes-without-search", "Search by Quote");
        m_pilot.tap(QStringLiteral("Search quotes"));
        m_pilot.type(QStringLiteral("love"));
        shoot("quotes-text-search", "Topic: ");
        const auto rows = m_pilot.findAll(QStringLiteral("Topic: "));
        if (rows.size() < 3)
            throw std::runtime_error("the search shows no rows");
        m_pilot.drag(*rows.at(1), {-120, 0});
        shoot("quotes-swipe", "delete");
        m_pilot.tap(QStringLiteral("delete"));
        shoot("quotes-deleted", "# of Quotes in your search");
        Pilot::waitFor([&] { return !m_pilot.look(QStringLiteral("Undo")); }, 10'000);
        m_pilot.tap(QStringLiteral("Back"));
    }

    void addQuote() {
        open("Add New Quote");
        shoot("add-quote", "Add Quote");
        m_pilot.tap(QStringLiteral("Save"));
        shoot("add-quote-missing", "Insert New Record Canceled");
        m_pilot.tap(QStringLiteral("OK"));
        m_pilot.tap(QStringLiteral("Topic"));
        shoot("add-quote-topic-picker", "Done");
        m_pilot.type(QStringLiteral("wonder"));
        m_pilot.press(Qt::Key_Escape);
        for (const char* style : {"UseDateWheel", "UseDateInline", "UseDateCompact"}) {
            m_program.application().services.userDefaults.setBool(QLatin1String(style), true);
            m_pilot.tap(QStringLiteral("Date"));
            shoot(style, "Today");
            m_pilot.tap(QStringLiteral("Done"));
            m_program.application().services.userDefaults.setBool(QLatin1String(style), false);
        }
        m_pilot.tap(QStringLiteral("Source"));
        m_pilot.type(QStringLiteral("Letters"));
        m_pilot.press(Qt::Key_Escape);
        m_pilot.tap(QStringLiteral("Author"));
        m_pilot.type(QStringLiteral("Лев Толстой 托爾斯泰 تولستوي"));
        m_pilot.press(Qt::Key_Escape);
        m_pilot.tap(QStringLiteral("Quote"));
        m_pilot.type(
            QStringLiteral("Все счастливые семьи похожи друг на друга. 幸福的家庭都是相似的。 "
                           "كل العائلات السعيدة تتشابه"));
        shoot("add-quote-filled", "Все счастливые семьи");
        m_pilot.tap(QStringLiteral("Save"));
        m_pilot.find(QStringLiteral("Menu"));
    }

    void readQuote() {
        open("Quote List");
        m_pilot.tap(QStringLiteral("Author"));
        m_pilot.tap(QStringLiteral("Search quotes"));
        m_pilot.type(QStringLiteral("толстой"));
        shoot("quotes-search-other-scripts", "托爾斯泰");
        m_pilot.tap(*m_pilot.findAll(QStringLiteral("Author: ")).constFirst());
        shoot("quote", "幸福的家庭都是相似的");
        for (int taps = 0; taps < 8; ++taps)
            m_pilot.tap(QStringLiteral("Font size +"));
        shoot("quote-large", "幸福的家庭都是相似的");
        m_pilot.tap(QStringLiteral("Full Screen"));
        shoot("full-screen", "كل العائلات السعيدة تتشابه");
        m_pilot.tap(QStringLiteral("Share"));
        shoot("share-sheet", "Copy");
        m_pilot.tap(QStringLiteral("Cancel"));
        m_pilot.tap(QStringLiteral("Back"));
        m_pilot.tap(QStringLiteral("Author"));
        shoot("quote-author-picker", "Done");
        m_pilot.tap(QStringLiteral("Done"));
        m_pilot.tap(QStringLiteral("Save"));
        m_pilot.tap(QStringLiteral("Back"));
        open("Quotes by Topic");
        shoot("quotes-by-topic-list", "Quotes by Topic");
        m_pilot.tap(QStringLiteral("Back"));
    }

    void settings() {
        open("Settings");
        shoot("settings", "Date picker style");
        m_pilot.tap(QStringLiteral("Use default date"));
        for (const char* style : {"Inline", "Compact", "Wheel"}) {
            m_pilot.tap(QLatin1String(style));
            m_pilot.tap(QStringLiteral("Date"));
            shoot((QByteArray("settings-") + QByteArray(style).toLower()).constData(), "Today");
            m_pilot.tap(QStringLiteral("Done"));
        }
        m_pilot.tap(QStringLiteral("Back"));
    }

    void browseLists() {
        open("Reference Lists");
        shoot("reference-lists", "Authors");
        m_pilot.tap(QStringLiteral("Authors"));
        shoot("authors", "Names");
        m_pilot.tap(QStringLiteral("Sort"));
        shoot("authors-descending", "Names");
        m_pilot.tap(QStringLiteral("Search authors"));
        m_pilot.type(QStringLiteral("mark twain"));
        shoot("authors-search", "Mark Twain");
        m_pilot.tap(QStringLiteral("Mark Twain"));
        shoot("author-breakdown", "Topic");
        m_pilot.tap(QStringLiteral("Print"));
        m_pilot.tap(QStringLiteral("Create File"));
        shoot("print-quotes", "Mark Twain");
        if (m_platform.printed.empty())
            throw std::runtime_error("the quotes were not printed");
        m_pilot.tap(QStringLiteral("Back"));
        for (int screens = 0; screens < 3; ++screens)
            m_pilot.tap(QStringLiteral("Back"));
        open("Quotes by Group");
        shoot("tabs-authors", "Sources");
        m_pilot.tap(QStringLiteral("Sources"));
        shoot("tabs-sources", "Sources");
        m_pilot.tap(QStringLiteral("Search sources"));
        m_pilot.type(QStringLiteral("hamlet"));
        m_pilot.tap(*m_pilot.findAll(QStringLiteral("Hamlet")).constFirst());
        shoot("source-breakdown", "Author");
        m_pilot.tap(QStringLiteral("Back"));
        m_pilot.tap(QStringLiteral("Topics"));
        shoot("tabs-topics", "Topics");
        m_pilot.tap(QStringLiteral("Search topics"));
        m_pilot.type(QStringLiteral("art"));
        m_pilot.tap(QStringLiteral("art"));
        shoot("topic-breakdown", "Source");
        m_pilot.tap(QStringLiteral("Source"));
        shoot("topic-breakdown-by-source", "Source");
        m_pilot.tap(QStringLiteral("Back"));
        m_pilot.tap(QStringLiteral("Back"));
    }

    /** The list of the records of a noun, and its forms; the new name stands in the first rows. */
    void recordsOf(const char* noun, const char* newName) {
        const QString name = QString::fromUtf8(newName);
        const QByteArray picture = QByteArray(noun).toLower();
        open("Reference Lists");
        m_pilot.tap(QLatin1String(noun) + QLatin1Char('s'));
        m_pilot.tap(QStringLiteral("Names"));
        shoot(picture + "-names", QByteArray(noun) + " Names");
        m_pilot.tap(QStringLiteral("Add"));
        m_pilot.tap(QLatin1String(noun));
        m_pilot.type(name);
        shoot("add-" + picture, newName);
        m_pilot.tap(QStringLiteral("Save"));
        m_pilot.tap(name);
        shoot("edit-" + picture, newName);
        for (int screens = 0; screens < 4; ++screens)
            m_pilot.tap(QStringLiteral("Back"));
    }

    void nameRecords() {
        recordsOf("Author", "\"Saki\"");
        recordsOf("Source", "\"Emma\"");
        open("Topics");
        shoot("topic-names", "art");
        m_pilot.tap(QStringLiteral("Add"));
        shoot("add-topic", "Add Topic");
        m_pilot.type(QStringLiteral("a first topic"));
        m_pilot.press(Qt::Key_Escape);
        m_pilot.tap(QStringLiteral("Save"));
        m_pilot.tap(QStringLiteral("a first topic"));
        shoot("edit-topic", "a first topic");
        m_pilot.tap(QStringLiteral("Back"));
        m_pilot.tap(m_pilot.find(QStringLiteral("a first topic")), Qt::RightButton);
        shoot("topic-menu", "delete");
        m_pilot.tap(QStringLiteral("delete"));
        shoot("topic-deleted", "art");
        m_pilot.tap(QStringLiteral("Back"));
    }

    void exportQuotes() {
        open("Export");
        shoot("export", "Create Export File");
        m_pilot.tap(QStringLiteral("Create Export File"));
        shoot("export-created", "[QUOTECOLLECTION]");
        m_pilot.find(QStringLiteral("OK"));
        shoot("export-alert", "OK");
        m_pilot.tap(QStringLiteral("OK"));
        m_pilot.tap(QStringLiteral("Save To Files"));
        shoot("export-share-sheet", "Save to Files");
        m_pilot.tap(QStringLiteral("Save to Files"));
        m_pilot.tap(QStringLiteral("Email File"));
        if (m_platform.mails.empty() || m_platform.saved.empty())
            throw std::runtime_error("the export was not handed over");
        m_pilot.tap(QStringLiteral("Back"));
    }

    void rateAndShare() {
        open("Rate/Share");
        shoot("rate-share", "Visit the Website");
        m_pilot.tap(QStringLiteral("Share Lantern"));
        shoot("rate-share-sheet", "Copy");
        m_pilot.tap(QStringLiteral("Cancel"));
        m_platform.sendsMail = false;
        m_pilot.tap(QStringLiteral("Send Feedback"));
        shoot("rate-share-alert", "OK");
        m_pilot.tap(QStringLiteral("OK"));
        m_platform.sendsMail = true;
        m_pilot.tap(QStringLiteral("Back"));
    }

    /** Opens a screen from the menu, whose options hide whenever it comes back. */
    void open(const char* option) {
        if (!m_pilot.look(QLatin1String(option)))
            m_pilot.tap(QStringLiteral("Menu"));
        m_pilot.tap(QLatin1String(option));
    }

    QTemporaryDir m_home;
    FakePlatform m_platform;
    Program m_program;
    Pilot m_pilot;
    QString m_collection;
    QDir m_output;
    int m_shots = 0;
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "Draws every screen of Lantern, with a collection imported into it, "
                             "in each look or in those that are named, as their folders are.\n"
                             "usage: tour OUTPUT-FOLDER COLLECTION-FILE [LOOK]...\n");
        return EXIT_FAILURE;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    const QGuiApplication application(argc, argv);
    qInstallMessageHandler(keepWarnings);

    const QString output = QString::fromLocal8Bit(argv[1]);
    const QString collection = QFile::decodeName(argv[2]);
    try {
        const QStringList wanted = QGuiApplication::arguments().mid(3);
        for (const Look& look : looks) {
            if (wanted.isEmpty() || wanted.contains(look.folder()))
                Walk(look, collection, output).all();
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The tour ended: %s\n", error.what());
        warnings.append(QString());
    }
    for (const QString& warning : warnings)
        std::fprintf(stderr, "%s\n", warning.toLocal8Bit().constData());
    return warnings.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
