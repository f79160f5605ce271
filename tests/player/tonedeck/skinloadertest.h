// Has a loader over a whole platform whose skins lie in D:\skins.
#pragma once

#include "player/playback/playersettings.h"
#include "player/tonedeck/skinloader.h"
#include "tests/support/fakemedia.h"
#include "tests/support/fakemodulewindow.h"
#include "tests/support/skinworld.h"
#include "tests/support/world.h"

struct SkinLoaderTest : testing::Test {
    SkinLoaderTest()
    {
        world.directory.write("disk/skins/a.skin", kHeader);
        settings.SkinPath = u"D:\\skins"_qs;
    }
    // Returns the skin whose directory the bitmaps come from, and nothing when the window was left untouched.
    QString load(const QString& name, bool silent = false)
    {
        target.calls.clear();
        loader.LoadSkin(name, silent);
        const QString found = u"background "_qs;
        const QString background = target.calls.filter(found).value(0).mid(found.size());
        return target.calls.isEmpty() ? u"untouched"_qs : background;
    }

    World world;
    PlayerSettings settings;
    RecordingTarget target;
    int width = 1024;
    bool closed = false;
    FakeMediaMachine media;
    FakeModuleWindow moduleWindow;
    SkinLoader loader{{world.context.platform,
                       world.fileNumbers,
                       settings,
                       world.codePage,
                       media,
                       moduleWindow,
                       {},
                       world.user.data + "/sets"},
                      target,
                      {[this] { return width; }, [this] { return closed; }}};
};
