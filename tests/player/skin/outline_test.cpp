#include "player/skin/outline.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <limits>
#include <random>

namespace {

using Polygon = std::vector<QPoint>;

Polygon rectangle(int x, int y, int width, int height)
{
    return {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}};
}

// Draws the runs: "#" inside, "." outside.
QStringList drawn(const SkinOutline& outline, QSize window)
{
    QStringList rows(window.height(), QString(window.width(), u'.'));
    for (const OutlineRun& run : outlineRuns(outline, window))
        for (int x = run.left; x < run.right; ++x)
            rows[run.row][x] = u'#';
    return rows;
}

} // namespace

TEST(OutlineRuns, takeThePixelsOfARectangleFromItsFirstToBeforeItsLastEdge)
{
    EXPECT_EQ(drawn({rectangle(1, 1, 3, 2)}, {5, 4}),
              (QStringList{u"....."_qs, u".###."_qs, u".###."_qs, u"....."_qs}));
}

TEST(OutlineRuns, closeAPolygonWhetherItsFirstPointIsRepeatedOrNot)
{
    Polygon closed = rectangle(0, 0, 2, 2);
    closed.push_back(closed.front());
    EXPECT_EQ(outlineRuns({closed}, {4, 4}), outlineRuns({rectangle(0, 0, 2, 2)}, {4, 4}));
}

TEST(OutlineRuns, leaveOutWhatLiesInTwoPolygons)
{
    EXPECT_EQ(drawn({rectangle(0, 0, 5, 3), rectangle(1, 1, 3, 1)}, {5, 3}),
              (QStringList{u"#####"_qs, u"#...#"_qs, u"#####"_qs}));
}

TEST(OutlineRuns, leaveOutTheMiddleOfAPolygonThatCrossesItself)
{
    const Polygon twice{{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}, {4, 0}, {4, 4}, {0, 4}};
    EXPECT_TRUE(outlineRuns({twice}, {4, 4}).empty());
}

TEST(OutlineRuns, areTheSameOnBothSidesOfASymmetricShape)
{
    const QStringList rows =
        drawn({Polygon{{2, 0}, {5, 0}, {7, 4}, {7, 5}, {5, 9}, {2, 9}, {0, 5}, {0, 4}}}, {7, 9});
    for (const QString& row : rows) {
        QString mirrored;
        for (const QChar c : row)
            mirrored.prepend(c);
        EXPECT_EQ(row, mirrored) << qPrintable(rows.join(u'\n'));
    }
    EXPECT_EQ(rows.first(), rows.last());
    EXPECT_EQ(rows[4], QString(7, u'#'));
    EXPECT_NE(rows[0], rows[4]);
}

TEST(OutlineRuns, cutWhatLiesBeyondTheWindow)
{
    EXPECT_EQ(drawn({rectangle(-10, -10, 12, 100)}, {4, 2}), (QStringList{u"##.."_qs, u"##.."_qs}));
    EXPECT_TRUE(outlineRuns({rectangle(10, 10, 5, 5)}, {4, 4}).empty());
}

TEST(OutlineRuns, surviveCoordinatesAtTheEndsOfTheirRange)
{
    using Limits = std::numeric_limits<int>;
    const Polygon huge{{Limits::min(), Limits::min()},
                       {Limits::max(), Limits::min()},
                       {Limits::max(), Limits::max()},
                       {Limits::min(), Limits::max()}};
    EXPECT_EQ(drawn({huge}, {3, 2}), (QStringList{u"###"_qs, u"###"_qs}));
}

TEST(OutlineRuns, areNoneForNoPointsAndForNoWindow)
{
    EXPECT_TRUE(outlineRuns({}, {4, 4}).empty());
    EXPECT_TRUE(outlineRuns({{}}, {4, 4}).empty());
    EXPECT_TRUE(outlineRuns({{{1, 1}}}, {4, 4}).empty());
    EXPECT_TRUE(outlineRuns({{{0, 0}, {3, 3}}}, {4, 4}).empty());
    EXPECT_TRUE(outlineRuns({rectangle(0, 0, 2, 2)}, {0, 4}).empty());
}

TEST(OutlineRectangles, joinEqualRunsOfFollowingRows)
{
    EXPECT_EQ(outlineRectangles({rectangle(1, 1, 3, 5)}, {6, 8}), std::vector<QRect>{QRect(1, 1, 3, 5)});
    EXPECT_EQ(
        outlineRectangles({rectangle(0, 0, 6, 2), rectangle(0, 2, 2, 4), rectangle(4, 2, 2, 4)}, {6, 6}),
        (std::vector<QRect>{QRect(0, 0, 6, 2), QRect(0, 2, 2, 4), QRect(4, 2, 2, 4)}));
    EXPECT_EQ(outlineRectangles({rectangle(0, 0, 6, 2), rectangle(0, 3, 6, 2)}, {6, 6}),
              (std::vector<QRect>{QRect(0, 0, 6, 2), QRect(0, 3, 6, 2)}))
        << "a row between them";
}

TEST(OutlineRectangles, coverWhatTheRunsCover)
{
    const SkinOutline shape{{{2, 0}, {50, 3}, {47, 29}, {10, 40}, {0, 11}}, rectangle(10, 5, 20, 9)};
    QStringList drawnOnce(40, QString(60, u'.'));
    for (const QRect& r : outlineRectangles(shape, {60, 40}))
        for (int y = r.top(); y <= r.bottom(); ++y)
            for (int x = r.left(); x <= r.right(); ++x) {
                EXPECT_EQ(drawnOnce[y][x], u'.');
                drawnOnce[y][x] = u'#';
            }
    EXPECT_EQ(drawnOnce, drawn(shape, {60, 40}));
}

TEST(OutlineRectangles, areFewForAComb)
{
    Polygon comb;
    for (int tooth = 0; tooth < 1000; ++tooth) {
        comb.insert(comb.end(),
                    {{2 * tooth, 0}, {2 * tooth, 2000}, {2 * tooth + 1, 2000}, {2 * tooth + 1, 0}});
    }
    EXPECT_EQ(outlineRectangles({comb}, {2000, 2000}).size(), 1000U);
}

TEST(OutlineRectangles, areNoneWhenThereWouldBeTooMany)
{
    SkinOutline board;
    for (int y = 0; y < 400; ++y) // rows of which no two that follow are equal
        for (int x = 0; x < 400; ++x)
            board.push_back(rectangle(2 * x + y % 2, y, 1, 1));
    EXPECT_FALSE(outlineRuns(board, {1000, 400}).empty());
    EXPECT_TRUE(outlineRectangles(board, {1000, 400}).empty());
}

TEST(OutlineRuns, areThePixelsWhoseMiddlesLieInside)
{
    // Tells the same by the definition, pixel by pixel, in whole numbers: crossings to the left of the
    // middle.
    const auto inside = [](const SkinOutline& outline, int column, int row) {
        bool odd = false;
        for (const Polygon& polygon : outline)
            for (std::size_t i = 0; i < polygon.size(); ++i) {
                QPoint from = polygon[i];
                QPoint to = polygon[(i + 1) % polygon.size()];
                if (from.y() > to.y())
                    std::swap(from, to);
                if (from.y() > row || to.y() <= row)
                    continue;
                const qint64 rise = to.y() - from.y();
                const qint64 twice =
                    2 * rise * from.x() + (to.x() - from.x()) * qint64(2 * (row - from.y()) + 1);
                odd ^= twice <= rise * (2 * column + 1);
            }
        return odd;
    };
    std::minstd_rand random(1);
    const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
    for (int round = 0; round < 200; ++round) {
        SkinOutline outline(2);
        for (Polygon& polygon : outline)
            for (int point = 0; point < 9; ++point)
                polygon.emplace_back(upTo(60) - 15, upTo(40) - 10);
        const QStringList rows = drawn(outline, {30, 20});
        for (int row = 0; row < 20; ++row)
            for (int column = 0; column < 30; ++column)
                ASSERT_EQ(rows[row][column] == u'#', inside(outline, column, row)) << column << ' ' << row;
    }
}

namespace {

// Makes a comb whose every edge goes up or down the whole window; when it has come to the right it begins
// anew.
Polygon combOf(int edges, QSize window)
{
    Polygon comb;
    for (int i = 0; i < edges; ++i)
        comb.emplace_back(i % window.width(), i % 2 ? window.height() : 0);
    return comb;
}

// Seconds: far above what it takes, under sanitizers too, and far below what it took row by row and edge by
// edge. The benchmark tells how fast it is.
constexpr double kHang = 10;

double secondsOf(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

} // namespace

TEST(OutlineRectangles, areNoHangForNineHundredThousandEdges)
{
    constexpr QSize kWindow(2048, 2048);
    const Polygon comb = combOf(900'000, kWindow);
    std::vector<QRect> found;
    EXPECT_LT(secondsOf([&] { found = outlineRectangles({comb}, kWindow); }), kHang);
    EXPECT_FALSE(found.empty());
    EXPECT_EQ(found, outlineRectangles({combOf(900'000 % 4096, kWindow)}, kWindow))
        << "what comes twice is none";
}

// All edges differ: it is a picture of noise, which no window system takes.
TEST(OutlineRectangles, areNoneWhereTheEdgesCrossMoreRowsThanAnyShape)
{
    std::minstd_rand random(1);
    Polygon noise;
    for (int i = 0; i < 900'000; ++i)
        noise.emplace_back(static_cast<int>(random() % 2048), static_cast<int>(random() % 2048));
    std::vector<QRect> found{{}};
    EXPECT_LT(secondsOf([&] { found = outlineRectangles({noise}, {2048, 2048}); }), kHang);
    EXPECT_TRUE(found.empty());
}
