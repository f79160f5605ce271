#include "tests/player/tonedeck/shippedskins.h"

#include <QSet>

#include <algorithm>

namespace {

constexpr std::array kRing = {"default", "compact", "light", "dark", "large"};

// Reads it from a PNG's header.
QSize sizeOfPng(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray head = file.read(24);
    const auto number = [&head](int at) {
        int value = 0;
        for (int i = at; i < at + 4; ++i)
            value = value * 256 + static_cast<unsigned char>(head.at(i));
        return value;
    };
    return head.size() == 24 && head.mid(1, 3) == "PNG" ? QSize(number(16), number(20)) : QSize();
}

struct ShippedSkinsTest : testing::TestWithParam<const char*> {
    ShippedSkinsTest()
    {
        const QString name = QString::fromLatin1(GetParam());
        isImport = name == u"classic";
        there = skin.read(name, target, ShippedSkin::directory() + u"classic/"_qs);
        face = QRect(QPoint(), isImport ? target.workSizes[0] : sizeOfPng(target.background));
        parts = QRect(QPoint(), isImport ? target.workSizes[1] : sizeOfPng(target.resource));
    }
    void SetUp() override { ASSERT_TRUE(there); }

    std::vector<SkinButton> shown() const
    {
        std::vector<SkinButton> buttons;
        for (const auto& [number, button] : target.buttons)
            if (!isOutside(button))
                buttons.push_back(button);
        return buttons;
    }

    ShippedSkin skin;
    GatheringTarget target;
    bool there = false;
    bool isImport = false;
    QRect face;
    QRect parts;
};

QRect tableOf(const DisplayFont& font)
{
    const QSize cell = font.cell;
    switch (font.style) {
    case 0:
        return {font.origin, QSize(12 * cell.width() + font.separator, cell.height())};
    case 3:
        return {font.origin, QSize(31 * cell.width(), 3 * cell.height())};
    default:
        return {font.origin, QSize(16 * cell.width(), 6 * cell.height())};
    }
}

// Returns what its glyphs cover.
QRect areaOf(const SkinDisplay& display)
{
    const DisplayFont& font = display.font;
    const bool clock = font.cells == 0 || font.cells == 8;
    const int glyphs = clock ? 5 : font.cells;
    const int width = clock ? 4 * font.cell.width() + font.separator : glyphs * font.cell.width();
    return {display.place.topLeft(), QSize(width + (glyphs - 1) * font.gap, font.cell.height())};
}

} // namespace

TEST_P(ShippedSkinsTest, isReadWithoutARemark)
{
    EXPECT_EQ(skin.messages.join(u'\n').toStdString(), "");
    EXPECT_EQ(skin.notes.join(u'\n').toStdString(), "");
    EXPECT_FALSE(skin.texts.info.isEmpty());
    EXPECT_FALSE(face.isEmpty());
    EXPECT_FALSE(parts.isEmpty());
}

TEST_P(ShippedSkinsTest, givesAllButtonsSoThatNoneOfTheSkinBeforeStays)
{
    EXPECT_EQ(target.buttons.size(), static_cast<std::size_t>(kButtons));
    QSet<QString> keys;
    for (const auto& [number, button] : target.buttons) {
        EXPECT_NE(button.pressed, QPoint()) << number;
        EXPECT_EQ(button.key.size(), 1) << number;
        EXPECT_FALSE(keys.contains(button.key)) << number;
        keys.insert(button.key);
    }
}

TEST_P(ShippedSkinsTest, hasItsButtonsOnTheFaceOrOutside)
{
    for (const auto& [number, button] : target.buttons) {
        EXPECT_TRUE(isOutside(button) || face.contains(button.place)) << number;
        EXPECT_TRUE(
            parts.contains(QRect(button.pressed, isOutside(button) ? QSize(1, 1) : button.place.size())))
            << number;
        EXPECT_TRUE(isOutside(button) || !button.toolTip.isEmpty()) << number;
    }
    for (const int transport : {1, 2, 10, 11, 12, 14, 15})
        EXPECT_FALSE(isOutside(target.buttons[transport])) << transport;
}

TEST_P(ShippedSkinsTest, hasNothingOnTopOfAButton)
{
    const std::vector<SkinButton> buttons = shown();
    for (const SkinButton& button : buttons) {
        for (const SkinButton& other : buttons)
            EXPECT_TRUE(button.number == other.number || !button.place.intersects(other.place))
                << button.number << " and " << other.number;
        for (const auto& [number, label] : target.labels)
            EXPECT_FALSE(button.place.intersects(label.place)) << button.number << " and label " << number;
        if (!isImport) {
            for (const auto& [number, light] : target.lights)
                EXPECT_FALSE(button.place.intersects(light.place))
                    << button.number << " and light " << number;
        }
        EXPECT_FALSE(target.playlist && button.place.intersects(target.playlist->place)) << button.number;
        EXPECT_FALSE(target.cover && button.place.intersects(target.cover->place)) << button.number;
    }
}

TEST_P(ShippedSkinsTest, hasItsSlidersOnTheFace)
{
    for (const int number : {1, 2})
        EXPECT_TRUE(target.sliders.contains(number)) << number;
    for (const auto& [number, slider] : target.sliders) {
        EXPECT_TRUE(parts.contains(slider.thumb)) << number;
        const QRect way(slider.track.topLeft(), slider.track.size() + slider.thumb.size());
        EXPECT_TRUE(face.contains(way)) << number;
        for (const SkinButton& button : shown())
            EXPECT_FALSE(button.place.intersects(way)) << number << " and button " << button.number;
    }
}

TEST_P(ShippedSkinsTest, hasItsDisplaysOnTheFaceAndTheirGlyphsInTheParts)
{
    EXPECT_TRUE(target.displays.contains(1));
    for (const auto& [number, display] : target.displays) {
        EXPECT_TRUE(parts.contains(tableOf(display.font))) << number;
        EXPECT_TRUE(face.contains(areaOf(display))) << number;
        for (const auto& [other, second] : target.displays)
            EXPECT_TRUE(other == number || !areaOf(display).intersects(areaOf(second)))
                << number << ' ' << other;
    }
}

TEST_P(ShippedSkinsTest, hasEverythingElseOnTheFace)
{
    for (const auto& [number, label] : target.labels)
        EXPECT_TRUE(face.contains(label.place)) << number;
    for (const auto& [number, light] : target.lights)
        EXPECT_TRUE(face.contains(light.place)) << number;
    for (const QSize& size : target.sizes)
        EXPECT_TRUE(face.contains(QRect(QPoint(), size)));
    ASSERT_TRUE(target.playlist);
    EXPECT_TRUE(face.contains(target.playlist->place));
    EXPECT_TRUE(!target.cover || face.contains(target.cover->place));
}

// No button, display or polygon is cut through when the window is folded.
TEST_P(ShippedSkinsTest, isFoldedBetweenItsElements)
{
    for (const QSize& size : target.sizes) {
        const QRect window(QPoint(), size);
        for (const SkinButton& button : shown())
            EXPECT_TRUE(window.contains(button.place) || !window.intersects(button.place)) << button.number;
        for (const auto& [number, display] : target.displays)
            EXPECT_TRUE(window.contains(areaOf(display)) || !window.intersects(areaOf(display))) << number;
        for (const std::vector<QPoint>& polygon : target.outline) {
            const auto [top, bottom] =
                std::ranges::minmax(polygon, {}, [](QPoint point) { return point.y(); });
            EXPECT_TRUE(bottom.y() <= size.height() || top.y() >= size.height());
        }
        EXPECT_TRUE(window.contains(target.buttons[1].place)) << "closed by the pointer in each size";
    }
}

TEST_P(ShippedSkinsTest, hasAnOutlineOnItsFace)
{
    EXPECT_EQ(target.outline.empty(), isImport);
    for (const std::vector<QPoint>& polygon : target.outline) {
        EXPECT_GT(polygon.size(), 12U) << "too few for round corners";
        for (const QPoint& point : polygon)
            EXPECT_TRUE(QRect(QPoint(), face.size() + QSize(1, 1)).contains(point));
    }
}

INSTANTIATE_TEST_SUITE_P(All, ShippedSkinsTest,
                         testing::Values("default", "compact", "light", "dark", "large", "classic"),
                         [](const auto& skin) { return std::string(skin.param); });

TEST(ShippedSkins, followEachOtherInARing)
{
    for (std::size_t i = 0; i < kRing.size(); ++i) {
        ShippedSkin skin;
        GatheringTarget target;
        ASSERT_TRUE(skin.read(QString::fromLatin1(kRing.at(i)), target));
        const auto name = [](std::size_t place) {
            return QString::fromLatin1(kRing.at(place % kRing.size())) + u".skin"_qs;
        };
        EXPECT_EQ(target.buttons[50].skin, name(i + 1));
        EXPECT_EQ(target.buttons[49].skin, name(i + kRing.size() - 1));
        EXPECT_FALSE(isOutside(target.buttons[49]));
        EXPECT_FALSE(isOutside(target.buttons[50]));
    }
}

TEST(ShippedSkins, theFirstOneHasEveryKindOfElement)
{
    ShippedSkin skin;
    GatheringTarget target;
    ASSERT_TRUE(skin.read(u"default"_qs, target));
    EXPECT_EQ(target.displays.size(), 5U) << "numbers; the name is a label's";
    EXPECT_NE(target.hoverStyle, 0);
    EXPECT_TRUE(target.cover);
    for (const int label : {1, 2, 8, 9, 13, 14, 18})
        EXPECT_TRUE(target.labels.contains(label)) << label;
    for (const int light : {2, 3, 4, 5, 6, 7, 8, 9, 10})
        EXPECT_TRUE(target.lights.contains(light)) << light;
    EXPECT_GT(target.sizes[0].height(), target.sizes[1].height());
    EXPECT_GT(target.sizes[1].height(), target.sizes[2].height());
}

// Names are in every alphabet: a bitmap has one.
TEST_P(ShippedSkinsTest, hasItsNameInAFontOfTheSystem)
{
    ASSERT_TRUE(target.labels.contains(2));
    const SkinLabel& name = target.labels[2];
    EXPECT_FALSE(name.toolTip.isEmpty());
    EXPECT_GE(name.place.height(), name.fontSize * 96 / 72 * 5 / 4)
        << "room for what is high and for what hangs";
    EXPECT_GE(name.place.width(), 130);
    EXPECT_FALSE(target.displays.contains(6)) << "it would show the name a second time, with holes";
}

TEST_P(ShippedSkinsTest, tellsItsStateTheLengthAndTheHalfOfTheDay)
{
    if (isImport) // as its pictures have it
        return;
    for (const int light : {2, 3, 4})
        EXPECT_TRUE(target.lights.contains(light)) << light;
    EXPECT_TRUE(target.labels.contains(13));
    const bool clock = target.displays.contains(3);
    EXPECT_EQ(target.labels.contains(9), clock);
    EXPECT_TRUE(clock || target.labels.contains(3)) << "whose text has it already";
}

// The empty list names it.
TEST_P(ShippedSkinsTest, addsFilesByTheKeyO)
{
    EXPECT_EQ(target.buttons[23].key, u"O"_qs);
}

TEST(ShippedSkins, theClassicOneAsksForItsMainPicture)
{
    ShippedSkin skin;
    GatheringTarget target;
    ASSERT_TRUE(skin.read(u"classic"_qs, target, ShippedSkin::directory() + u"no such directory/"_qs));
    EXPECT_EQ(skin.import.directory, u"classic"_qs);
    EXPECT_EQ(skin.import.file, u"main.bmp"_qs);
    EXPECT_TRUE(skin.import.filter.endsWith(u"|main.bmp;main.png;*.wsz;*.zip"_qs));
}

// What would be drawn from a picture that is not there is left out; the buttons stay.
TEST(ShippedSkins, theClassicOneStandsMissingPictures)
{
    ShippedSkin skin;
    GatheringTarget target;
    ASSERT_TRUE(skin.read(u"classic"_qs, target, ShippedSkin::directory() + u"no such directory/"_qs));
    EXPECT_EQ(skin.messages.join(u'\n').toStdString(), "");
    EXPECT_TRUE(target.displays.empty());
    EXPECT_TRUE(target.sliders.empty());
    EXPECT_EQ(target.buttons.size(), static_cast<std::size_t>(kButtons));
    EXPECT_TRUE(target.playlist);
}
