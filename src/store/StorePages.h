#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <unordered_map>

/** The number of a page in a store's file, from 1; 0 stands for none. */
using PageNumber = std::uint32_t;

/** The bytes of a store's file and of its log, as far as the disk gives them. */
struct StoreBytes {
    QByteArray file;
    QByteArray log;

    /** What the disk does not give is zeros. No connection of this process may have the file open:
     * reading would drop its locks. */
    static StoreBytes read(const QString& path);
};

/** The pages of a store whose pages have a certain size: what the log holds of a page counts. */
class StorePages {
public:
    /** The bytes must outlive this. */
    StorePages(const StoreBytes& bytes, qsizetype pageSize);

    PageNumber count() const { return m_count; }
    qsizetype pageSize() const { return m_pageSize; }
    /** Empty where there is no such page. */
    QByteArrayView page(PageNumber number) const;

private:
    void readLog(QByteArrayView log);

    QByteArrayView m_file;
    qsizetype m_pageSize;
    PageNumber m_count;
    std::unordered_map<PageNumber, QByteArrayView> m_logged;
};
