// Keeps open files by number, as the language of old had them; positions count from 1. The archive and the
// player have a table each, so that "all open files" of one never means a file of the other.
#pragma once

#include <QByteArray>
#include <QString>

class FileNumbers {
public:
    virtual ~FileNumbers() = default;

    // Returns the lowest number from 1 to 511 that is not in use; throws RunTimeError TooManyFiles.
    virtual int freeFile() = 0;

    // Each throws RunTimeError BadFileNumber, FileAlreadyOpen (the number is in use), FileNotFound, DiskFull,
    // PermissionDenied, PathFileAccess or PathNotFound.
    virtual void openBinary(int number, const QString& path) = 0; // for reading; must exist, regular file
    virtual void openOutput(int number, const QString& path) = 0; // text, replaces what was there
    virtual void openInput(int number, const QString& path) = 0;  // text

    // Tells the length in bytes, of a file opened for reading the one that it had then.
    virtual qint64 length(int number) = 0;
    // Returns bytes from a 1-based position, and fewer, or none, where the file ends before.
    virtual QByteArray get(int number, qint64 position, int count) = 0;
    // Writes text as UTF-8, buffered; a failing disk is told at the latest by close().
    virtual void print(int number, QStringView text) = 0;
    virtual bool endOfFile(int number) = 0; // throws DeviceIoError as lineView does
    // Returns a line without its end (CR LF, LF or CR); throws InputPastEnd at the end, DeviceIoError when
    // that comes before the length that the file had when it was opened, OutOfStringSpace for a line of more
    // than 16 MB. The bytes last until the next call for that number.
    virtual QByteArrayView lineView(int number) = 0;
    QByteArray lineInput(int number) { return lineView(number).toByteArray(); }

    virtual void close(int number) = 0; // a number that is not open is ignored
    virtual void closeAll() = 0;
};
