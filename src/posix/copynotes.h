// Keeps notes of the files that this user's programs are just making, so that what a killed one left
// unfinished can be removed later. A file that nobody noted is never touched.
#pragma once

#include "posix/descriptor.h"
#include "posix/volumeidentity.h"

#include <QByteArray>

class CopyNotes {
public:
    // Takes the directory for the notes, which is made when one is needed.
    explicit CopyNotes(QByteArray directory, VolumeIdentity volumes = {})
        : m_directory(std::move(directory)), m_volumes(std::move(volumes))
    {
    }

    // A note lasts from here to its end, held by a lock that goes with the program whatever ends it. Where
    // none can be kept, such as in a home that cannot be written, there is none: a copy goes on without.
    class Note {
    public:
        Note(const CopyNotes& notes, const QByteArray& file);
        ~Note();
        Note(const Note&) = delete;
        Note& operator=(const Note&) = delete;

    private:
        void make();

        Descriptor m_directory;
        QByteArray m_name;
        Descriptor m_lock;
    };

    const QByteArray& directory() const { return m_directory; }
    // Returns what a note says: the file, and its volume behind a null, which no path holds.
    QByteArray textFor(const QByteArray& file) const;

    // Makes a name for such a file, in a directory with a slash behind it; nobody else has a file of that
    // name.
    static QByteArray freshName(const QByteArray& directory);

    // Removes the noted files of programs that no longer run. A note whose file lies where nothing can be
    // reached at the moment, on a disk that is not there, stays for another time, also when another disk is
    // there in its place. What is no note, whoever put it there, stays. It never fails.
    void removeLeftOvers() const;
    void removeLeftOversInBackground() const; // a disk may take its time

private:
    void settle(int directory, const char* name) const;
    bool remove(const QByteArray& note) const;

    QByteArray m_directory;
    VolumeIdentity m_volumes;
};
