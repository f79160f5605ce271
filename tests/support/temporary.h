// Makes a directory of its own for one test, with its files; it goes when the test ends.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

class Temporary {
public:
    Temporary();
    ~Temporary();
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    QByteArray path() const; // absolute, links resolved
    QByteArray at(const QByteArray& relative) const { return path() + '/' + relative; }

    // Makes the directories on the way too; names are bytes.
    void makeDirectory(const QByteArray& relative) const;
    void write(const QByteArray& relative, const QByteArray& content = {}) const;
    QByteArray read(const QByteArray& relative) const;
    bool exists(const QByteArray& relative) const;

private:
    QTemporaryDir m_directory;
};
