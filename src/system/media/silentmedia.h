// Is a machine that plays nothing: every device tells why, and the volume is kept but heard by nobody.
#pragma once

#include "platform/mediaelement.h"
#include "platform/mediaerror.h"
#include "platform/mediamachine.h"

class SilentMediaElement : public MediaElement {
public:
    explicit SilentMediaElement(QString reason) : m_reason(std::move(reason)) {}

    void setDeviceType(const QString& type) override { m_deviceType = type; }
    void setFileName(const QString&) override {}
    void setTimeFormat(const QString&) override {}
    void setWait(bool) override {}
    void setFrom(qint32) override {}
    void setTo(qint32) override {}
    void setTrack(int) override {}
    void send(const QString& command) override; // "open" fails with kNoDriver and the reason
    int error() const override { return m_error.number; }
    QString errorMessage() const override { return m_error.message; }
    qint32 length() override { return 0; }
    qint32 position() override { return 0; }
    qint32 trackPosition() override { return 0; }
    qint32 trackLength() override { return 0; }

private:
    QString m_reason;
    QString m_deviceType;
    MediaError m_error;
};

class KeptVolume : public WaveVolume {
public:
    std::uint32_t get() override { return m_word; }
    void set(std::uint32_t word) override { m_word = word; }
    bool isKnown() const override { return true; }

private:
    std::uint32_t m_word = 0xFFFFFFFF;
};

class SilentMediaMachine : public MediaMachine {
public:
    explicit SilentMediaMachine(QString reason) : m_reason(std::move(reason)) {}

    std::unique_ptr<MediaElement> makeDevice() override
    {
        return std::make_unique<SilentMediaElement>(m_reason);
    }
    std::unique_ptr<WaveVolume> makeVolume() override { return std::make_unique<KeptVolume>(); }

private:
    QString m_reason;
};
