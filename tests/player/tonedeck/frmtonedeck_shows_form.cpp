// Holds what the player's window shows: its displays, its clock, its texts and its lights.
#include "tests/support/tonedecktest.h"

#include <QFontMetrics>
#include <QLocale>

#include <chrono>

namespace {

using Points = std::vector<QPoint>;

struct FrmTonedeckShows : TonedeckTest {
    static constexpr int kCell = 8;

    // Makes a display in the ASCII font, whose table begins so many cells right of the resource bitmap's
    // left.
    static QByteArray textDisplay(int number, int x, int y, int cells, int shift = 0)
    {
        return 'D' + QByteArray::number(number) + ',' + QByteArray::number(x) + ',' + QByteArray::number(y) +
               ',' + QByteArray::number(shift * kCell) + ",0,8,8,4,1,0," + QByteArray::number(cells) +
               ",tip\n";
    }
    // Returns what such a display shows; "~" stands where the face is bare.
    QString readText(int x, int y, int cells)
    {
        QString text;
        for (int cell = 0; cell < cells; ++cell) {
            const QRgb first = pixel(x + cell * kCell, y);
            const bool glyph = qBlue(first) == qBlue(partPixel(0, 0));
            text += glyph ? QChar(32 + qGreen(first) / kCell * 16 + qRed(first) / kCell) : u'~';
        }
        return text;
    }

    // Runs it again until the minute is the same before and after it, and tells that time.
    template <typename Function>
    static QTime withinAMinute(Function&& function)
    {
        for (;;) {
            const QTime before = QTime::currentTime();
            function();
            const QTime after = QTime::currentTime();
            if (before.hour() == after.hour() && before.minute() == after.minute())
                return after;
        }
    }

    static int count(const QImage& image, QRgb colour)
    {
        int found = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                found += image.pixel(x, y) == colour;
        return found;
    }
    static QImage imageOf(QWidget& widget)
    {
        return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    // Paints the label on the face, with that text and size.
    QImage imageOf(FaceLabel& label, const QString& caption, QSize size)
    {
        label.resize(size);
        label.setCaption(caption);
        return imageOf(*window().centralWidget()).copy(label.geometry());
    }
};

const QString kFull = QStringLiteral("\u2588\u2588"); // blocks, whose inner pixels have the pure colour

} // namespace

// --- displays -------------------------------------------------------------------------------------

TEST_F(FrmTonedeckShows, paintsItsDisplaysAnewWhenItIsRestoredAndAtNoOrdinaryPaint)
{
    writeSkin(textDisplay(4, 10, 10, 10) + textDisplay(5, 10, 30, 10) + textDisplay(6, 10, 50, 10));
    frmTonedeck& w = loaded();
    w.showForm();
    QCoreApplication::processEvents();
    w.controls.Lbl[Label::BitRate]->setCaption(u"192 kbit"_qs);
    w.controls.Lbl[Label::SamplingRate]->setCaption(u"44"_qs);
    w.SetDD(DisplayItem::Name, u"Name"_qs);
    w.repaint();
    w.grab();
    QCoreApplication::processEvents();
    EXPECT_EQ(readText(10, 10, 10), u"          "_qs);
    EXPECT_EQ(readText(10, 30, 10), u"          "_qs);
    EXPECT_EQ(readText(10, 50, 10), u"Name      "_qs);
    w.showMinimized();
    QCoreApplication::processEvents();
    EXPECT_EQ(readText(10, 10, 10), u"          "_qs) << "it is not seen";
    w.showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(readText(10, 10, 10), u"192 kbit  "_qs);
    EXPECT_EQ(readText(10, 30, 10), u"44        "_qs);
    EXPECT_EQ(readText(10, 50, 10), u"          "_qs) << "there is no current entry";
}

TEST_F(FrmTonedeckShows, formPaintGivesTheInfoDisplaysTheCaptionsOfTheirLabels)
{
    writeSkin(textDisplay(4, 10, 10, 10) + textDisplay(5, 10, 30, 10));
    frmTonedeck& w = loaded();
    w.controls.Lbl[Label::BitRate]->setCaption(u"ten"_qs);
    w.controls.Lbl[Label::SamplingRate]->setCaption(u"eleven"_qs);
    w.Form_Paint();
    EXPECT_EQ(readText(10, 10, 10), u"ten       "_qs);
    EXPECT_EQ(readText(10, 30, 10), u"eleven    "_qs);
}

TEST_F(FrmTonedeckShows, formPaintTakesItsDisplaysInTheirOrder)
{
    // Each lies half over the one before it; the first two read 11 and 23 for 00 and 01.
    writeSkin(textDisplay(1, 12, 10, 2, 1) + textDisplay(2, 20, 10, 2, 2) + textDisplay(3, 28, 10, 8) +
              textDisplay(4, 36, 10, 2) + textDisplay(5, 44, 10, 2) + textDisplay(6, 52, 10, 10));
    const QTime time = withinAMinute([this] {
        loaded().controls.Lbl[Label::BitRate]->setCaption(u"AB"_qs);
        loaded().controls.Lbl[Label::SamplingRate]->setCaption(u"CD"_qs);
        loaded().Form_Paint();
    });
    const QString hour = QLocale::c().toString(time, u"hh AP"_qs).left(1);
    EXPECT_EQ(readText(12, 10, 7), u"12"_qs + hour + u"AC  "_qs);
}

TEST_F(FrmTonedeckShows, theClockGivesLabel9TheHalfOfTheDayInTwelveHoursOnly)
{
    writeSkin(textDisplay(3, 10, 10, 8));
    frmTonedeck& w = loaded();
    FaceLabel& half = *w.controls.Lbl[Label::DayHalf];
    const QTime time = withinAMinute([&] { w.SetDD(DisplayItem::Clock, 0.0); });
    EXPECT_EQ(half.text(), time.hour() < 12 ? u"AM"_qs : u"PM"_qs);
    settings.TimeFmt = 1;
    w.SetDD(DisplayItem::Clock, 0.0);
    EXPECT_EQ(half.text(), u"   "_qs);
}

TEST_F(FrmTonedeckShows, noOtherDisplayTouchesLabel9)
{
    writeSkin(textDisplay(2, 10, 10, 3) + textDisplay(3, 10, 30, 4));
    frmTonedeck& w = loaded();
    w.controls.Lbl[Label::DayHalf]->setCaption(u"mine"_qs);
    w.Form_Paint();
    EXPECT_EQ(w.controls.Lbl[Label::DayHalf]->text(), u"mine"_qs);
}

TEST_F(FrmTonedeckShows, label3ShowsTheClockAsDisplay3Does)
{
    writeSkin(textDisplay(3, 10, 10, 8));
    frmTonedeck& w = loaded();
    for (const int format : {0, 1, 2}) {
        settings.TimeFmt = static_cast<qint16>(format);
        const QTime time = withinAMinute([&] { w.Form_Paint(); });
        const QString clock = w.controls.Lbl[Label::Clock]->text();
        EXPECT_EQ(clock, QLocale::c().toString(time, format == 0 ? u"hh:mm AP"_qs : u"hh:mm   "_qs));
        EXPECT_EQ(clock, readText(10, 10, 5) + (format == 0 ? u" "_qs : u""_qs) +
                             w.controls.Lbl[Label::DayHalf]->text());
    }
}

TEST_F(FrmTonedeckShows, label3HasTheClockOfASkinWithoutAClockDisplay)
{
    writeSkin("");
    settings.TimeFmt = 0;
    const QTime time = withinAMinute([this] { loaded().Form_Paint(); });
    EXPECT_EQ(window().controls.Lbl[Label::Clock]->text(), QLocale::c().toString(time, u"hh:mm AP"_qs));
}

TEST_F(FrmTonedeckShows, theNameMovesOneCharacterACallWhenItScrolls)
{
    writeSkin(textDisplay(6, 10, 10, 10) + textDisplay(4, 10, 30, 10));
    frmTonedeck& w = loaded();
    settings.ScrollName = 1;
    const QString name = u"ABCDEFGHIJKLMNO"_qs;
    const QString around = name + u"  *  "_qs + name;
    for (int round = 0; round < 2; ++round)
        for (int call = 0; call < name.size() + 4; ++call) {
            w.SetDD(DisplayItem::Name, name);
            EXPECT_EQ(readText(10, 10, 10), around.mid(call, 10)) << round << ' ' << call;
            w.SetDD(DisplayItem::BitRate, name);
            EXPECT_EQ(readText(10, 30, 10), name.left(10)) << "the name alone scrolls";
        }
}

TEST_F(FrmTonedeckShows, theNameStaysWhenItDoesNotScrollOrFits)
{
    writeSkin(textDisplay(6, 10, 10, 10));
    frmTonedeck& w = loaded();
    const QString name = u"ABCDEFGHIJKLMNO"_qs;
    for (int call = 0; call < 3; ++call) {
        settings.ScrollName = 0;
        w.SetDD(DisplayItem::Name, name);
        EXPECT_EQ(readText(10, 10, 10), name.left(10));
        settings.ScrollName = 1;
        w.SetDD(DisplayItem::Name, name.left(10));
        EXPECT_EQ(readText(10, 10, 10), name.left(10));
    }
    w.SetDD(DisplayItem::Name, name);
    w.SetDD(DisplayItem::Name, name);
    EXPECT_EQ(readText(10, 10, 10), name.mid(1, 10));
    settings.ScrollName = 0;
    w.SetDD(DisplayItem::Name, name);
    settings.ScrollName = 1;
    w.SetDD(DisplayItem::Name, name);
    EXPECT_EQ(readText(10, 10, 10), name.left(10)) << "it begins anew";
}

TEST_F(FrmTonedeckShows, aShorterTimeLeavesNothingOfALongerOne)
{
    writeSkin("D1,10,10,0,0,9,13,4,0,1,0,Time\n");
    frmTonedeck& w = loaded();
    w.SetDD(DisplayItem::Time, 4.0);
    const QImage shorter = w.face();
    w.SetDD(DisplayItem::Time, 100.0 * 60 + 33);
    ASSERT_NE(w.face(), shorter);
    w.SetDD(DisplayItem::Time, 4.0);
    EXPECT_EQ(w.face(), shorter);
}

TEST_F(FrmTonedeckShows, anEmptyTextLeavesTheBareFace)
{
    writeSkin("D4,10,10,0,0,9,13,4,0,1,3,Rate\n");
    frmTonedeck& w = loaded();
    w.SetDD(DisplayItem::BitRate, QString());
    const QImage bare = w.face();
    w.SetDD(DisplayItem::BitRate, 128.0);
    ASSERT_NE(w.face(), bare);
    w.SetDD(DisplayItem::BitRate, QString());
    EXPECT_EQ(w.face(), bare);
    EXPECT_EQ(pixel(11, 11), facePixel(11, 11));
}

TEST_F(FrmTonedeckShows, whatIsWipedUncoversNoOtherDisplayThatLiesBesideIt)
{
    writeSkin(textDisplay(4, 10, 10, 10) + textDisplay(5, 90, 10, 2));
    frmTonedeck& w = loaded();
    w.SetDD(DisplayItem::SamplingRate, u"XY"_qs);
    w.SetDD(DisplayItem::BitRate, u"ABCDEFGHIJ"_qs);
    w.SetDD(DisplayItem::BitRate, u"A"_qs);
    EXPECT_EQ(readText(90, 10, 2), u"XY"_qs);
    EXPECT_EQ(readText(10, 10, 10), u"A         "_qs);
}

TEST_F(FrmTonedeckShows, aNameOfMillionsOfCharactersIsLaidOutNoFurtherThanItIsSeen)
{
    writeSkin(textDisplay(6, 10, 10, 10) + "L2,10,30,80,15,250,120,30,9,DejaVu Sans,x\n"
                                           "X1,10,45,100,30,10,200,30,250,240,230,12,DejaVu Sans,List\n");
    frmTonedeck& w = loaded();
    // Letters of many writings: each change of writing is a piece of its own for whoever lays it out.
    const QString name = u"Illumination Музыка موسيقى "_qs.repeated(800'000);
    world.directory.write("disk/long.mp3", "x");
    w.PlAddFileFromEditor(u"D:\\"_qs + name);
    const ProcessorTime spent;
    w.SetDD(DisplayItem::Name, name);
    w.controls.Lbl[Label::Name]->setCaption(name);
    imageOf(*w.centralWidget());
    w.controls.Lbl[Label::Name]->resize(80, 60);
    imageOf(*w.centralWidget());
    EXPECT_LT(spent.seconds(), kLayingOutMillions);
}

// --- texts ----------------------------------------------------------------------------------------

TEST_F(FrmTonedeckShows, aLabelHasTheSkinsColourFontAndSize)
{
    writeSkin("L5,10,12,60,30,250,120,30,18,DejaVu Serif,Snooze\nL6,0,0,9,9,0,0,0,9,DejaVu Sans Mono,x\n");
    QFont bold = window().font();
    bold.setBold(true);
    window().setFont(bold);
    FaceLabel& label = *loaded().controls.Lbl[Label::Snooze];
    EXPECT_EQ(label.font().family(), u"DejaVu Serif"_qs);
    EXPECT_EQ(label.font().pixelSize(), 24);
    EXPECT_FALSE(label.font().bold());
    EXPECT_EQ(label.toolTip(), u"Snooze"_qs);
    EXPECT_EQ(window().controls.Lbl[Label::Date]->font().family(), u"DejaVu Sans Mono"_qs);
    EXPECT_EQ(window().controls.Lbl[Label::Date]->font().pixelSize(), 12);

    label.setCaption(kFull);
    const QImage shown = imageOf(*window().centralWidget());
    EXPECT_GT(count(shown.copy(label.geometry()), qRgb(250, 120, 30)), 200);
    EXPECT_EQ(shown.pixel(11, 30), qRgb(250, 120, 30)) << "it begins at the left";
    EXPECT_EQ(count(shown, qRgb(250, 120, 30)), count(shown.copy(label.geometry()), qRgb(250, 120, 30)));
    EXPECT_EQ(shown.pixel(69, 41), facePixel(69, 41)) << "the face shows through";
}

TEST_F(FrmTonedeckShows, aLongLabelOfOneLineIsCutWithDots)
{
    writeSkin("L5,10,12,60,15,250,120,30,9,DejaVu Sans,x\n");
    FaceLabel& label = *loaded().controls.Lbl[Label::Snooze];
    const QFontMetrics metrics(label.font());
    const QString text = u"Illumination without an end"_qs;
    QString cut;
    for (qsizetype length = 1; metrics.horizontalAdvance(text.left(length) + u'\u2026') <= 60; ++length)
        cut = text.left(length) + u'\u2026';
    ASSERT_GT(cut.size(), 3);
    const QSize oneLine(60, 2 * metrics.lineSpacing() - 1);
    const QImage shown = imageOf(label, text, oneLine);
    EXPECT_EQ(shown, imageOf(label, cut, oneLine));
    EXPECT_NE(shown, imageOf(label, text.left(cut.size() - 1), oneLine));
}

TEST_F(FrmTonedeckShows, aLongLabelIsWrappedWhereTwoLinesFit)
{
    writeSkin("L5,10,12,60,15,250,120,30,9,DejaVu Sans,x\n");
    FaceLabel& label = *loaded().controls.Lbl[Label::Snooze];
    const int line = QFontMetrics(label.font()).lineSpacing();
    const int words = QFontMetrics(label.font()).horizontalAdvance(kFull) + 4; // one of two fits
    const auto second = [&](int height) {
        const QImage shown = imageOf(label, kFull + u' ' + kFull, {words, height});
        return count(shown.copy(0, line + 2, words, height - line - 2), qRgb(250, 120, 30));
    };
    EXPECT_EQ(second(2 * line - 1), 0);
    EXPECT_GT(second(2 * line), 50);
}

TEST_F(FrmTonedeckShows, thePlaylistHasTheSkinsColoursFontAndSize)
{
    writeSkin("X1,10,20,100,50,10,200,30,250,240,230,12,DejaVu Serif,List\n");
    world.directory.write("program/playlist.m3u", "D:\\" + kFull.toUtf8() + ".mp3\r\n");
    world.settings.save(u"tonedeckpro"_qs, u"config"_qs, u"StartMd"_qs, u"1"_qs);
    QFont bold = window().font();
    bold.setBold(true);
    window().setFont(bold);
    PlaylistBox& list = *loaded().controls.PlNames;
    EXPECT_EQ(list.font().family(), u"DejaVu Serif"_qs);
    EXPECT_EQ(list.font().pixelSize(), 16);
    EXPECT_FALSE(list.font().bold());
    EXPECT_EQ(list.toolTip(), u"List"_qs);
    ASSERT_EQ(list.model()->index(0, 0).data().toString(), kFull);
    list.setCurrentIndex({}); // an entry that is selected has other colours
    const QImage shown = imageOf(*window().centralWidget());
    EXPECT_GT(count(shown.copy(list.geometry()), qRgb(10, 200, 30)), 50);
    EXPECT_EQ(shown.pixel(10, 69), qRgb(250, 240, 230));
    EXPECT_EQ(shown.pixel(109, 69), qRgb(250, 240, 230));
    EXPECT_EQ(shown.pixel(9, 69), facePixel(9, 69));
}

// --- lights ---------------------------------------------------------------------------------------

TEST_F(FrmTonedeckShows, drawsTheShapesOfLights)
{
    // Places of 16 x 40 pixels at 2, 22, 42 ...; those of these lights are shown while nothing plays.
    constexpr int kNumbers[] = {2, 11, 12, 13, 14, 15};
    QByteArray lines;
    for (int shape = 0; shape < 6; ++shape)
        lines += 'I' + QByteArray::number(kNumbers[shape]) + ',' + QByteArray::number(2 + 20 * shape) +
                 ",20,16,40,250,120,30," + QByteArray::number(shape) + ",tip\n";
    writeSkin(lines);
    loaded();
    struct Expected {
        const char* name;
        Points drawn;
        Points bare; // nothing of the light, not even a soft edge
        Points soft; // partly or not at all
    };
    const Points corners{{0, 0}, {15, 0}, {0, 39}, {15, 39}};
    const Points squareCorners{{0, 12}, {15, 12}, {0, 27}, {15, 27}};
    const Points outsideSquare{{8, 11}, {8, 28}, {0, 0}, {15, 39}};
    const Points squareSides{{8, 12}, {8, 27}, {0, 20}, {15, 20}};
    const auto with = [](Points points, const Points& more) {
        points.insert(points.end(), more.begin(), more.end());
        return points;
    };
    const Expected expected[] = {
        {"rectangle", with(corners, {{8, 0}, {0, 20}}), {{-1, 20}, {16, 20}, {8, -1}, {8, 40}}, {}},
        {"square", with(squareCorners, squareSides), outsideSquare, {}},
        {"oval", {{8, 2}, {8, 37}, {1, 20}, {14, 20}}, with(corners, {{2, 2}, {13, 37}}), {}},
        {"circle", {{8, 13}, {8, 26}, {1, 20}, {14, 20}}, with(squareCorners, outsideSquare), {{4, 12}}},
        {"rounded rectangle", {{8, 0}, {8, 39}, {0, 20}, {15, 20}, {4, 1}, {0, 6}}, corners, {}},
        {"rounded square", with(squareSides, {{5, 13}, {0, 18}}), with(squareCorners, outsideSquare), {}}};
    const QRgb colour = qRgb(250, 120, 30);
    for (int shape = 0; shape < 6; ++shape) {
        const Expected& e = expected[shape];
        const QPoint corner(2 + 20 * shape, 20);
        EXPECT_EQ(pixel(corner.x() + 8, corner.y() + 20), colour) << e.name;
        for (const QPoint& p : e.drawn)
            EXPECT_EQ(pixel(corner.x() + p.x(), corner.y() + p.y()), colour)
                << e.name << ' ' << p.x() << ' ' << p.y();
        for (const QPoint& p : e.bare)
            EXPECT_EQ(pixel(corner.x() + p.x(), corner.y() + p.y()),
                      facePixel(corner.x() + p.x(), corner.y() + p.y()))
                << e.name << ' ' << p.x() << ' ' << p.y();
        for (const QPoint& p : e.soft)
            EXPECT_NE(pixel(corner.x() + p.x(), corner.y() + p.y()), colour)
                << e.name << ' ' << p.x() << ' ' << p.y();
    }
}

TEST_F(FrmTonedeckShows, aLightOfTheSkinBeforeIsNotOnTheFaceThoughItIsShownAgain)
{
    writeSkin("I2,10,10,20,20,250,120,30,0,x\nI12,40,10,20,20,250,120,30,3,x\n");
    writeSkin("I12,80,40,4,4,0,255,0,0,x\n", "second.skin");
    frmTonedeck& w = loaded();
    ASSERT_EQ(pixel(15, 15), qRgb(250, 120, 30));
    w.LoadSkin(u"second.skin"_qs, true);
    EXPECT_FALSE(w.controls.Light[2]->isHidden());
    EXPECT_EQ(count(w.face(), qRgb(250, 120, 30)), 0);
    EXPECT_EQ(count(w.face(), qRgb(0, 255, 0)), 16);
    EXPECT_EQ(pixel(15, 15), facePixel(15, 15));
    EXPECT_EQ(pixel(50, 20), facePixel(50, 20));
    w.ShowLights();
    EXPECT_EQ(count(w.face(), qRgb(250, 120, 30)), 0);
}
