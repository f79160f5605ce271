// The playlist holds entries of a display name and a full path (drive letter, backslashes), which of them is
// selected and which is the current one. It knows no window and no disk; whoever shows it is told of its
// changes.
#pragma once

#include <QString>

#include <functional>
#include <vector>

struct PlaylistEntry {
    QString name;
    QString path; // empty when the file was not found
    bool operator==(const PlaylistEntry&) const = default;
};

inline constexpr int kMostEntries = 32766; // the current entry's number and the next one's fit in 16 bits

class Playlist {
public:
    // Is called after each change of the entries, the selection, the current entry or the name; while a Batch
    // lives entries that are added are told once, when it ends.
    void setObserver(std::function<void()> observer) { m_observer = std::move(observer); }

    class Batch {
    public:
        explicit Batch(Playlist& list) : m_list(list) { ++m_list.m_batches; }
        ~Batch() { m_list.endBatch(); }
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        Playlist& m_list;
    };

    const std::vector<PlaylistEntry>& entries() const { return m_entries; }
    int count() const { return static_cast<int>(m_entries.size()); }
    QString entryCountText() const; // " 12"
    bool isFull() const { return count() >= kMostEntries; }
    // Counts what a person does to the entries; it is no such change that an entry's file was not found.
    int changes() const { return m_changes; }

    int selected() const { return m_selected; } // -1: none
    void select(int index);                     // no entry's index: none

    qint16 CurTrack() const { return m_curTrack; } // 1-based; may name no entry
    void setCurTrack(int track);                   // throws RunTimeError Overflow beyond 16 bits

    const QString& name() const { return m_name; } // as shown
    const QString& file() const { return m_file; } // empty: none
    void setFile(const QString& name, const QString& file);

    void expect(int more);                // so many entries will be added: makes room at once
    bool add(QString name, QString path); // false when the list is full: nothing happens
    // The selection goes to the entry that follows, or to the new last one. Nothing happens for no entry's
    // index.
    void remove(int index);
    void PlMoveEntry(int direction); // the selected entry, +1 or -1
    void PlClear();
    // The path goes, the name says so.
    void markNotFound(int index);

private:
    bool isEntry(int index) const { return index >= 0 && index < count(); }
    PlaylistEntry& at(int index) { return m_entries[static_cast<std::size_t>(index)]; }
    void tell();
    void endBatch();

    std::vector<PlaylistEntry> m_entries;
    int m_selected = -1;
    qint16 m_curTrack = 1;
    QString m_name = QStringLiteral("untitled");
    QString m_file;
    std::function<void()> m_observer;
    int m_changes = 0;
    int m_batches = 0;
    bool m_untold = false;
};
