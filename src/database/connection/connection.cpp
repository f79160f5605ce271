#include "database/connection/connection.h"

#include "base/runtimeerror.h"
#include "database/connection/archivefile.h"
#include "database/connection/connectiontext.h"
#include "database/connection/opengroups.h"
#include "database/connection/sqlitecheck.h"
#include "database/connection/sqlitestatement.h"
#include "database/sql/insertliteral.h"
#include "platform/drives.h"
#include "posix/descriptor.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

QByteArray resolvedPath(const QByteArray& path)
{
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.constData(), nullptr), std::free);
    return real ? QByteArray(real.get()) : path;
}

constexpr int kSteps = 2000; // of SQLite's machine: well below a millisecond of the usual ones

int asked(void* goesOn)
{
    return (*static_cast<std::function<bool()>*>(goesOn))() ? 0 : 1;
}

// Resets a statement that is kept for the next run.
class ResetAfterRun {
public:
    explicit ResetAfterRun(sqlite3_stmt* statement) : m_statement(statement) {}
    ~ResetAfterRun() { sqlite3_reset(m_statement); } // gives once more the code of the last step
    ResetAfterRun(const ResetAfterRun&) = delete;
    ResetAfterRun& operator=(const ResetAfterRun&) = delete;

private:
    sqlite3_stmt* m_statement;
};

QByteArray withParameters(const QByteArray& head, std::size_t count)
{
    return head + QByteArray("?,").repeated(static_cast<qsizetype>(count)).chopped(1) + ')';
}

// SQLite stores a group by deleting its journal, and then has the directory put on the disk. It is false when
// only the latter failed: the group is stored then, whatever SQLite says.
bool commitAndSync(sqlite3* database)
{
    try {
        runStatement(database, "COMMIT");
        return true;
    } catch (const RunTimeError&) {
        if (sqlite3_extended_errcode(database) != SQLITE_IOERR_DIR_FSYNC)
            throw;
        return false;
    }
}

// The directory is synced once more, as a disk may have had but one bad moment. A file system that cannot
// sync directories at all says EINVAL or the like; nothing better is to be had there.
void syncDirectoryOf(const QByteArray& file)
{
    const QByteArray real = resolvedPath(file);
    const Descriptor directory(
        open(real.left(real.lastIndexOf('/') + 1).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!directory || fsync(directory.get()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS)
        return;
    throw RunTimeError(kConnectionError,
                       QStringLiteral("The change is stored in the archive, but the disk did not confirm it: "
                                      "a power cut could still undo it (%1)")
                           .arg(QString::fromStdString(std::generic_category().message(errno))))
        .withAdvice(QStringLiteral("Make a backup on another disk: this one may be failing."));
}

} // namespace

class Connection::Sqlite {
public:
    explicit Sqlite(Drives& drives) : m_drives(drives) {}

    void open(const QString& connectionText);
    void close();
    bool isOpen() const { return m_database != nullptr; }
    int fileNumber() const { return m_fileNumber; }
    bool isGroupOpen() const { return m_database && sqlite3_get_autocommit(m_database.get()) == 0; }
    sqlite3* database();

    void setPatience(std::chrono::milliseconds patience) { m_patience = patience; }
    void setGoesOn(std::function<bool()> goesOn);
    void execute(const QString& statement);
    void executeLiterals(const QString& statement);
    void runFixed(const char* statement);
    void begin();
    void commit();
    void commitForOthers();
    void confirm();
    void runTransaction(const std::function<void(sqlite3*)>& work);

private:
    template <typename Run>
    void tellingLostGroup(Run&& run);
    void openFile();
    void letAsk();
    bool isFileReplaced() const;
    bool insertLiterals(QByteArrayView statement);
    bool prepareInsert();
    void bindAndRun();

    Drives& m_drives;
    QByteArray m_path;
    int m_fileNumber = 0;
    std::chrono::milliseconds m_patience = kUsualPatience;
    bool m_confirmed = true; // what was committed last would outlast a power cut
    std::function<bool()> m_goesOn;
    DatabasePtr m_database;
    StatementBytes m_bytes;
    InsertLiteral m_literal;
    StatementPtr m_insert; // for the head and the number of values below
    QByteArray m_insertHead;
    std::size_t m_insertCount = 0;
};

sqlite3* Connection::Sqlite::database()
{
    if (!m_database)
        throw RunTimeError(kObjectClosed, QStringLiteral("The connection to the archive is closed."));
    if (!isGroupOpen() && isFileReplaced())
        openFile();
    return m_database.get();
}

// A restore puts another file in the place of the one that is open, which lives on without a name until it is
// closed.
bool Connection::Sqlite::isFileReplaced() const
{
    int moved = 0;
    sqlite3_file_control(m_database.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved != 0;
}

// The one that is open stays when this fails.
void Connection::Sqlite::openFile()
{
    DatabasePtr database = openArchiveFile(m_path, m_patience);
    m_insert.reset();
    m_database = std::move(database);
    ++m_fileNumber;
    letAsk();
}

void Connection::Sqlite::letAsk()
{
    if (m_database)
        sqlite3_progress_handler(m_database.get(), kSteps, m_goesOn ? asked : nullptr, &m_goesOn);
}

void Connection::Sqlite::setGoesOn(std::function<bool()> goesOn)
{
    m_goesOn = std::move(goesOn);
    letAsk();
}

void Connection::Sqlite::open(const QString& connectionText)
{
    if (m_database)
        throw RunTimeError(kObjectOpen, QStringLiteral("The connection to the archive is open already."));
    const QString source = parseConnectionText(connectionText).dataSource;
    const std::optional<QByteArray> path = m_drives.machinePath(source);
    if (!path)
        throw RunTimeError(
            kConnectionError,
            QStringLiteral("The archive cannot be opened: its drive is not there (%1)").arg(source));
    m_path = *path;
    openFile();
}

void Connection::Sqlite::close()
{
    if (!m_database)
        return;
    m_insert.reset();
    struct Release {
        DatabasePtr& database;
        ~Release() { database.reset(); } // a group that could not be committed is undone
    } const release{m_database};
    if (isGroupOpen())
        commit();
}

// SQLite undoes a whole transaction when it cannot write the file any more; what it says does not tell that.
template <typename Run>
void Connection::Sqlite::tellingLostGroup(Run&& run)
{
    const bool grouped = isGroupOpen();
    try {
        run();
    } catch (const RunTimeError& error) {
        if (!grouped || isGroupOpen())
            throw;
        throw RunTimeError(error.number(),
                           error.text() + QStringLiteral("; what ran since the last commit is undone"))
            .withAdvice(error.advice());
    }
}

void Connection::Sqlite::runFixed(const char* statement)
{
    sqlite3* const target = database();
    tellingLostGroup([&] { runStatement(target, statement); });
}

// The lock that was waited for may be one on a file that has just been replaced.
void Connection::Sqlite::begin()
{
    for (runFixed("BEGIN IMMEDIATE"); isFileReplaced(); runFixed("BEGIN IMMEDIATE"))
        runFixed("ROLLBACK");
}

void Connection::Sqlite::commit()
{
    sqlite3* const target = database();
    tellingLostGroup([&] { m_confirmed = commitAndSync(target); });
}

void Connection::Sqlite::commitForOthers()
{
    struct Patience {
        sqlite3* database;
        std::chrono::milliseconds own;
        ~Patience() { sqlite3_busy_timeout(database, static_cast<int>(own.count())); }
    } const patience{database(), m_patience};
    sqlite3_busy_timeout(patience.database, static_cast<int>(kUsualPatience.count()));
    commit();
}

void Connection::Sqlite::confirm()
{
    if (!std::exchange(m_confirmed, true))
        syncDirectoryOf(m_path);
}

void Connection::Sqlite::runTransaction(const std::function<void(sqlite3*)>& work)
{
    if (isGroupOpen())
        return work(database());
    begin();
    try {
        work(m_database.get());
        commit();
    } catch (...) {
        resumeNext([this] { runFixed("ROLLBACK"); });
        throw;
    }
}

void Connection::Sqlite::execute(const QString& statement)
{
    sqlite3* const target = database();
    const QByteArrayView bytes = m_bytes.of(statement);
    tellingLostGroup([&] {
        if (!insertLiterals(bytes))
            runToEnd(target, prepareStatement(target, bytes).get());
    });
}

void Connection::Sqlite::executeLiterals(const QString& statement)
{
    sqlite3* const target = database();
    const QByteArrayView bytes = m_bytes.of(statement);
    if (!m_literal.read(bytes) || m_literal.holdsQuote())
        throwStatementError(QStringLiteral("it holds something other than plain texts"));
    tellingLostGroup([&] {
        // What cannot be prepared for its like gives the right error as it is written.
        prepareInsert() ? bindAndRun() : runToEnd(target, prepareStatement(target, bytes).get());
    });
}

// Parsing takes four fifths of the time of an insertion, so a statement that holds nothing but string
// literals is run by one prepared for all its like. It is false when that cannot be done: nothing has run
// then.
bool Connection::Sqlite::insertLiterals(QByteArrayView statement)
{
    if (!m_literal.read(statement) || !prepareInsert())
        return false;
    bindAndRun();
    return true;
}

bool Connection::Sqlite::prepareInsert()
{
    const std::size_t count = m_literal.values().size();
    if (m_insert && m_insertCount == count && m_insertHead == m_literal.head())
        return true;
    m_insert.reset();
    try {
        m_insert = preparePersistent(m_database.get(), withParameters(m_literal.head(), count));
    } catch (const RunTimeError&) { // the statement as it was written gives the right error
        return false;
    }
    m_insertCount = count;
    m_insertHead = m_literal.head();
    return true;
}

void Connection::Sqlite::bindAndRun()
{
    const ResetAfterRun reset(m_insert.get());
    int parameter = 0;
    for (const QByteArrayView value : m_literal.values())
        checked(m_database.get(), sqlite3_bind_text(m_insert.get(), ++parameter, value.data(),
                                                    static_cast<int>(value.size()), SQLITE_STATIC));
    runToEnd(m_database.get(), m_insert.get());
}

Connection::Connection(Drives& drives, OpenGroups* groups)
    : m_sqlite(std::make_unique<Sqlite>(drives)), m_groups(groups)
{
}

Connection::~Connection()
{
    try {
        close();
    } catch (const RunTimeError&) { // nobody is left to be told
    }
}

void Connection::setCursorLocation(CursorLocation) {}

void Connection::setPatience(std::chrono::milliseconds patience)
{
    m_sqlite->setPatience(patience);
}

void Connection::open(const QString& connectionText, const QString&, const QString&)
{
    m_sqlite->open(connectionText);
}

void Connection::setGoesOn(std::function<bool()> goesOn)
{
    m_sqlite->setGoesOn(std::move(goesOn));
}

void Connection::execute(const QString& statement)
{
    runInGroup([&] { m_sqlite->execute(statement); });
}

void Connection::executeLiterals(const QString& statement)
{
    runInGroup([&] { m_sqlite->executeLiterals(statement); });
}

void Connection::runInGroup(const std::function<void()>& work)
{
    if (m_grouped && !m_sqlite->isGroupOpen())
        beginNextGroup();
    else if (!m_grouped)
        suspendOthers();
    try {
        work();
    } catch (const RunTimeError&) {
        setGrouped(m_grouped && m_sqlite->isGroupOpen());
        throw;
    }
}

void Connection::close()
{
    setGrouped(false);
    m_sqlite->close();
    m_sqlite->confirm();
}

void Connection::confirm()
{
    m_sqlite->confirm();
}

bool Connection::isOpen() const
{
    return m_sqlite->isOpen();
}

void Connection::beginGroup()
{
    if (!m_grouped)
        suspendOthers();
    m_sqlite->begin();
    m_groupFile = m_sqlite->fileNumber();
    setGrouped(true);
}

void Connection::commitGroup()
{
    if (!m_grouped || m_sqlite->isGroupOpen())
        m_sqlite->commit();
    beginNextGroup();
    confirm();
}

// What was inserted so far went to the file that is gone: that is told, which is better than going on with
// half of it.
void Connection::beginNextGroup()
{
    m_sqlite->begin();
    if (m_sqlite->fileNumber() == m_groupFile)
        return;
    m_sqlite->runFixed("ROLLBACK");
    throw RunTimeError(kConnectionError,
                       QStringLiteral("Another file took the archive's place in the meantime"));
}

void Connection::endGroup()
{
    if (!m_grouped || m_sqlite->isGroupOpen())
        m_sqlite->commit();
    setGrouped(false);
    confirm();
}

bool Connection::suspendGroup()
{
    suspendBy([this] { m_sqlite->commit(); });
    return m_grouped;
}

void Connection::suspendGroupForOthers()
{
    suspendBy([this] { m_sqlite->commitForOthers(); });
}

void Connection::suspendBy(const std::function<void()>& commit)
{
    if (!m_sqlite->isGroupOpen())
        return;
    try {
        commit();
    } catch (const RunTimeError&) {
        setGrouped(m_grouped && m_sqlite->isGroupOpen());
        throw;
    }
}

void Connection::resumeGroup()
{
    if (m_grouped && !m_sqlite->isGroupOpen())
        resumeNext([this] { beginNextGroup(); });
}

void Connection::runTransaction(const std::function<void(sqlite3*)>& work)
{
    if (!m_grouped)
        suspendOthers();
    m_sqlite->runTransaction(work);
}

void Connection::suspendOthers()
{
    if (m_groups)
        m_groups->suspendAll(this);
}

void Connection::setGrouped(bool grouped)
{
    if (m_groups && grouped != m_grouped)
        grouped ? m_groups->add(*this) : m_groups->remove(*this);
    m_grouped = grouped;
}

sqlite3* Connection::handle() const
{
    return m_sqlite->database();
}

int Connection::fileNumber() const
{
    return m_sqlite->fileNumber();
}
