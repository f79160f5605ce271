#include "player/face/playlistbox.h"

#include "player/playlist/playlist.h"

#include <gtest/gtest.h>

namespace {

QImage pictureOf(const QString& name)
{
    Playlist list;
    list.add(name, QStringLiteral("D:\\1.mp3"));
    list.add(QStringLiteral("The next one"), QStringLiteral("D:\\2.mp3"));
    PlaylistModel model(list, PlaylistModel::Shows::Names);
    PlaylistBox box;
    box.setModel(&model);
    box.resize(300, 100);
    return box.grab().toImage();
}

} // namespace

TEST(PlaylistBox, aNameWithALinesEndStaysOnItsRow)
{
    const QImage plain = pictureOf(u"a new line.mp3"_qs);
    EXPECT_NE(plain, pictureOf(u"a newline.mp3"_qs));
    for (const char16_t sign : {u'\n', u'\r', u'\t', u'\u2028', u'\u2029'})
        EXPECT_EQ(pictureOf(u"a new"_qs + QChar(sign) + u"line.mp3"_qs), plain) << int{sign};
}
