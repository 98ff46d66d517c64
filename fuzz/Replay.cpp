#include "Fuzzing.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

namespace {

std::vector<QByteArray> readCorpus(const QString& folder) {
    std::vector<QByteArray> corpus;
    const QDir files(folder);
    for (const QString& name : files.entryList(QDir::Files, QDir::Name)) {
        QFile file(files.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            corpus.push_back(file.readAll());
    }
    return corpus;
}

/** One of the corpus with some of its bytes flipped, doubled, taken away or put in from another. */
QByteArray varied(const std::vector<QByteArray>& corpus, std::mt19937& random) {
    const auto below = [&](qsizetype limit) {
        return qsizetype(random()) % std::max<qsizetype>(limit, 1);
    };
    QByteArray bytes = corpus[random() % corpus.size()];
    for (auto changes = 1 + random() % 6; changes > 0; --changes) {
        const qsizetype place = below(bytes.size());
        const qsizetype length = 1 + below(std::min<qsizetype>(bytes.size() - place, 24));
        switch (random() % 5) {
        case 0:
            if (!bytes.isEmpty())
                bytes[place] = char(random());
            break;
        case 1:
            bytes.remove(place, length);
            break;
        case 2:
            bytes.insert(below(bytes.size() + 1), bytes.mid(place, length));
            break;
        case 3:
            bytes.insert(place, char(random()));
            break;
        default:
            const QByteArray& other = corpus[random() % corpus.size()];
            bytes.insert(place, other.mid(below(other.size()), length));
            break;
        }
    }
    return bytes;
}

void run(const QByteArray& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           std::size_t(bytes.size()));
}

} // namespace

/** Runs a corpus, and as many changes of it as asked for: REPLAY CORPUS [RUNS] */
int main(int argc, char** argv) {
    LLVMFuzzerInitialize(&argc, &argv);
    const auto corpus = readCorpus(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (corpus.empty()) {
        std::fprintf(stderr, "There is no corpus.\n");
        return EXIT_FAILURE;
    }
    std::for_each(corpus.begin(), corpus.end(), run);
    const int runs = argc > 2 ? std::atoi(argv[2]) : 0;
    std::mt19937 random(1);
    for (int i = 0; i < runs; ++i)
        run(varied(corpus, random));
    std::printf("%zu files, %d changes of them\n", corpus.size(), runs);
    return EXIT_SUCCESS;
}
