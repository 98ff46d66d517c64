#include "SimulatedDisk.h"

#include <QFile>

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <utility>

namespace {

constexpr qsizetype sectorSize = 512;

void put(QByteArray& file, sqlite3_int64 offset, QByteArrayView bytes) {
    if (const qsizetype end = qsizetype(offset) + bytes.size(); end > file.size()) {
        if (end > file.capacity())
            file.reserve(2 * end);
        file.resize(end, '\0');
    }
    std::copy(bytes.begin(), bytes.end(), file.begin() + offset);
}

/** Of a write that was under way, each sector is written, or not, or in part, or is damaged. */
void putInPart(QByteArray& file, sqlite3_int64 offset, QByteArrayView bytes, std::mt19937& random) {
    while (!bytes.isEmpty()) {
        const auto length = std::min(sectorSize - qsizetype(offset) % sectorSize, bytes.size());
        QByteArray sector = bytes.first(length).toByteArray();
        switch (random() % 8) {
        case 0:
        case 1:
        case 2:
            put(file, offset, sector);
            break;
        case 3:
            put(file, offset, sector.left(qsizetype(random()) % length));
            break;
        case 4:
            std::generate(sector.begin(), sector.end(), [&] { return char(random()); });
            put(file, offset, sector);
            break;
        default:
            break;
        }
        bytes = bytes.sliced(length);
        offset += length;
    }
}

} // namespace

/** Where SQLite keeps a file of ours; the real one's lies right behind it. */
struct SimulatedDisk::Handle {
    sqlite3_file base;
    File* file;
};

struct SimulatedDisk::File {
    SimulatedDisk& disk;
    std::string path; // empty for a temporary file
    sqlite3_file* real;
    bool isNew; // its first sync is one of its folder too, as in SQLite's own files

    /** Null when nobody keeps account. */
    Entry* entry() { return path.empty() || disk.m_hasLostPower ? nullptr : &disk.m_entries[path]; }
};

/** What SQLite calls. */
struct SimulatedDisk::Methods {
    static SimulatedDisk& disk(sqlite3_vfs* vfs) {
        return *static_cast<SimulatedDisk*>(vfs->pAppData);
    }
    static File& of(sqlite3_file* handle) { return *reinterpret_cast<Handle*>(handle)->file; }

    static int open(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* handle, int flags,
                    int* outFlags) {
        handle->pMethods = nullptr;
        SimulatedDisk& self = disk(vfs);
        const std::string path = name == nullptr ? "" : name;
        const bool isNew = !QFile::exists(QString::fromStdString(path));
        if (!isNew && !self.m_hasLostPower && !self.m_entries.contains(path))
            self.m_entries[path].synced = contents(path);
        if (self.strikes(false))
            return SQLITE_CANTOPEN;
        auto* real = reinterpret_cast<sqlite3_file*>(reinterpret_cast<Handle*>(handle) + 1);
        const int code = self.m_real->xOpen(self.m_real, name, real, flags, outFlags);
        if (code != SQLITE_OK)
            return code;
        auto* file = new File{self, path, real, isNew};
        if (Entry* entry = file->entry(); entry != nullptr && isNew) {
            entry->synced = QByteArray();
            entry->isNamePending = true;
        }
        reinterpret_cast<Handle*>(handle)->file = file;
        handle->pMethods = &table();
        return SQLITE_OK;
    }

    static int remove(sqlite3_vfs* vfs, const char* name, int syncsFolder) {
        SimulatedDisk& self = disk(vfs);
        if (self.strikes(false))
            return SQLITE_IOERR_DELETE;
        const int code = self.m_real->xDelete(self.m_real, name, 0);
        if (code != SQLITE_OK || self.m_hasLostPower)
            return code;
        Entry& entry = self.m_entries[name];
        if (!entry.isNamePending)
            entry.nameLeadsTo = entry.synced;
        entry.isNamePending = true;
        entry.synced.reset();
        entry.unsynced.clear();
        if (syncsFolder != 0)
            self.syncFolder();
        return SQLITE_OK;
    }

    static int close(sqlite3_file* handle) {
        const std::unique_ptr<File> file(&of(handle));
        return file->real->pMethods->xClose(file->real);
    }

    static int read(sqlite3_file* handle, void* bytes, int count, sqlite3_int64 offset) {
        File& file = of(handle);
        return file.disk.strikes(false)
                   ? SQLITE_IOERR_READ
                   : file.real->pMethods->xRead(file.real, bytes, count, offset);
    }

    static int write(sqlite3_file* handle, const void* bytes, int count, sqlite3_int64 offset) {
        File& file = of(handle);
        const bool fails = file.disk.strikes(true);
        if (fails)
            count /= 2;
        const int code = file.real->pMethods->xWrite(file.real, bytes, count, offset);
        if (Entry* entry = file.entry(); entry != nullptr && code == SQLITE_OK)
            entry->unsynced.emplace_back(
                Write{offset, QByteArray(static_cast<const char*>(bytes), count)});
        return fails ? file.disk.errorCode(SQLITE_IOERR_WRITE) : code;
    }

    static int truncate(sqlite3_file* handle, sqlite3_int64 size) {
        File& file = of(handle);
        if (file.disk.strikes(false))
            return SQLITE_IOERR_TRUNCATE;
        const int code = file.real->pMethods->xTruncate(file.real, size);
        if (Entry* entry = file.entry(); entry != nullptr && code == SQLITE_OK)
            entry->unsynced.emplace_back(Truncation(size));
        return code;
    }

    static int sync(sqlite3_file* handle, int /*flags*/) {
        File& file = of(handle);
        if (file.disk.strikes(false))
            return SQLITE_IOERR_FSYNC;
        ++file.disk.m_syncCount;
        if (Entry* entry = file.entry()) {
            for (const auto& change : std::exchange(entry->unsynced, {})) {
                if (const auto* written = std::get_if<Write>(&change))
                    put(*entry->synced, written->offset, written->bytes);
                else
                    entry->synced->truncate(std::get<Truncation>(change));
            }
            if (std::exchange(file.isNew, false))
                file.disk.syncFolder();
        }
        return SQLITE_OK;
    }

    static int size(sqlite3_file* handle, sqlite3_int64* bytes) {
        File& file = of(handle);
        return file.real->pMethods->xFileSize(file.real, bytes);
    }

    static int lock(sqlite3_file* handle, int level) {
        File& file = of(handle);
        return file.disk.strikes(false) ? SQLITE_IOERR_LOCK
                                        : file.real->pMethods->xLock(file.real, level);
    }

    static int unlock(sqlite3_file* handle, int level) {
        File& file = of(handle);
        return file.real->pMethods->xUnlock(file.real, level);
    }

    static int checkReservedLock(sqlite3_file* handle, int* isLocked) {
        File& file = of(handle);
        return file.real->pMethods->xCheckReservedLock(file.real, isLocked);
    }

    // None: a control such as a size hint would change the file past what is kept apart here.
    static int control(sqlite3_file* /*handle*/, int /*operation*/, void* /*argument*/) {
        return SQLITE_NOTFOUND;
    }

    static int sector(sqlite3_file* /*handle*/) { return int(sectorSize); }

    static int characteristics(sqlite3_file* handle) {
        File& file = of(handle);
        return file.real->pMethods->xDeviceCharacteristics(file.real);
    }

    // Of version 1, without shared memory, which a store that is locked exclusively does not need.
    static const sqlite3_io_methods& table() {
        static const sqlite3_io_methods methods = [] {
            sqlite3_io_methods result{};
            result.iVersion = 1;
            result.xClose = close;
            result.xRead = read;
            result.xWrite = write;
            result.xTruncate = truncate;
            result.xSync = sync;
            result.xFileSize = size;
            result.xLock = lock;
            result.xUnlock = unlock;
            result.xCheckReservedLock = checkReservedLock;
            result.xFileControl = control;
            result.xSectorSize = sector;
            result.xDeviceCharacteristics = characteristics;
            return result;
        }();
        return methods;
    }
};

SimulatedDisk::SimulatedDisk()
    : m_real(sqlite3_vfs_find(nullptr))
    , m_vfs(*m_real) {
    m_vfs.iVersion = std::min(m_real->iVersion, 2);
    m_vfs.szOsFile = int(sizeof(Handle)) + m_real->szOsFile;
    m_vfs.zName = "simulated";
    m_vfs.pAppData = this;
    m_vfs.xOpen = Methods::open;
    m_vfs.xDelete = Methods::remove;
    // The others ask for nothing of their own: they take this for the real one.
    if (sqlite3_vfs_register(&m_vfs, 1) != SQLITE_OK)
        throw std::runtime_error("SQLite takes no disk");
}

SimulatedDisk::~SimulatedDisk() {
    sqlite3_vfs_unregister(&m_vfs);
    sqlite3_vfs_register(m_real, 1);
}

void SimulatedDisk::failAt(int operation, Fault fault, bool keepsFailing) {
    m_failure = Failure{operation, fault, keepsFailing};
    m_hasFailed = false;
}

bool SimulatedDisk::strikes(bool isWrite) {
    if (!m_failure || (m_failure->fault == Fault::DiskFull && !isWrite))
        return false;
    --m_failure->countdown;
    const bool fails =
        m_failure->countdown == 0 || (m_failure->countdown < 0 && m_failure->keepsFailing);
    m_hasFailed = m_hasFailed || fails;
    return fails;
}

int SimulatedDisk::errorCode(int inputOutputError) const {
    return m_failure->fault == Fault::DiskFull ? SQLITE_FULL : inputOutputError;
}

void SimulatedDisk::syncFolder() {
    for (auto& [path, entry] : m_entries) {
        entry.isNamePending = false;
        entry.nameLeadsTo.reset();
    }
}

QByteArray SimulatedDisk::contents(const std::string& path) {
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray SimulatedDisk::outcome(const Entry& entry, std::mt19937& random) {
    QByteArray bytes = *entry.synced;
    for (const auto& change : entry.unsynced) {
        if (const auto* write = std::get_if<Write>(&change))
            putInPart(bytes, write->offset, write->bytes, random);
        else if (random() % 2 == 0)
            bytes.truncate(std::get<Truncation>(change));
    }
    return bytes;
}

void SimulatedDisk::losePower(std::mt19937& random) {
    m_hasLostPower = true;
    heal();
    for (const auto& [path, entry] : m_entries) {
        const bool isNameLost = entry.isNamePending && random() % 2 == 0;
        std::optional<QByteArray> left = isNameLost ? entry.nameLeadsTo : std::nullopt;
        if (!isNameLost && entry.synced)
            left = outcome(entry, random);
        QFile file(QString::fromStdString(path));
        if (!left)
            file.remove();
        else if (!file.open(QIODevice::WriteOnly) || file.write(*left) != left->size())
            throw std::runtime_error("what the power cut leaves cannot be written");
    }
}
