// Makes media devices over GStreamer. Each opened medium has a pipeline of its own, driven in a thread of its
// own, so that a hanging disk or sound server holds up nobody.
#pragma once

#include "platform/mediaelement.h"
#include "platform/mediaerror.h"
#include "system/media/boundedworker.h"
#include "system/media/mediapipeline.h"

#include <functional>
#include <optional>

class Drives;

class GstMediaElement : public MediaElement {
public:
    explicit GstMediaElement(Drives& drives);
    ~GstMediaElement() override;

    void setDeviceType(const QString& type) override { m_deviceType = type; }
    void setFileName(const QString& path) override { m_fileName = path; }
    void setTimeFormat(const QString&) override {}
    void setWait(bool) override {}
    void setFrom(qint32 milliseconds) override { m_from = milliseconds; }
    void setTo(qint32 milliseconds) override { m_to = milliseconds; }
    void setTrack(int track) override;
    void setMeanwhile(const std::function<void()>& meanwhile) override { m_meanwhile = meanwhile; }
    void send(const QString& command) override;
    int error() const override { return m_error.number; }
    QString errorMessage() const override;
    qint32 length() override;
    qint32 position() override;
    bool isSilent() override;
    qint32 trackPosition() override { return 0; }
    qint32 trackLength() override { return length(); }

private:
    struct Medium;
    struct Return;

    void open();
    void openMedium(const MediaSource& source);
    bool isReachable(const MediaSource& source);
    std::optional<MediaSource> source();
    void play();
    void stop();
    void seek();
    void close();
    bool isLost() const;
    void drive(const std::function<void(MediaPipeline&)>& action);
    void drop();
    BoundedWorker& worker(); // one that takes jobs

    // These serve when the sound has gone or comes back: gstmediaelement_sound.cpp.
    void followSound();
    void noteCommand();
    void beginReturn(bool isLost);
    void endReturn();
    void takeOver(std::shared_ptr<Medium> medium);

    Drives& m_drives;
    QString m_deviceType;
    QString m_fileName;
    std::optional<qint32> m_from;
    std::optional<qint32> m_to;
    MediaError m_error;
    MediaError m_trackError; // the chosen track could not be opened, which the next command tells

    std::function<void()> m_meanwhile;
    std::unique_ptr<BoundedWorker> m_worker;
    std::shared_ptr<Medium> m_medium; // null: closed
    std::shared_ptr<Return> m_return; // null: none is on its way
    std::chrono::steady_clock::time_point m_nextReturn{};
};

// Is shared with the thread that drives it, which may outlive the element.
struct GstMediaElement::Medium {
    MediaSource source{};
    std::unique_ptr<MediaPipeline> pipeline{}; // null: it could not be opened
    MediaError error{};
    // The element's thread alone uses these.
    bool fresh = true;      // nothing was played or sought yet
    bool isPlaying = false; // what it was told last
    bool isGivenUp = false; // its sound has gone, and it cannot be opened anew
    int commands = 0;       // so many of them so far
    qint64 lastPosition = 0;
    qint64 end = 0;    // where playing ends
    qint64 until = -1; // where it was told to end; -1: at the very end
};
