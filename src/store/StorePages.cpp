#include "store/StorePages.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

namespace {

QByteArray readAll(const QString& path) {
    QByteArray bytes;
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return bytes;
    bytes.resize(std::max<off_t>(::lseek(file, 0, SEEK_END), 0), '\0');
    // A block that the disk does not give must not take its neighbours with it.
    constexpr qsizetype block = 4096;
    for (qsizetype place = 0; place < bytes.size();) {
        const auto read =
            ::pread(file, bytes.data() + place, std::size_t(bytes.size() - place), off_t(place));
        place = read > 0 ? place + read : (place / block + 1) * block;
    }
    ::close(file);
    return bytes;
}

quint32 wordAt(QByteArrayView bytes, qsizetype place) {
    return qFromBigEndian<quint32>(bytes.data() + place);
}

/** The sums that each frame of a log carries of all before it. */
struct LogSum {
    quint32 first = 0;
    quint32 second = 0;
    bool isBigEndian = false;

    void add(QByteArrayView bytes) {
        for (qsizetype i = 0; i < bytes.size(); i += 8) {
            first += word(bytes, i) + second;
            second += word(bytes, i + 4) + first;
        }
    }
    quint32 word(QByteArrayView bytes, qsizetype place) const {
        return isBigEndian ? wordAt(bytes, place)
                           : qFromLittleEndian<quint32>(bytes.data() + place);
    }
    bool isAt(QByteArrayView bytes, qsizetype place) const {
        return wordAt(bytes, place) == first && wordAt(bytes, place + 4) == second;
    }
};

} // namespace

StoreBytes StoreBytes::read(const QString& path) {
    return {readAll(path), readAll(path + QStringLiteral("-wal"))};
}

StorePages::StorePages(const StoreBytes& bytes, qsizetype pageSize)
    : m_file(bytes.file)
    , m_pageSize(pageSize)
    , m_count(PageNumber(bytes.file.size() / pageSize)) {
    readLog(bytes.log);
}

QByteArrayView StorePages::page(PageNumber number) const {
    if (number == 0 || number > m_count)
        return {};
    if (const auto logged = m_logged.find(number); logged != m_logged.end())
        return logged->second;
    const qsizetype place = qsizetype(number - 1) * m_pageSize;
    return place + m_pageSize <= m_file.size() ? m_file.sliced(place, m_pageSize)
                                               : QByteArrayView();
}

// Frames count up to the last that ends a transaction, and while their salts and sums are right.
void StorePages::readLog(QByteArrayView log) {
    constexpr qsizetype headerSize = 32;
    constexpr qsizetype frameHeaderSize = 24;
    constexpr quint32 mark = 0x377f0682; // and one more where the sums are of big-endian words
    if (log.size() < headerSize || (wordAt(log, 0) | 1) != (mark | 1) ||
        qsizetype(wordAt(log, 8)) != m_pageSize)
        return;
    LogSum sum;
    sum.isBigEndian = (wordAt(log, 0) & 1) != 0;
    sum.add(log.first(24));
    if (!sum.isAt(log, 24))
        return;
    const QByteArrayView salts = log.sliced(16, 8);
    std::unordered_map<PageNumber, QByteArrayView> transaction;
    for (qsizetype place = headerSize; place + frameHeaderSize + m_pageSize <= log.size();
         place += frameHeaderSize + m_pageSize) {
        const QByteArrayView header = log.sliced(place, frameHeaderSize);
        const QByteArrayView page = log.sliced(place + frameHeaderSize, m_pageSize);
        sum.add(header.first(8));
        sum.add(page);
        if (header.sliced(8, 8) != salts || !sum.isAt(header, 16))
            return;
        transaction[wordAt(header, 0)] = page;
        if (const auto count = wordAt(header, 4); count != 0) {
            for (const auto& [number, logged] : transaction)
                m_logged[number] = logged;
            transaction.clear();
            m_count = count;
        }
    }
}
