// Whether the shipped skins can be read: the contrast of their texts to what is behind them, pixel by pixel,
// is 4.5 to 1 at least, that of lights, thumbs and signs 3 to 1.
#include "player/face/faceitems.h"
#include "player/face/playlistbox.h"
#include "tests/player/tonedeck/drawnskins.h"
#include "tools/skins/commands.h"
#include "tools/skins/design.h"

#include <QImage>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kText = 4.5;
constexpr double kShape = 3;

double luminance(QRgb colour)
{
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(qRed(colour)) + 0.7152 * part(qGreen(colour)) + 0.0722 * part(qBlue(colour));
}

double contrast(QRgb one, QRgb other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

// Measures it to that pixel behind it which is the worst.
double worst(QRgb colour, const QImage& behind)
{
    double found = 21;
    for (int y = 0; y < behind.height(); ++y)
        for (int x = 0; x < behind.width(); ++x)
            found = std::min(found, contrast(colour, behind.pixel(x, y)));
    return found;
}

// Returns the pixel that stands out most from what is behind it: the ink of what is drawn with soft edges.
double best(const QImage& drawn, const QImage& behind)
{
    double found = 1;
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x)
            found = std::max(found, contrast(drawn.pixel(x, y), behind.pixel(x, y)));
    return found;
}

Design designOf(const std::string& name)
{
    return name == "default"   ? defaultDesign()
           : name == "compact" ? compactDesign()
           : name == "light"   ? lightDesign()
           : name == "dark"    ? darkDesign()
                               : largeDesign();
}

struct Contrast : DrawnSkin {
    QImage glyph(const SkinDisplay& display, int number) const
    {
        const QSize cell = display.font.cell;
        return parts.copy(QRect(display.font.origin + QPoint(number * cell.width(), 0), cell));
    }
};

} // namespace

TEST(ContrastOfColours, isThatOfTheGuidelines)
{
    EXPECT_NEAR(contrast(qRgb(0, 0, 0), qRgb(255, 255, 255)), 21, 0.01);
    EXPECT_NEAR(contrast(qRgb(119, 119, 119), qRgb(255, 255, 255)), 4.48, 0.01);
    EXPECT_NEAR(contrast(qRgb(255, 0, 0), qRgb(255, 255, 255)), 4.0, 0.01);
}

TEST_P(Contrast, ofLabels)
{
    ASSERT_FALSE(target.labels.empty());
    for (const auto& [number, label] : target.labels)
        EXPECT_GE(worst(colourOf(label.colour).rgb(), face.copy(label.place)), kText) << number;
}

TEST_P(Contrast, ofDigits)
{
    ASSERT_FALSE(target.displays.empty());
    constexpr int kBlank = 10;
    for (const auto& [number, display] : target.displays)
        for (int digit = 0; digit < kBlank; ++digit)
            EXPECT_GE(best(glyph(display, digit), glyph(display, kBlank)), kText) << number << ' ' << digit;
}

TEST_P(Contrast, ofLights)
{
    for (const int state : {2, 3, 4})
        EXPECT_TRUE(target.lights.contains(state)) << "stopped, paused, playing: " << state;
    for (const auto& [number, light] : target.lights)
        EXPECT_GE(worst(colourOf(light.colour).rgb(), face.copy(light.place)), kShape) << number;
}

TEST_P(Contrast, ofThePlaylist)
{
    ASSERT_TRUE(target.playlist);
    EXPECT_GE(
        contrast(colourOf(target.playlist->textColour).rgb(), colourOf(target.playlist->backColour).rgb()),
        kText);
    PlaylistBox box;
    box.setLook(*target.playlist);
    const auto colour = [&box](QPalette::ColorRole role) { return box.palette().color(role).rgb(); };
    EXPECT_GE(contrast(colour(QPalette::PlaceholderText), colour(QPalette::Base)), kText) << "empty";
    EXPECT_GE(contrast(colour(QPalette::HighlightedText), colour(QPalette::Highlight)), kText) << "selected";
    EXPECT_GE(contrast(colour(QPalette::Highlight), colour(QPalette::Base)), kShape);
    EXPECT_GE(contrast(box.scrollBarColour().rgb(), colour(QPalette::Base)), kShape);
}

TEST_P(Contrast, ofThumbs)
{
    for (const auto& [number, slider] : target.sliders) {
        const QRect groove(slider.track.topLeft() + QPoint(slider.track.width() / 2, 0), slider.thumb.size());
        EXPECT_GE(best(parts.copy(slider.thumb), face.copy(groove)), kShape) << number;
    }
}

TEST_P(Contrast, ofCaptions)
{
    const Design design = designOf(GetParam());
    ASSERT_TRUE(!design.captions.empty() || design.file == u"compact"_qs);
    QImage bare(design.sizes[0], QImage::Format_RGB32);
    QPainter painter(&bare);
    design.paintBody(painter);
    for (const Caption& caption : design.captions) {
        QImage written = bare;
        QPainter pen(&written);
        design.paintCaption(pen, caption);
        pen.end();
        EXPECT_GE(best(written, bare), kText) << caption.text.toStdString();
        const QRect place(caption.at, QSize(6 * static_cast<int>(caption.text.size()), 7));
        EXPECT_GE(worst(caption.colour.rgb(), bare.copy(place)), kText) << caption.text.toStdString();
    }
}

// They stand against the same key without its sign, at rest and lit.
TEST_P(Contrast, ofSignsOnKeys)
{
    constexpr int kWithoutSign = 37;
    ASSERT_EQ(command(kWithoutSign).icon, Icon::None);
    const Design design = designOf(GetParam());
    QImage body(design.sizes[0], QImage::Format_RGB32);
    QPainter bodyPainter(&body);
    design.paintBody(bodyPainter);
    bodyPainter.end();
    for (const Key& key : design.keys)
        for (const bool lit : {false, true}) {
            QImage bare = body;
            QImage drawn = body;
            QPainter painter(&bare);
            design.paintKey(painter, {kWithoutSign, key.place, key.style, {}}, lit);
            QPainter pen(&drawn);
            design.paintKey(pen, key, lit);
            EXPECT_GE(best(drawn.copy(key.place), bare.copy(key.place)),
                      key.caption.isEmpty() ? kShape : kText)
                << key.code << (lit ? " lit" : " at rest");
        }
}

INSTANTIATE_TEST_SUITE_P(All, Contrast, testing::Values("default", "compact", "light", "dark", "large"),
                         [](const auto& skin) { return std::string(skin.param); });
