#include "store/Connection.h"

#include "foundation/Files.h"

#include <QDate>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

constexpr auto opened = "opened";
constexpr auto openElsewhere = "another process has it open";

StoreError failure(const QString& path, const QString& verb, const QString& reason,
                   const QString& detail) {
    return {QStringLiteral("The store \"%1\" could not be %2: %3").arg(path, verb, reason),
            QStringLiteral("{path = %1%2}").arg(path, detail), reason};
}

StoreError systemFailure(const QString& path, int code) {
    return failure(path, QLatin1String(opened),
                   QString::fromStdString(std::generic_category().message(code)),
                   QStringLiteral(", errno = %1").arg(code));
}

// Makes the folder and, where there is none, an empty file, both for their owner alone.
std::optional<StoreError> makeFile(const QString& folder, const QString& path) {
    if (const int code = makeOwnFolder(folder); code != 0)
        return systemFailure(folder, code);
    const QByteArray folderName = QFile::encodeName(folder);
    // What the owner may do is left to the owner: a folder that is not writable stays so.
    struct stat status {};
    if (::stat(folderName.constData(), &status) != 0 ||
        ::chmod(folderName.constData(), status.st_mode & S_IRWXU) != 0)
        return systemFailure(folder, errno);

    const int file = ::open(QFile::encodeName(path).constData(),
                            O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
        return errno == EEXIST ? std::nullopt : std::optional(systemFailure(path, errno));
    const bool isPrivate = ::fchmod(file, S_IRUSR | S_IWUSR) == 0;
    const int reason = errno;
    ::close(file);
    return isPrivate ? std::nullopt : std::optional(systemFailure(path, reason));
}

} // namespace

std::optional<Statement> Statement::prepare(sqlite3* database, const QByteArray& sql) {
    sqlite3_stmt* handle = nullptr;
    if (sqlite3_prepare_v3(database, sql.constData(), int(sql.size()), SQLITE_PREPARE_PERSISTENT,
                           &handle, nullptr) != SQLITE_OK)
        return std::nullopt;
    Statement statement;
    statement.m_statement.reset(handle);
    return statement;
}

void Statement::bindText(int parameter, std::optional<QByteArrayView> text) {
    // SQLite takes a null address for NULL.
    noteBinding(text ? sqlite3_bind_text64(m_statement.get(), parameter + 1,
                                           text->isEmpty() ? "" : text->data(),
                                           sqlite3_uint64(text->size()), SQLITE_STATIC, SQLITE_UTF8)
                     : sqlite3_bind_null(m_statement.get(), parameter + 1));
}

void Statement::bindInteger(int parameter, std::optional<std::int64_t> value) {
    noteBinding(value ? sqlite3_bind_int64(m_statement.get(), parameter + 1, *value)
                      : sqlite3_bind_null(m_statement.get(), parameter + 1));
}

void Statement::noteBinding(int code) {
    if (m_bindError == SQLITE_OK)
        m_bindError = code;
}

void Statement::reset() {
    sqlite3_reset(m_statement.get());
    m_bindError = SQLITE_OK;
}

std::optional<QByteArrayView> Statement::text(int column) {
    const auto* bytes = sqlite3_column_text(m_statement.get(), column);
    if (bytes == nullptr)
        return std::nullopt;
    return QByteArrayView(bytes, sqlite3_column_bytes(m_statement.get(), column));
}

std::optional<std::int64_t> Statement::integer(int column) {
    if (sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL)
        return std::nullopt;
    return sqlite3_column_int64(m_statement.get(), column);
}

StoreConnection::StoreConnection(const QString& folder, const QString& name)
    : m_path(QStringLiteral("%1/%2.sqlite").arg(folder, name))
    , m_backups(folder, name) {}

StoreConnection::~StoreConnection() {
    if (m_mark)
        findLoss();
}

std::variant<std::shared_ptr<StoreConnection>, StoreError>
StoreConnection::open(const QString& folder, const QString& name) {
    const QString path = QStringLiteral("%1/%2.sqlite").arg(folder, name);
    if (const auto error = makeFile(folder, path))
        return *error;
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return systemFailure(path, errno);
    // The file must not be opened here: closing it would drop the lock of an open connection.
    static std::map<std::pair<dev_t, ino_t>, std::weak_ptr<StoreConnection>> openConnections;
    auto& shared = openConnections[{status.st_dev, status.st_ino}];
    if (auto connection = shared.lock())
        return connection;

    const std::shared_ptr<StoreConnection> connection(new StoreConnection(folder, name));
    if (!S_ISREG(status.st_mode))
        return connection->unfit(QStringLiteral("it is no file"));
    if (::access(QFile::encodeName(path).constData(), R_OK | W_OK) != 0)
        return systemFailure(path, errno);
    auto lock = ProcessLock::take(folder, name);
    if (const int* code = std::get_if<int>(&lock))
        return *code == EWOULDBLOCK ? connection->unfit(QLatin1String(openElsewhere))
                                    : systemFailure(path, *code);
    connection->m_lock = std::get<std::shared_ptr<ProcessLock>>(std::move(lock));
    if (const auto error = connection->openDatabase())
        return *error;
    connection->noteFiles();
    shared = connection;
    return connection;
}

std::optional<StoreError> StoreConnection::openDatabase() {
    sqlite3* database = nullptr;
    const QByteArray fileName = QFile::encodeName(m_path);
    const int code = sqlite3_open_v2(
        fileName.constData(), &database,
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    m_database.reset(database);
    if (code != SQLITE_OK)
        return error(QLatin1String(opened));

    // Until the file has proved to be a store of this version, nothing may be written to it, not
    // even what closing it would carry over from its log.
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    execute(storePages);
    // What is deleted leaves zeros, so that nothing takes it for a row when the file is damaged.
    execute("PRAGMA secure_delete = ON");
    execute("PRAGMA locking_mode = EXCLUSIVE");
    if (const int locked = execute("BEGIN EXCLUSIVE"); (locked & 0xff) == SQLITE_BUSY)
        return unfit(QLatin1String(openElsewhere));
    else if (locked != SQLITE_OK)
        return error(QLatin1String(opened));
    const auto version = number("PRAGMA user_version");
    const auto tables = number("SELECT count(*) FROM sqlite_schema");
    if (!version || !tables)
        return error(QLatin1String(opened));
    if (*version > std::int64_t(migrations().size()))
        return unfit(QStringLiteral("a newer version of the program wrote it"));
    if (*version < 0 || (*version == 0 && *tables > 0))
        return unfit(QStringLiteral("it belongs to another program"));
    if (const auto damage = findDamage())
        return damage;
    if (execute("COMMIT") != SQLITE_OK)
        return error(QLatin1String(opened));
    if (const auto damage = findLostMark())
        return damage;

    if (auto failed = migrate(std::size_t(*version)))
        return failed;
    if (auto failed = prepareStatements())
        return failed;
    if (::chmod(fileName.constData(), S_IRUSR | S_IWUSR) != 0)
        return systemFailure(m_path, errno);
    // The lock was taken first, so that the log needs no shared memory.
    if (!keepsLog("PRAGMA journal_mode = WAL"))
        return error(QLatin1String(opened));
    execute("PRAGMA synchronous = FULL");
    // As many pages as the log may keep when it starts anew: syncing a file that grows takes
    // longer.
    execute("PRAGMA wal_autocheckpoint = 250");
    execute("PRAGMA journal_size_limit = 4194304");
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    return std::nullopt;
}

// Damage that only a later read came upon would look like a collection without quotes.
std::optional<StoreError> StoreConnection::findDamage() {
    auto check = Statement::prepare(m_database.get(), "PRAGMA quick_check(1)");
    if (!check || check->step() != SQLITE_ROW)
        return error(QLatin1String(opened));
    const auto finding = check->text(0).value_or(QByteArrayView());
    if (finding == QByteArrayView("ok"))
        return std::nullopt;
    return damaged(QString::fromUtf8(finding));
}

// SQLite takes a header with neither mark for one without a log, and starting the log would write
// over what is left of it.
std::optional<StoreError> StoreConnection::findLostMark() {
    if (keepsLog("PRAGMA journal_mode"))
        return std::nullopt;
    constexpr int placeOfMarks = 18;
    constexpr std::array<unsigned char, 2> noLog{1, 1}; // for who writes, and for who reads
    std::array<unsigned char, 2> marks{};
    sqlite3_file* file = nullptr;
    sqlite3_file_control(m_database.get(), nullptr, SQLITE_FCNTL_FILE_POINTER, &file);
    const int code = file->pMethods->xRead(file, marks.data(), int(marks.size()), placeOfMarks);
    if (code != SQLITE_OK)
        return failure(m_path, QLatin1String(opened), QString::fromUtf8(sqlite3_errstr(code)),
                       QStringLiteral(", sqlite = %1").arg(code));
    if (marks == noLog)
        return std::nullopt;
    return damaged(QStringLiteral("its header has lost the mark of its log"));
}

bool StoreConnection::keepsLog(const QByteArray& pragma) {
    auto mode = Statement::prepare(m_database.get(), pragma);
    // The change of the header is on disk, or has failed, with the last step.
    return mode && mode->step() == SQLITE_ROW && mode->text(0) == QByteArrayView("wal") &&
           mode->step() == SQLITE_DONE;
}

std::optional<StoreError> StoreConnection::migrate(std::size_t version) {
    for (; version < migrations().size(); ++version) {
        const auto script = QByteArray("BEGIN IMMEDIATE;") + migrations()[version] +
                            "PRAGMA user_version = " + QByteArray::number(int(version) + 1) +
                            "; COMMIT";
        if (execute(script.constData()) != SQLITE_OK)
            return error(QLatin1String(opened));
    }
    return std::nullopt;
}

std::optional<StoreError> StoreConnection::prepareStatements() {
    for (std::size_t i = 0; i < entityCount; ++i) {
        const Entity& entity = schema()[i];
        const QByteArray table = entity.table;
        QByteArray columns;
        QByteArray parameters;
        QByteArray assignments;
        for (const auto& attribute : entity.attributes) {
            columns += QByteArray(attribute.column) + ", ";
            parameters += "?, ";
            assignments +=
                (assignments.isEmpty() ? "" : ", ") + QByteArray(attribute.column) + " = ?";
        }
        const std::array<QByteArray, 5> texts{
            "SELECT " + columns + "id FROM " + table + " ORDER BY id",
            "SELECT id FROM " + table + " ORDER BY id",
            "INSERT INTO " + table + "(" + columns + "id) VALUES(" + parameters + "?)",
            "UPDATE " + table + " SET " + assignments + " WHERE id = ?",
            "DELETE FROM " + table + " WHERE id = ?"};
        auto& statements = m_statements[i];
        const std::array<Statement*, 5> targets{&statements.selectAll, &statements.selectIds,
                                                &statements.insert, &statements.update,
                                                &statements.remove};
        for (std::size_t j = 0; j < texts.size(); ++j) {
            auto statement = Statement::prepare(m_database.get(), texts[j]);
            if (!statement)
                return error(QLatin1String(opened));
            *targets[j] = std::move(*statement);
        }
        const auto last = number("SELECT coalesce(max(id), 0) FROM " + table);
        if (!last)
            return error(QLatin1String(opened));
        m_lastIds[i] = *last;
    }
    return std::nullopt;
}

std::optional<StoreError> StoreConnection::begin() {
    if (auto loss = findLoss())
        return loss;
    if (auto failed = replaceLostLog())
        return failed;
    backUp();
    return execute("BEGIN IMMEDIATE") == SQLITE_OK ? std::nullopt
                                                   : std::optional(rolledBackError());
}

std::optional<StoreError> StoreConnection::end(int code) {
    if (code != SQLITE_DONE || execute("COMMIT") != SQLITE_OK)
        return rolledBackError();
    noteFiles();
    noteContents();
    return std::nullopt;
}

StoreError StoreConnection::rolledBackError() {
    auto failed = error(QStringLiteral("saved"));
    rollBack();
    return failed;
}

void StoreConnection::rollBack() {
    if (sqlite3_get_autocommit(m_database.get()) == 0)
        execute("ROLLBACK");
    noteFiles();
}

void StoreConnection::backUp() {
    constexpr auto holdsAnything = "SELECT EXISTS(SELECT 1 FROM event) OR EXISTS(SELECT 1 FROM "
                                   "authors) OR EXISTS(SELECT 1 FROM sources) OR EXISTS(SELECT 1 "
                                   "FROM topics)";
    if (!m_today)
        return;
    const QString day = m_today();
    if (!m_backups.isDoneOn(day) && number(holdsAnything).value_or(0) != 0)
        m_backups.copyOnce(m_database.get(), day);
}

void StoreConnection::noteFiles() {
    const auto mark = markOf(m_path);
    if (mark != m_mark)
        m_contents.reset();
    m_mark = mark;
    m_logMark = markOf(log());
}

void StoreConnection::noteContents() {
    if (!m_contents && markOf(m_path) == m_mark)
        m_contents = contents();
}

// By SQLite's own handle: to close another would drop its lock.
std::optional<std::size_t> StoreConnection::contents() const {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(m_database.get(), nullptr, SQLITE_FCNTL_FILE_POINTER, &file);
    sqlite3_int64 size = 0;
    if (file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        return std::nullopt;
    QByteArray block(1 << 18, Qt::Uninitialized);
    std::size_t hash = 0;
    for (sqlite3_int64 place = 0; place < size; place += block.size()) {
        const auto part = std::min<sqlite3_int64>(block.size(), size - place);
        if (file->pMethods->xRead(file, block.data(), int(part), place) != SQLITE_OK)
            return std::nullopt;
        hash = qHashBits(block.constData(), std::size_t(part), hash);
    }
    return hash;
}

bool StoreConnection::hasLog() const {
    const auto mark = markOf(log());
    return !m_logMark || (mark && mark->isSameFile(*m_logMark));
}

// A log without a name would be lost with this process. What it holds goes into the store, and a
// new one begins.
std::optional<StoreError> StoreConnection::replaceLostLog() {
    if (hasLog())
        return std::nullopt;
    if (execute("PRAGMA journal_mode = DELETE") != SQLITE_OK ||
        !keepsLog("PRAGMA journal_mode = WAL"))
        return error(QStringLiteral("saved"));
    noteFiles();
    return std::nullopt;
}

std::optional<StoreError> StoreConnection::findLoss() {
    if (m_loss)
        return m_loss;
    const auto mark = markOf(m_path);
    if (mark == m_mark)
        return std::nullopt;
    const bool isSameFile = mark && m_mark && mark->isSameFile(*m_mark);
    // Another time on it is nobody's harm.
    if (isSameFile && mark->size == m_mark->size && m_contents && contents() == m_contents) {
        m_mark = mark;
        return std::nullopt;
    }
    // From now on nothing is written to the file at the path, nor carried over when this closes.
    sqlite3_db_config(m_database.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    QString reason = QStringLiteral("another program has moved, replaced or deleted it");
    // A file that was written over is no longer there to be copied.
    if (!isSameFile) {
        const QString day = QDate::currentDate().toString(Qt::ISODate);
        if (const auto copy = m_backups.copyOfLost(m_database.get(), m_today ? m_today() : day))
            reason += QStringLiteral("; what it held is in \"%1\"").arg(*copy);
    }
    // The log belongs to what was there, and would be taken for one of what is there now.
    if (m_logMark && hasLog())
        QFile::remove(log());
    m_loss = failure(m_path, QStringLiteral("saved"), reason, QString());
    m_loss->cause = StoreError::Cause::Loss;
    return m_loss;
}

StoreError StoreConnection::error(const QString& verb) const {
    const int code = sqlite3_errcode(m_database.get());
    auto result = failure(m_path, verb, QString::fromUtf8(sqlite3_errmsg(m_database.get())),
                          QStringLiteral(", sqlite = %1").arg(code));
    if ((code & 0xff) == SQLITE_CORRUPT || code == SQLITE_NOTADB)
        result.cause = StoreError::Cause::Damage;
    else if ((code & 0xff) == SQLITE_FULL)
        result.cause = StoreError::Cause::Space;
    return result;
}

StoreError StoreConnection::damaged(const QString& finding) const {
    auto result = unfit(QStringLiteral("it is damaged (%1)").arg(finding));
    result.cause = StoreError::Cause::Damage;
    return result;
}

StoreError StoreConnection::unfit(const QString& reason) const {
    return failure(m_path, QLatin1String(opened), reason, QString());
}

std::optional<std::int64_t> StoreConnection::number(const QByteArray& sql) {
    auto statement = Statement::prepare(m_database.get(), sql);
    if (!statement || statement->step() != SQLITE_ROW)
        return std::nullopt;
    return statement->integer(0);
}

int StoreConnection::execute(const char* sql) {
    return sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr);
}
