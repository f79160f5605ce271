// Names without regard to case: how they compare, and how an entry of a directory is found by one.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <sys/stat.h>

// Each character for itself, so that the length stays; names that are equal without regard to case become
// equal.
QString foldedName(QStringView name);

// Remembers the names of the directories that were asked for, until they change.
class FoldedNames {
public:
    // The entry of a directory (its machine's path) that differs from the name in case at most, of several
    // the first in the order of their bytes; empty when there is none or the directory cannot be read.
    QByteArray find(const QByteArray& directory, const QByteArray& name);

private:
    struct Listing {
        dev_t device = 0;
        ino_t node = 0;
        timespec modified{};
        bool settled = false; // a later change is sure to show in the time of modification
        QHash<QString, QByteArray> names;
    };

    Listing& listing(const QByteArray& directory, const struct stat& status);
    Listing& read(const QByteArray& directory);

    QHash<QByteArray, Listing> m_listings;
    qsizetype m_held = 0; // names in all of them
};
