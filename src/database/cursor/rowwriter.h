// Writes exactly one row of the table MP3: adds it, changes it, deletes it.
#pragma once

#include <QByteArray>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

class Connection;

// Describes a row as it was read.
struct KnownRow {
    std::int64_t number;
    int fileNumber;    // of the file it was read from; in another one only the values tell the row
    QStringList names; // of the columns that were read
    std::vector<std::optional<QByteArray>> values; // UTF-8; nothing stands for a null
    // These columns were not read for show; they count because numbers are given again to other rows, which
    // may be equal in what is shown.
    QStringList restNames{};
    std::size_t rest = 0; // as restOf (database/cursor/resultset.h) tells it
};

struct NewValue {
    QString name;
    QByteArray value; // UTF-8
};

// Describes a row as the archive holds it.
struct StoredRow {
    std::int64_t number;
    std::vector<std::optional<QByteArray>> values; // as in KnownRow
    std::size_t rest;
};

class RowWriter {
public:
    explicit RowWriter(Connection& connection) : m_connection(connection) {}

    // All throw RunTimeError as Connection does. The row is the one with that number and those values; when
    // another file took the archive's place, the only one with those values, or one of several that are equal
    // in every field. Any other case is kRowNotFound, and nothing is changed.
    //
    // A new row holds in the columns that are not given what their defaults say. A field of the archive
    // record that has none gets the blank that an import stores for nothing: a search asks for every field,
    // and no text is like a null. The stored row is returned with the columns of both lists of names.
    StoredRow insert(const std::vector<NewValue>& values, const QStringList& names,
                     const QStringList& restNames);
    std::int64_t update(const KnownRow& row, const std::vector<NewValue>& values);
    void remove(const KnownRow& row);

private:
    Connection& m_connection;
};
