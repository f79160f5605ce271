// Connects to an archive file by a connection text and sends statements to it. The database's library is
// SQLite; texts are compared by a rule of our own that ignores case for every letter (collation NOCASE).
//
// A connection text is "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=<path>;", keys without regard to case,
// the path with a drive letter; other keys are accepted and ignored. The file must exist: nothing is created.
#pragma once

#include "database/connection/archivelocked.h"
#include "database/connection/opengroups.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

class Drives;
struct sqlite3;

enum class CursorLocation { Server = 2, Client = 3 };

class Connection : public OpenGroup {
public:
    // With groups it is one of several connections of this process to the same archive: it lets the others'
    // groups become durable before it writes, and they its own.
    explicit Connection(Drives& drives, OpenGroups* groups = nullptr);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // All throw RunTimeError: kConnectionError or kStatementError with SQLite's text, kObjectOpen for a
    // second open, kObjectClosed for what needs an open connection. User and password are accepted and
    // ignored.
    void setCursorLocation(CursorLocation location); // no difference: rows are always fetched whole
    void open(const QString& connectionText, const QString& user = {}, const QString& password = {});
    // Another program's lock is waited for so long before ArchiveLocked is thrown, a second unless it is set;
    // this is called before the connection is opened. The windows stand still meanwhile.
    void setPatience(std::chrono::milliseconds patience);
    // Runs one statement; a text that holds a second one, or a null character, is refused before anything of
    // it runs. Rows that it returns are dropped.
    void execute(const QString& statement);
    // Does the same for one of the form "INSERT INTO name (columns) VALUES ('...', '...');" with nothing but
    // string literals, none of which holds a quote: any other is kStatementError, and nothing of it runs.
    void executeLiterals(const QString& statement);
    void close(); // a group that is open is made durable first; may throw, and is closed all the same
    bool isOpen() const;

    // Statements between beginGroup and endGroup are made durable together. A statement that fails undoes
    // only itself; only when the file could not be written (disk full) may SQLite have to undo the whole
    // group, which is then over and the error says so: what was committed before stays. While a group is open
    // other connections cannot write; commitGroup makes what ran so far durable and goes on with a new group,
    // endGroup makes it durable and ends. When a commit finds the file locked by a reader the group stays
    // open and can be committed again. When another file took the archive's place between two groups (another
    // program restored it) that is an error, for each statement until the connection is closed. A group
    // within a group, or the end of none, is kStatementError.
    void beginGroup();
    void commitGroup();
    void endGroup();
    // Makes the group that is open durable and lets go of the file; the next statement, or resumeGroup,
    // begins a new one. They do nothing without a group. It is false when there is none, be it that SQLite
    // had to undo it.
    bool suspendGroup();
    // Does so with the usual patience: who is not the group's owner does not try again.
    void suspendGroupForOthers() override;
    void resumeGroup() override; // tries; throws nothing

    // Throws kConnectionError when what was committed last is stored, but the disk did not confirm it, so
    // that a power cut could undo it; once for each such commit. commitGroup, endGroup and close ask it
    // themselves.
    void confirm();

    // From now on statements ask every few milliseconds whether to go on; false ends the one that runs with
    // an error. Without one nothing is asked. What is asked must not use this connection, and throws nothing.
    // It outlives the open file: one that takes the archive's place asks as well.
    void setGoesOn(std::function<bool()> goesOn);

    // These two serve Recordset. Both throw kObjectClosed; a file that took the archive's place in the
    // meantime (a restore) is the one that is read and written from then on.
    sqlite3* handle() const;
    int fileNumber() const; // another one after another file took the archive's place
    // The work's statements happen all or not at all; what it throws is passed on. The caller asks confirm()
    // when it has noted what was stored.
    void runTransaction(const std::function<void(sqlite3*)>& work);

private:
    class Sqlite;

    void suspendOthers();
    void setGrouped(bool grouped);
    void beginNextGroup();
    void runInGroup(const std::function<void()>& work);
    void suspendBy(const std::function<void()>& commit);

    std::unique_ptr<Sqlite> m_sqlite;
    OpenGroups* m_groups;
    int m_groupFile = 0;    // in which the group was begun
    bool m_grouped = false; // also between a suspended group and the next statement
};
