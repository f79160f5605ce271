#include "player/playback/mediakind.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace {

QString deviceOf(const char* extension)
{
    return mediaKindOf(u"D:\\a.b\\c."_qs + QLatin1String(extension)).deviceType;
}

} // namespace

TEST(MediaKind, isChosenByTheExtension)
{
    for (const char* e : {"MP2", "mp3", "Mpa", "WAV", "ogg", "avi"})
        EXPECT_EQ(deviceOf(e), u"ActiveMovie"_qs) << e;
    for (const char* e : {"MOD", "MTM", "FAR", "669", "OKT", "STM", "S3M", "NST", "WOW", "xm"})
        EXPECT_EQ(deviceOf(e), u"M4W_MCI"_qs) << e;
    EXPECT_EQ(deviceOf("FLI"), u"Animation"_qs);
    EXPECT_EQ(deviceOf("flc"), u"Animation"_qs);
    EXPECT_EQ(deviceOf("AWA"), u"Animation1"_qs);
    EXPECT_EQ(deviceOf("awm"), u"Animation1"_qs);
    EXPECT_EQ(deviceOf("MMM"), u"MMMovie"_qs);
    EXPECT_EQ(deviceOf("cda"), u"cdaudio"_qs);
}

TEST(MediaKind, readsTagsOfMpegAudioAlone)
{
    for (const char* e : {"mp2", "mp3", "mpa"})
        EXPECT_TRUE(mediaKindOf(u"a."_qs + QLatin1String(e)).hasTag) << e;
    for (const char* e : {"wav", "mod", "cda", "jpg", "txt"})
        EXPECT_FALSE(mediaKindOf(u"a."_qs + QLatin1String(e)).hasTag) << e;
}

TEST(MediaKind, knowsPicturesAndWhatIsNotPlayed)
{
    for (const char* e : {"bmp", "GIF", "jpg"}) {
        EXPECT_EQ(mediaKindOf(u"a."_qs + QLatin1String(e)).entry, MediaKind::Picture) << e;
        EXPECT_EQ(deviceOf(e), u"Delay"_qs);
    }
    for (const char* e : {"txt", "doc", "bat", "com", "exe", "LNK"}) {
        EXPECT_EQ(mediaKindOf(u"a."_qs + QLatin1String(e)).entry, MediaKind::NotPlayed) << e;
        EXPECT_EQ(deviceOf(e), u"Delay"_qs);
    }
    EXPECT_EQ(mediaKindOf(u"a.jpeg"_qs).entry, MediaKind::Medium);
}

TEST(MediaKind, takesAnyOtherNameForAFilm)
{
    for (const QString& path : {u"D:\\noextension"_qs, u"D:\\a."_qs, QString(), u"a.MP2 MP3"_qs, u"a. "_qs})
        EXPECT_EQ(mediaKindOf(path).deviceType, u"ActiveMovie"_qs) << path.toStdString();
    EXPECT_FALSE(mediaKindOf(u"a.MP2 MP3"_qs).hasTag);
}

TEST(DiscTrack, isTheNumberInTheLastSixCharacters)
{
    EXPECT_EQ(discTrackOf(u"E:\\Track05.cda"_qs), 5);
    EXPECT_EQ(discTrackOf(u"E:\\Track12.CDA"_qs), 12);
    EXPECT_EQ(discTrackOf(u"E:\\Track123.cda"_qs), 23);
    EXPECT_EQ(discTrackOf(u"x.cda"_qs), 0);
    EXPECT_EQ(discTrackOf(QString()), 0);
    EXPECT_EQ(discTrackOf(u"-5.cda"_qs), 0);
    EXPECT_EQ(discTrackOf(u"9e9999"_qs), 0);
}
