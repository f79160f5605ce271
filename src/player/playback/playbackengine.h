// Plays the playlist: chooses a device for the current entry, opens it, follows it and goes on. Times are
// milliseconds. It knows no window: what is shown goes to the PlaybackView.
#pragma once

#include "player/playback/entryopener.h"
#include "player/playback/playbackrules.h"
#include "player/playlist/playlist.h"

class MediaElement;
class PlaybackView;

class PlaybackEngine {
public:
    using Seams = PlaybackSeams;

    PlaybackEngine(Playlist& list, PlaybackView& view, const Seams& seams);

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
    qint32 TrackLength() const { return m_opener.length(); }
    qint32 PlayPosMs() const { return m_position; }
    qint32 ShownMs() const { return ShowRemaining ? TrackLength() - m_position : m_position; }
    const LoopPoints& loop() const { return m_loop; }
    const QString& DeviceType() const { return m_opener.deviceType(); }
    const QString& CurName() const { return m_name; }
    const QString& CurPath() const { return m_opener.path(); }
    TagRecord& tag() { return m_opener.tag(); }
    int DevIndex() const { return m_deviceIndex; }

private:
    MediaElement& device() { return *m_seams.devices[static_cast<std::size_t>(m_deviceIndex)]; }
    bool chooseEntry();
    void showEntry();
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
    PlaybackView& m_view;
    Seams m_seams;
    EntryOpener m_opener;

    QString m_name{};
    QString m_timeText{}; // as shown last
    qint32 m_position = 0;
    LoopPoints m_loop{};
    int m_deviceIndex = 0;
    bool m_isPlaying = false;
    bool m_isPaused = false;
    bool m_isHalted = false;
    bool m_isSilent = false; // as told last
    bool m_isCueing = false; // it opens an entry that is not to be heard
};
