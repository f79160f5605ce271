// Compares names without regard to case, and finds an entry of a directory by one.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <sys/stat.h>

// Changes each character for itself, so that the length stays; names that are equal without regard to case
// become equal.
QString foldedName(QStringView name);

// Remembers the names of the directories that were asked for, until they change.
class CaselessNames {
public:
    // Finds the entry of a directory (its machine's path) that differs from the name in case at most, else
    // one that also differs in whether accented letters are one character or letter and accent; of several
    // the first in the order of their bytes. It is empty when there is none or the directory cannot be read.
    QByteArray find(const QByteArray& directory, const QByteArray& name);

private:
    struct Listing {
        dev_t device = 0;
        ino_t node = 0;
        timespec modified{};
        bool settled = false; // a later change is sure to show in the time of modification
        QHash<QString, QByteArray> names;
        QHash<QString, QByteArray> decomposed; // by their composed form, those that are not written in it

        void add(const QByteArray& name);
        QByteArray find(const QString& name) const;
        qsizetype size() const { return names.size() + decomposed.size(); }
    };

    Listing& listing(const QByteArray& directory, const struct stat& status);
    Listing& read(const QByteArray& directory);

    QHash<QByteArray, Listing> m_listings;
    qsizetype m_held = 0; // names in all of them
};
