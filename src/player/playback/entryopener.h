// Opens an entry of the playlist: finds its file, tells its kind and its facts, and opens it on a device.
// Times are milliseconds.
#pragma once

#include "player/playback/mediakind.h"
#include "player/playback/tagrecord.h"

#include <array>
#include <chrono>
#include <optional>

class CodePage;
class FileNumbers;
class MediaElement;
class PlaybackView;
class Playlist;
struct Platform;
struct PlayerSettings;

struct PlaybackSeams {
    const Platform& platform;
    FileNumbers& fileNumbers; // the player's own table
    const CodePage& codePage;
    PlayerSettings& settings; // OverlapMs, UseTagCover
    std::array<MediaElement*, 2> devices;
};

class EntryOpener {
public:
    EntryOpener(Playlist& list, PlaybackView& view, const PlaybackSeams& seams)
        : m_list(list), m_view(view), m_seams(seams)
    {
    }

    // Makes the entry at that index the one that is opened. Returns false when its file is not there, or is
    // nothing that is played.
    bool prepare(int index);
    void showPicture(); // of an entry that is one
    // Returns false when the device reports an error. It plays at once unless it is only cued.
    bool open(MediaElement& device, bool cues);
    // Returns what to tell of that error; the device's type is forgotten.
    QString errorReport(const MediaElement& device);
    // Is called while a device is waited for: whoever waits long is told what for.
    void paintMeanwhile();

    bool isPicture() const;
    bool isDelay() const; // no device plays it: its time passes
    bool isModule() const;

    const QString& deviceType() const { return m_deviceType; } // empty after an error
    const QString& path() const { return m_path; }
    qint32 length() const { return m_length; }
    TagRecord& tag() { return m_tag; }

private:
    bool fileIsThere(int index);
    void sayDriveIsEmpty();
    void readFacts();
    void sendOpen(MediaElement& device);
    bool openFile(MediaElement& device, bool cues);
    bool openDisc(MediaElement& device, bool cues);

    Playlist& m_list;
    PlaybackView& m_view;
    PlaybackSeams m_seams;

    TagRecord m_tag{};
    MediaKind::Entry m_kind = MediaKind::Medium;
    QString m_deviceType{};
    QString m_path{};
    qint32 m_length = 0;
    std::optional<std::chrono::steady_clock::time_point>
        m_openingSince{}; // null: told already, or not opening
};
