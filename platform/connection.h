// A connection to an archive file, opened by a connection text, and the statements sent through it. The engine is
// SQLite; texts are compared by a rule of our own that ignores case for every letter (collation NOCASE).
//
// Connection text: "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=<path>;", keys without regard to case, the path
// with a drive letter; other keys are accepted and ignored. The file must exist: nothing is created.
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

    // All throw RunTimeError with the engine's number (kConnectionError, kStatementError) and its text.
    void setCursorLocation(CursorLocation location);
    void open(const QString& connectionText, const QString& user = {}, const QString& password = {});
    // One statement; a text that holds a second one is refused before anything of it runs.
    void execute(const QString& statement);
    void close(); // a group that is open is made durable first; may throw, and is closed all the same
    bool isOpen() const;

    // Statements between beginGroup and endGroup are made durable together. A statement that fails undoes only
    // itself. While a group is open other connections cannot write; commitGroup makes what ran so far durable and
    // goes on with a new group, endGroup makes it durable and ends.
    void beginGroup();
    void commitGroup();
    void endGroup();

    sqlite3* handle() const; // for Recordset

private:
    class Engine;
    std::unique_ptr<Engine> m_engine;
};

inline constexpr int kConnectionError = -2147467259; // cannot be opened, is no archive, is locked, disk full
inline constexpr int kStatementError = -2147217900;  // the text is no valid statement
