// Holds the bitmaps of the shipped skins against their control files.
#include "tests/player/tonedeck/drawnskins.h"
#include "tests/support/temporary.h"

#include <QDir>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

// Puts the pictures together as well.
struct ComposingTarget : GatheringTarget {
    bool loadWork(int number, const QString& path) override
    {
        const QImage image(path);
        if (!image.isNull())
            work[number] = image.convertToFormat(QImage::Format_RGB32);
        return !image.isNull();
    }
    void sizeWork(int number, QSize size) override
    {
        work[number] = QImage(size, QImage::Format_RGB32);
        work[number].fill(Qt::black);
    }
    bool copyFromWork2(int number, const QRect& from, QPoint to) override
    {
        const QRect inside = from.intersected(work[2].rect());
        if (!inside.isEmpty())
            QPainter(&work[number]).drawImage(to + inside.topLeft() - from.topLeft(), work[2], inside);
        return inside == from;
    }
    void useWork() override
    {
        face = work[0];
        parts = work[1];
    }

    std::map<int, QImage> work;
    QImage face;
    QImage parts;
};

using DrawnSkinsTest = DrawnSkin;

// Wears classic.skin with a set of pictures of its own, which a test may change before.
struct ClassicSkinTest : testing::Test {
    ClassicSkinTest()
    {
        const QDir shipped(ShippedSkin::directory() + u"classic"_qs);
        for (const QString& name : shipped.entryList(QDir::Files)) {
            set[name.section(u'.', 0, 0)] = picture(shipped.filePath(name));
            QFile::copy(shipped.filePath(name), at(name));
        }
    }
    QString at(const QString& name) const { return QString::fromUtf8(directory.path()) + u'/' + name; }
    void compose() { ASSERT_TRUE(skin.read(u"classic"_qs, target, at(QString()))); }
    QImage pressed(int button)
    {
        return target.parts.copy(QRect(target.buttons[button].pressed, target.buttons[button].place.size()));
    }

    Temporary directory;
    std::map<QString, QImage> set;
    ShippedSkin skin;
    ComposingTarget target;
};

} // namespace

TEST_P(DrawnSkinsTest, showsEachButtonUnderThePointer)
{
    for (const auto& [number, button] : target.buttons)
        if (!isOutside(button)) {
            EXPECT_NE(parts.copy(QRect(button.pressed, button.place.size())), face.copy(button.place))
                << number;
        }
}

// Round its sign the pressed button is the button that it covers: the face's own pixels, in its corners.
TEST_P(DrawnSkinsTest, pressesEachButtonInItsPlace)
{
    for (const auto& [number, button] : target.buttons)
        if (!isOutside(button)) {
            EXPECT_EQ(parts.pixel(button.pressed), face.pixel(button.place.topLeft())) << number;
        }
}

TEST_P(DrawnSkinsTest, hasNoBoxRoundItsDigits)
{
    for (const auto& [number, display] : target.displays)
        if (display.font.style == 0) {
            for (const int glyph : {0, 8, 10, 11, 12})
                EXPECT_EQ(parts.pixel(display.font.origin + QPoint(glyph * display.font.cell.width(), 0)),
                          face.pixel(display.place.topLeft()))
                    << number << " glyph " << glyph;
        }
}

TEST_P(DrawnSkinsTest, drawsEveryDigitDifferently)
{
    for (const auto& [number, display] : target.displays) {
        std::vector<QImage> seen;
        for (int digit = 0; digit <= 10; ++digit) { // with the blank
            const QSize cell = display.font.cell;
            seen.push_back(parts.copy(QRect(display.font.origin + QPoint(digit * cell.width(), 0), cell)));
            EXPECT_EQ(std::count(seen.begin(), seen.end(), seen.back()), 1) << number << ": " << digit;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, DrawnSkinsTest, testing::Values("default", "compact", "light", "dark", "large"),
                         [](const auto& skin) { return std::string(skin.param); });

TEST_F(ClassicSkinTest, wearsThePicturesOfASet)
{
    compose();
    EXPECT_EQ(target.face.copy(0, 20, 275, 4), set[u"main"_qs].copy(0, 20, 275, 4));
    EXPECT_EQ(target.face.copy(0, 0, 275, 14), set[u"titlebar"_qs].copy(27, 0, 275, 14));
    EXPECT_EQ(target.face.copy(16, 88, 114, 18), set[u"cbuttons"_qs].copy(0, 0, 114, 18));
    EXPECT_EQ(target.face.copy(16, 72, 248, 10), set[u"posbar"_qs].copy(0, 0, 248, 10));
    EXPECT_EQ(pressed(14), set[u"cbuttons"_qs].copy(0, 18, 23, 18));
    EXPECT_EQ(pressed(13), set[u"cbuttons"_qs].copy(114, 16, 22, 16));
    EXPECT_EQ(pressed(27), set[u"shufrep"_qs].copy(0, 15, 28, 15));
    EXPECT_EQ(pressed(1), set[u"titlebar"_qs].copy(18, 9, 9, 9));
    EXPECT_EQ(target.parts.copy(target.sliders[1].thumb), set[u"posbar"_qs].copy(248, 0, 29, 10));
    EXPECT_EQ(target.parts.copy(target.sliders[2].thumb), set[u"volume"_qs].copy(15, 422, 14, 11));
}

TEST_F(ClassicSkinTest, takesItsGlyphsFromTheSet)
{
    compose();
    const QPoint digits = target.displays[1].font.origin;
    EXPECT_EQ(target.parts.copy(QRect(digits, QSize(99, 13))), set[u"numbers"_qs]);
    EXPECT_EQ(target.parts.copy(QRect(digits + QPoint(108, 0), QSize(3, 13))),
              set[u"main"_qs].copy(72, 26, 3, 13)); // the colon is part of the main picture
    EXPECT_EQ(target.parts.copy(QRect(target.displays[4].font.origin, QSize(155, 18))), set[u"text"_qs]);
}

TEST_F(ClassicSkinTest, takesPngAsWellAsBmp)
{
    compose();
    const QImage face = target.face;
    const QImage parts = target.parts;
    for (const auto& [name, image] : set) {
        ASSERT_TRUE(image.save(at(name + u".png"_qs)));
        ASSERT_TRUE(QFile::remove(at(name + u".bmp"_qs)));
    }
    target = {};
    compose();
    EXPECT_EQ(target.face, face);
    EXPECT_EQ(target.parts, parts);
    EXPECT_EQ(target.sliders.size(), 2U);
    EXPECT_EQ(target.displays.size(), 3U);
}

TEST_F(ClassicSkinTest, showsTheMainPictureWhereAnotherIsMissing)
{
    ASSERT_TRUE(QFile::remove(at(u"cbuttons.bmp"_qs)));
    compose();
    EXPECT_EQ(target.face.copy(16, 88, 114, 18), set[u"main"_qs].copy(16, 88, 114, 18));
    EXPECT_EQ(pressed(12), set[u"main"_qs].copy(39, 88, 23, 18));
    EXPECT_EQ(pressed(28), set[u"shufrep"_qs].copy(28, 15, 46, 15));
}

TEST_F(ClassicSkinTest, leavesOutWhatAMissingPictureWouldShow)
{
    ASSERT_TRUE(QFile::remove(at(u"posbar.bmp"_qs)));
    ASSERT_TRUE(QFile::remove(at(u"text.bmp"_qs)));
    compose();
    EXPECT_FALSE(target.sliders.contains(1));
    EXPECT_TRUE(target.sliders.contains(2));
    EXPECT_FALSE(target.displays.contains(4));
    EXPECT_TRUE(target.displays.contains(1));
    EXPECT_TRUE(target.labels.contains(2)) << "the name needs no picture";
}

TEST_F(ClassicSkinTest, borrowsAThumbForAVolumeThatHasNone)
{
    ASSERT_TRUE(set[u"volume"_qs].copy(0, 0, 68, 418).save(at(u"volume.bmp"_qs)));
    compose();
    const QImage thumb = target.parts.copy(target.sliders[2].thumb);
    EXPECT_EQ(thumb.copy(0, 0, 14, 10), set[u"posbar"_qs].copy(255, 0, 14, 10));
}

// Eleven of its twelve cells are where the digits' own picture has them; the minus sign is never shown.
TEST_F(ClassicSkinTest, takesDigitsWithAMinusSignBeforeThePlainOnes)
{
    QImage digits(108, 13, QImage::Format_RGB32);
    for (int x = 0; x < 108; ++x)
        for (int y = 0; y < 13; ++y)
            digits.setPixel(x, y, qRgb(x, y, 77));
    for (const bool alone : {false, true}) {
        ASSERT_TRUE(digits.save(at(alone ? u"nums_ex.png"_qs : u"nums_ex.bmp"_qs)));
        compose();
        ASSERT_TRUE(target.displays.contains(1));
        EXPECT_EQ(target.parts.copy(QRect(target.displays[1].font.origin, QSize(99, 13))),
                  digits.copy(0, 0, 99, 13));
        target = {};
        ASSERT_TRUE(QFile::remove(at(u"nums_ex.bmp"_qs)) || alone);
        ASSERT_TRUE(QFile::remove(at(u"numbers.bmp"_qs)) || alone);
    }
}

TEST_F(ClassicSkinTest, hasAMarkOfTheSetForEachState)
{
    compose();
    const auto shown = [this](MarkState state) {
        const auto mark = std::ranges::find(target.marks, state, &SkinMark::state);
        return mark == target.marks.end() ? QImage()
                                          : target.parts.copy(QRect(mark->picture, mark->place.size()));
    };
    EXPECT_EQ(shown(MarkState::Playing), set[u"playpaus"_qs].copy(0, 0, 9, 9));
    EXPECT_EQ(shown(MarkState::Paused), set[u"playpaus"_qs].copy(9, 0, 9, 9));
    EXPECT_EQ(shown(MarkState::Stopped), set[u"playpaus"_qs].copy(18, 0, 9, 9));
    EXPECT_EQ(shown(MarkState::Stereo), set[u"monoster"_qs].copy(0, 0, 29, 12));
    EXPECT_EQ(shown(MarkState::Mono), set[u"monoster"_qs].copy(29, 0, 27, 12));
    EXPECT_EQ(shown(MarkState::Shuffle), set[u"shufrep"_qs].copy(28, 30, 46, 15));
    EXPECT_EQ(shown(MarkState::Repeat), set[u"shufrep"_qs].copy(0, 30, 28, 15));
    EXPECT_TRUE(target.lights.empty());
    EXPECT_EQ(target.face.copy(239, 41, 29, 12), set[u"monoster"_qs].copy(0, 12, 29, 12)) << "unlit";
}

TEST_F(ClassicSkinTest, hasLightsWhereTheSetHasNoMarks)
{
    ASSERT_TRUE(QFile::remove(at(u"playpaus.bmp"_qs)));
    ASSERT_TRUE(QFile::remove(at(u"monoster.bmp"_qs)));
    compose();
    std::set<MarkState> states;
    for (const SkinMark& mark : target.marks)
        states.insert(mark.state);
    EXPECT_EQ(states, (std::set<MarkState>{MarkState::Shuffle, MarkState::Repeat}));
    for (const int light : {2, 3, 4})
        EXPECT_TRUE(target.lights.contains(light)) << light;
    EXPECT_EQ(target.lights.size(), 3U);
}

TEST_F(ClassicSkinTest, hasNoBlackBlockForAThumbThatTheSetLacks)
{
    ASSERT_TRUE(set[u"posbar"_qs].copy(0, 0, 248, 10).save(at(u"posbar.bmp"_qs)));
    compose();
    EXPECT_EQ(target.parts.copy(target.sliders[1].thumb), set[u"posbar"_qs].copy(0, 0, 29, 10));
    EXPECT_FALSE(skin.notes.filter(u"posbar.bmp is too small"_qs).isEmpty())
        << qPrintable(skin.notes.join(u'|'));
}
