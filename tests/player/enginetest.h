// The engine over devices that note what they are told.
#pragma once

#include "platform/mediaelement.h"
#include "player/playbackengine.h"
#include "player/playersettings.h"
#include "tests/player/notingface.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

#include <QStringList>

class NotingDevice : public MediaElement {
public:
    void setDeviceType(const QString& type) override { deviceType = type; }
    void setFileName(const QString& path) override { fileName = path; }
    void setTimeFormat(const QString& format) override { timeFormat = format; }
    void setWait(bool wanted) override { wait = wanted; }
    void setFrom(qint32 ms) override { notes += u"from "_qs + QString::number(ms); }
    void setTo(qint32 ms) override { notes += u"to "_qs + QString::number(ms); }
    void setTrack(int number) override { notes += u"track "_qs + QString::number(number); }
    void send(const QString& command) override { notes += command; }
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
    int errorNumber = 0;
    qint32 lengthMs = 60'000;
    qint32 positionMs = 0;
};

struct EngineTest : testing::Test {
    World world;
    PlayerSettings settings;
    Playlist list;
    NotingFace face;
    NotingDevice devices[2];
    PlaybackEngine engine{
        list,
        face,
        {world.context.platform, world.fileNumbers, world.codePage, settings, {&devices[0], &devices[1]}}};

    // Files of drive D:, each an entry.
    void entries(const QStringList& names)
    {
        for (const QString& name : names) {
            world.directory.write("disk/" + name.toUtf8(), QByteArray(300, 'x'));
            list.add(name, u"D:\\"_qs + name);
        }
    }
    void tickAt(qint32 ms)
    {
        devices[engine.DevIndex()].positionMs = ms;
        engine.Timer1_Timer();
    }
};
