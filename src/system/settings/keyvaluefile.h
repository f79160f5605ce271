// Keeps a text file of settings, sections "[name]" with lines "key=value" in UTF-8, readable and editable by
// hand.
//
// Names of sections and keys ignore case; the spelling first written stays. Of a key that stands twice in a
// section the last counts. Lines that are neither (comments with "#" or ";", damage, bytes that are no UTF-8)
// stay as they are. The form of a line is told in system/settings/keyvaluelines.h.
//
// It is not for use from several threads; several processes may use the same file at once.
#pragma once

#include "posix/atomicfile.h"
#include "system/settings/keyvaluelines.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <set>
#include <utility>

class KeyValueFile {
public:
    explicit KeyValueFile(
        QByteArray file); // an absolute path of the machine; need not exist, nothing is made yet

    // Gives nothing when the file, the section or the key is missing or the file cannot be read.
    std::optional<QString> value(const QString& section, const QString& key);
    QStringList keys(const QString& section); // in the order of the file, each once
    // Is false when the last time that somebody asked for the value, or for the section's keys, the file
    // could not be read, and what it holds is not known.
    bool wasRead(const QString& section, const QString& key) const;

    // They are durable when they return true, and false when the file cannot be read, replaced or (within
    // about a second) locked, or does not allow writing; it then stays as it is. What was not read is not
    // written either: what somebody makes of a value that he did not get must not take its place. A value
    // that is there already, or is already gone, is true.
    bool set(const QString& section, const QString& key, const QString& value);
    bool remove(const QString& section, const QString& key);

private:
    using Edit = std::function<QByteArray(const KeyValueLines&)>;

    using Name = std::pair<QString, QString>; // section and key in folded case; no key: all of the section

    const KeyValueLines* current();
    const KeyValueLines* asked(const QString& section, const QString& key);
    bool load();
    bool change(const Edit& edit);

    QByteArray m_file;
    KeyValueLines m_lines;
    std::optional<FileStamp> m_stamp; // of what m_lines holds; nothing: read again
    std::set<Name> m_unread;          // asked for in vain
    bool m_lockWasHeld = false;
};
