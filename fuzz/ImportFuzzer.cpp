#include "Fuzzing.h"
#include "exchange/ImportViewController.h"
#include "reliability/SimulatedDisk.h"
#include "reliability/StoreContents.h"
#include "support/TestApplication.h"

#include <QFile>

#include <algorithm>

namespace {

/** Imports the file; false when it ends the program, which a date or a topic in it may do. */
bool import(TestApplication& application, AppDelegate& program, const QString& path) {
    ImportViewController screen(program);
    screen.viewDidLoad();
    screen.didPickDocumentAtURL(QUrl::fromLocalFile(path));
    try {
        screen.ImportTextFile();
        application.finishLongWork();
        return true;
    } catch (const FatalError&) {
        return false;
    }
}

bool isPlain(const std::optional<QString>& text) {
    return !text || (!text->isEmpty() && !text->contains(u'\'') && !text->contains(u'\n') &&
                     !text->contains(u'\r'));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    SimulatedDisk disk;
    TestApplication application;
    const QString path = application.folder.filePath(QStringLiteral("file.csv"));
    QFile file(path);
    require(file.open(QFile::WriteOnly), "there is room for a file");
    file.write(reinterpret_cast<const char*>(bytes), qint64(count));
    file.close();

    std::size_t quotes = 0;
    // The second finds the quotes and topics of the first.
    for (int time = 0; time < 2; ++time) {
        AppDelegate program(application.delegate.services);
        const bool isDone = import(application, program, path);
        ManagedObjectContext& context = program.persistentContainer().viewContext();
        program.saveContext();
        const QStringList inMemory = contentsOf(context);
        const auto events = context.fetch(Event::fetchRequest()).records;
        for (const Event* quote : events) {
            require(quote->category() && isPlain(quote->category()), "each quote has a topic");
            require(isPlain(quote->author()) && isPlain(quote->source()), "names are one line");
            require(!quote->quote() || !quote->quote()->contains(QStringLiteral("@#@")),
                    "line feeds are back in place");
        }
        const auto withoutSource =
            std::count_if(events.begin(), events.end(),
                          [](const Event* quote) { return !quote->source() || !quote->author(); });
        if (time == 0)
            quotes = events.size() + std::size_t(withoutSource);
        else if (isDone)
            require(events.size() == quotes, "only what has no full key is there twice");

        PersistentContainer onDisk(QStringLiteral("Lantern"),
                                   application.delegate.services.storeFolder);
        require(!onDisk.loadPersistentStores(), "the store opens");
        require(contentsOf(onDisk.viewContext()) == inMemory, "the store holds what memory does");
    }
    return 0;
}
