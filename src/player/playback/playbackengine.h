// Plays the playlist: chooses a device for the current entry, opens it, follows it and goes on. Times are
// milliseconds. It knows no window: what is shown goes to the PlaybackView.
#pragma once

#include "player/playback/playbackrules.h"
#include "player/playback/tagrecord.h"
#include "player/playlist/playlist.h"

#include <array>
#include <chrono>
#include <optional>

class CodePage;
class FileNumbers;
class MediaElement;
class PlaybackView;
struct Platform;
struct PlayerSettings;

class PlaybackEngine {
public:
    struct Seams {
        const Platform& platform;
        FileNumbers& fileNumbers; // the player's own table
        const CodePage& codePage;
        PlayerSettings& settings; // OverlapMs, UseTagCover
        std::array<MediaElement*, 2> devices;
    };

    PlaybackEngine(Playlist& list, PlaybackView& face, const Seams& seams);

    void PlayIt();
    void StopIt();
    void PauseIt();
    void PlayPause();
    void Reverse();
    void Forward();
    void NextTrack();
    void PrevTrack();
    void PlayFrom(qint32 milliseconds);
    void Timer1_Timer();

    void pressAB();
    void setLoopEnd(); // where it plays now
    void closeDevices();
    void showTime(); // again, after ShowRemaining has changed

    bool IntroMode = false;
    bool StopAfterTrack = false;
    bool ShuffleMode = false;
    bool RepeatMode = false;
    bool ShowRemaining = false;

    bool IsPlaying() const { return m_isPlaying; }
    bool IsPaused() const { return m_isPaused; }
    // It is playing, but its last entry came to nothing: the file is missing, its device reported an error,
    // or it is nothing that is played. No tick comes until another entry is started.
    bool halted() const { return m_isPlaying && m_isHalted; }
    qint32 TrackLength() const { return m_trackLength; }
    qint32 PlayPosMs() const { return m_position; }
    qint32 ShownMs() const { return ShowRemaining ? m_trackLength - m_position : m_position; }
    const LoopPoints& loop() const { return m_loop; }
    const QString& DeviceType() const { return m_deviceType; }
    const QString& CurName() const { return m_name; }
    const QString& CurPath() const { return m_path; }
    TagRecord& tag() { return m_tag; }
    int DevIndex() const { return m_deviceIndex; }

private:
    MediaElement& device() { return *m_seams.devices[static_cast<std::size_t>(m_deviceIndex)]; }
    bool chooseEntry();
    bool isDelay() const;
    bool isPlayable(int index);
    bool fileIsThere(int index);
    void readFacts();
    void showEntry();
    bool start();
    void paintMeanwhile();
    void sendOpen();
    bool openFile();
    bool openDisc();
    void showPicture();
    void handOver();
    void started();
    void reportError();
    void tellSilence();
    void halt();
    void goOn();
    void cue();
    void rewind(MediaElement& device);

    Playlist& m_list;
    PlaybackView& m_face;
    Seams m_seams;

    TagRecord m_tag{};
    QString m_deviceType{}; // empty after an error
    QString m_name{};
    QString m_path{};
    QString m_timeText{}; // as shown last
    qint32 m_trackLength = 0;
    qint32 m_position = 0;
    LoopPoints m_loop{};
    int m_deviceIndex = 0;
    std::optional<std::chrono::steady_clock::time_point>
        m_openingSince{}; // null: told already, or not opening
    bool m_isPlaying = false;
    bool m_isPaused = false;
    bool m_isHalted = false;
    bool m_isSilent = false; // as told last
    bool m_isCueing = false; // it opens an entry that is not to be heard
};
