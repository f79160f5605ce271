// A connection to an archive file, opened by a connection text, and the statements sent through it. The
// engine is SQLite; texts are compared by a rule of our own that ignores case for every letter (collation
// NOCASE).
//
// Connection text: "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=<path>;", keys without regard to case, the
// path with a drive letter; other keys are accepted and ignored. The file must exist: nothing is created.
#pragma once

#include <QString>

#include <memory>

class Drives;
struct sqlite3;

enum class CursorLocation { Server = 2, Client = 3 };

class Connection {
public:
    explicit Connection(Drives& drives);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // All throw RunTimeError: kConnectionError or kStatementError with the engine's text, kObjectOpen for a
    // second open, kObjectClosed for what needs an open connection. User and password are accepted and
    // ignored.
    void setCursorLocation(CursorLocation location); // no difference: rows are always fetched whole
    void open(const QString& connectionText, const QString& user = {}, const QString& password = {});
    // One statement; a text that holds a second one, or a null character, is refused before anything of it
    // runs. Rows that it returns are dropped. Another connection's lock is waited for, about two seconds.
    void execute(const QString& statement);
    void close(); // a group that is open is made durable first; may throw, and is closed all the same
    bool isOpen() const;

    // Statements between beginGroup and endGroup are made durable together. A statement that fails undoes
    // only itself; only when the file could not be written (disk full) may the engine have to undo the whole
    // group, which is then over and the error says so: what was committed before stays. While a group is open
    // other connections cannot write; commitGroup makes what ran so far durable and goes on with a new group,
    // endGroup makes it durable and ends. When a commit finds the file locked by a reader the group stays
    // open and can be committed again. A group within a group, or the end of none, is kStatementError.
    void beginGroup();
    void commitGroup();
    void endGroup();

    sqlite3* handle() const; // for Recordset; throws kObjectClosed

private:
    class Engine;
    std::unique_ptr<Engine> m_engine;
};

inline constexpr int kConnectionError = -2147467259; // cannot be opened, is no archive, is locked, disk full
inline constexpr int kStatementError = -2147217900;  // the text is no valid statement
inline constexpr int kObjectClosed = 3704;
inline constexpr int kObjectOpen = 3705;
