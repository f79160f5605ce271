// Holds what the tests of playlist files share.
#pragma once

#include "player/playlist/playlistfile.h"
#include "system/files/systemfilenumbers.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

struct PlaylistWorld : testing::Test {
    QStringList paths() const
    {
        QStringList paths;
        for (const PlaylistEntry& entry : list.entries())
            paths += entry.path;
        return paths;
    }
    QStringList names() const
    {
        QStringList names;
        for (const PlaylistEntry& entry : list.entries())
            names += entry.name;
        return names;
    }
    // Returns the paths of a playlist file of drive D: that is made now.
    QStringList pathsOf(const QByteArray& content, const QByteArray& file = "L/x.m3u")
    {
        list.PlClear();
        world.directory.write("disk/" + file, content);
        PlRead(list, u"D:\\"_qs + QString::fromLatin1(file).replace(u'/', u'\\'), true, seams);
        EXPECT_EQ(numbers.freeFile(), 1);
        return paths();
    }
    QByteArray written(const QStringList& paths)
    {
        list.PlClear();
        for (const QString& path : paths)
            list.add(u"name"_qs, path);
        world.directory.makeDirectory("disk/L");
        EXPECT_TRUE(WritePL(list, kFile, seams));
        EXPECT_EQ(numbers.freeFile(), 1);
        return world.directory.read("disk/L/x.m3u");
    }
    void expectToComeBack(const QString& path)
    {
        const QByteArray content = written({path, u"D:\\last"_qs});
        list.PlClear();
        PlRead(list, kFile, true, seams);
        EXPECT_EQ(paths(), (QStringList{path, u"D:\\last"_qs})) << content.constData();
    }

    inline static const QString kFile = QStringLiteral("D:\\L\\x.m3u");
    World world;
    SystemFileNumbers numbers{world.drives};
    PlaylistSeams seams{world.context.platform, numbers, world.codePage};
    Playlist list;
};
