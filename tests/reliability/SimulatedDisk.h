#pragma once

#include <QByteArray>

#include <map>
#include <optional>
#include <random>
#include <sqlite3.h>
#include <string>
#include <variant>
#include <vector>

/** What goes wrong on a disk. */
enum class Fault {
    DiskFull, ///< a write stores its first half, and says that the disk is full
    IoError,  ///< any operation fails; a write stores its first half
};

/**
 * The disk under all SQLite databases that are opened while it lives: real files of one folder,
 * whose operations fail when a test says so, and whose unsynced changes a power cut loses. Nothing
 * waits for the hardware.
 */
class SimulatedDisk {
public:
    SimulatedDisk();
    ~SimulatedDisk();
    SimulatedDisk(const SimulatedDisk&) = delete;
    SimulatedDisk& operator=(const SimulatedDisk&) = delete;

    /** Lets the n-th operation from now (from 1) that the fault can strike fail, and with it, where
     * it keeps failing, all after it. */
    void failAt(int operation, Fault fault, bool keepsFailing);
    void heal() { m_failure.reset(); }
    /** Whether an operation has failed since failAt(). */
    bool hasFailed() const { return m_hasFailed; }
    int syncCount() const { return m_syncCount; }

    /**
     * Leaves in the files what a power cut at this moment could: of each change since the file's
     * last sync, any part. May be called again and again, for one outcome each, while nothing has a
     * file open. From then on the disk is a sound one that keeps no account.
     */
    void losePower(std::mt19937& random);

private:
    struct File;
    struct Handle;
    struct Methods;

    struct Write {
        sqlite3_int64 offset;
        QByteArray bytes;
    };
    using Truncation = sqlite3_int64;

    /** A name in a folder, and what the disk is sure to hold of it. */
    struct Entry {
        std::optional<QByteArray> nameLeadsTo; ///< after a power cut, while isNamePending
        bool isNamePending = false;            ///< made or removed, and the folder not synced yet
        std::optional<QByteArray> synced;      ///< what the file held when it was last synced
        std::vector<std::variant<Write, Truncation>> unsynced;
    };

    struct Failure {
        int countdown;
        Fault fault;
        bool keepsFailing;
    };

    bool strikes(bool isWrite);
    int errorCode(int inputOutputError) const;
    void syncFolder();
    static QByteArray contents(const std::string& path);
    static QByteArray outcome(const Entry& entry, std::mt19937& random);

    sqlite3_vfs* m_real;
    sqlite3_vfs m_vfs;
    std::map<std::string, Entry> m_entries;
    std::optional<Failure> m_failure;
    bool m_hasFailed = false;
    bool m_hasLostPower = false;
    int m_syncCount = 0;
};
