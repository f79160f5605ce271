// Devices that note what they are told, a volume that nobody hears, and the machine that hands them out.
#pragma once

#include "platform/mediaerror.h"
#include "platform/mediamachine.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <vector>

class NotingDevice : public MediaElement {
public:
    void setDeviceType(const QString& type) override { deviceType = type; }
    void setFileName(const QString& path) override { fileName = path; }
    void setTimeFormat(const QString& format) override { timeFormat = format; }
    void setWait(bool wanted) override { wait = wanted; }
    void setFrom(qint32 ms) override { notes += u"from "_qs + QString::number(ms); }
    void setTo(qint32 ms) override { notes += u"to "_qs + QString::number(ms); }
    void setTrack(int number) override { notes += u"track "_qs + QString::number(number); }
    void send(const QString& command) override
    {
        notes += command;
        if (onSend)
            onSend(command);
    }
    void setMeanwhile(const std::function<void()>& wanted) override { meanwhile = wanted; }
    bool isSilent() override { return silent; }
    int error() const override { return errorNumber; }
    QString errorMessage() const override { return u"the device's own words"_qs; }
    qint32 length() override { return lengthMs; }
    qint32 position() override { return positionMs; }
    qint32 trackPosition() override { return 0; }
    qint32 trackLength() override { return lengthMs; }

    QStringList taken()
    {
        QStringList result;
        result.swap(notes);
        return result;
    }

    QString deviceType, fileName, timeFormat;
    bool wait = false;
    QStringList notes;
    std::function<void(const QString&)> onSend; // while the command is carried out
    std::function<void()> meanwhile;            // while a command takes its time
    bool silent = false;
    int errorNumber = MediaError::kNone;
    qint32 lengthMs = 60'000;
    qint32 positionMs = 0;
};

class FakeWaveVolume : public WaveVolume {
public:
    std::uint32_t get() override { return word; }
    void set(std::uint32_t wished) override { word = wished; }
    bool isKnown() const override { return known; }

    std::uint32_t word = 0xFFFFFFFF;
    bool known = true;
};

// The devices stay here when the window that asked for them is gone; what it holds passes everything on.
class FakeMediaMachine : public MediaMachine {
public:
    std::unique_ptr<MediaElement> makeDevice() override
    {
        devices.push_back(std::make_shared<NotingDevice>());
        return std::make_unique<LentDevice>(devices.back());
    }
    std::unique_ptr<WaveVolume> makeVolume() override
    {
        ++volumesMade;
        return std::make_unique<LentVolume>(volume);
    }
    // How many of the devices are still held by somebody else.
    int devicesInUse() const
    {
        return static_cast<int>(std::count_if(devices.begin(), devices.end(),
                                              [](const auto& device) { return device.use_count() > 1; }));
    }

    std::vector<std::shared_ptr<NotingDevice>> devices; // in the order they were asked for
    std::shared_ptr<FakeWaveVolume> volume = std::make_shared<FakeWaveVolume>();
    int volumesMade = 0;

private:
    class LentDevice : public MediaElement {
    public:
        explicit LentDevice(std::shared_ptr<NotingDevice> device) : m_device(std::move(device)) {}

        void setDeviceType(const QString& type) override { m_device->setDeviceType(type); }
        void setFileName(const QString& path) override { m_device->setFileName(path); }
        void setTimeFormat(const QString& format) override { m_device->setTimeFormat(format); }
        void setWait(bool wait) override { m_device->setWait(wait); }
        void setFrom(qint32 ms) override { m_device->setFrom(ms); }
        void setTo(qint32 ms) override { m_device->setTo(ms); }
        void setTrack(int number) override { m_device->setTrack(number); }
        void send(const QString& command) override { m_device->send(command); }
        void setMeanwhile(const std::function<void()>& meanwhile) override
        {
            m_device->setMeanwhile(meanwhile);
        }
        bool isSilent() override { return m_device->isSilent(); }
        int error() const override { return m_device->error(); }
        QString errorMessage() const override { return m_device->errorMessage(); }
        qint32 length() override { return m_device->length(); }
        qint32 position() override { return m_device->position(); }
        qint32 trackPosition() override { return m_device->trackPosition(); }
        qint32 trackLength() override { return m_device->trackLength(); }

    private:
        std::shared_ptr<NotingDevice> m_device;
    };

    class LentVolume : public WaveVolume {
    public:
        explicit LentVolume(std::shared_ptr<FakeWaveVolume> volume) : m_volume(std::move(volume)) {}

        std::uint32_t get() override { return m_volume->get(); }
        void set(std::uint32_t word) override { m_volume->set(word); }
        bool isKnown() const override { return m_volume->isKnown(); }

    private:
        std::shared_ptr<FakeWaveVolume> m_volume;
    };
};
