// Has the engine over devices that note what they are told.
#pragma once

#include "player/playback/playbackengine.h"
#include "player/playback/playersettings.h"
#include "tests/player/playback/notingview.h"
#include "tests/support/fakemedia.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

#include <QStringList>

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

    // Makes files of drive D:, each an entry.
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
