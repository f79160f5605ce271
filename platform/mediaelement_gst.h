// Media devices over GStreamer. Each opened medium has a pipeline of its own, driven in a thread of its own,
// so that a hanging disk or sound server holds up nobody.
#pragma once

#include "platform/boundedworker.h"
#include "platform/mediaelement.h"
#include "platform/mediaerror.h"
#include "platform/mediapipeline.h"

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
    void send(const QString& command) override;
    int error() const override { return m_error.number; }
    QString errorMessage() const override;
    qint32 length() override;
    qint32 position() override;
    qint32 trackPosition() override { return 0; }
    qint32 trackLength() override { return length(); }

private:
    struct Medium;

    void open();
    void openMedium(const MediaSource& source);
    std::optional<MediaSource> source();
    void play();
    void stop();
    void seek();
    void close();
    bool isLost() const;
    void drive(const std::function<void(MediaPipeline&)>& action);
    void drop();

    Drives& m_drives;
    QString m_deviceType;
    QString m_fileName;
    std::optional<qint32> m_from;
    std::optional<qint32> m_to;
    MediaError m_error;
    MediaError m_trackError; // the chosen track could not be opened, which the next command tells

    std::unique_ptr<BoundedWorker> m_worker;
    std::shared_ptr<Medium> m_medium; // null: closed
};
