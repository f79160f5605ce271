#include "design.h"

#include "commands.h"
#include "strokes.h"

#include <cmath>
#include <numbers>

SkinColour skinColour(const QColor& colour)
{
    return static_cast<SkinColour>(colour.red() + 256 * colour.green() + 65536 * colour.blue());
}

void drawSmallCaption(QPainter& painter, const Caption& caption)
{
    drawCaption(painter, caption.at, caption.text, caption.colour);
}

void addRow(Design& design, const QRect& first, int step, int style, std::initializer_list<int> codes)
{
    QRect place = first;
    for (const int code : codes) {
        design.keys.push_back({code, place, style, {}});
        place.translate(step, 0);
    }
}

void drawSign(QPainter& painter, const Key& key, const QColor& colour, double scale)
{
    if (key.caption.isEmpty())
        drawIcon(painter, key.place, command(key.code).icon, colour, scale);
    else
        drawCaptionCentred(painter, key.place, key.caption, colour);
}

void addLabel(Design& design, int number, const QRect& place, const QColor& colour, int points,
              const QString& toolTip)
{
    design.labels.push_back({number, place, skinColour(colour), points, u"Sans Serif"_qs, toolTip});
}

void addLight(Design& design, int number, const QRect& place, const QColor& colour, LightShape shape)
{
    design.lights.push_back({number, place, skinColour(colour), shape});
}

void addDisplay(Design& design, int number, QPoint at, const DisplayFont& font, const PaintGlyph& paint,
                const QString& toolTip)
{
    const bool time = font.cells == 0 || number == 3;
    const int width = time ? 4 * font.cell.width() + font.separator : font.cell.width() * font.cells;
    SkinDisplay display{number, QRect(at, QSize(width, font.cell.height())), font, toolTip};
    design.displays.push_back({display, paint});
}

void addSlider(Design& design, int number, const QRect& track, QSize thumb,
               const std::function<void(QPainter&, const QRect&)>& paint, const QString& toolTip)
{
    design.sliders.push_back({{number, track, QRect(QPoint(), thumb), toolTip}, paint});
}

std::vector<QPoint> roundedOutline(const QRect& place, int radius)
{
    constexpr int kSteps = 8;
    const double right = place.x() + place.width();
    const double bottom = place.y() + place.height();
    const std::array<QPointF, 4> centres = {
        QPointF(right - radius, place.y() + radius), QPointF(right - radius, bottom - radius),
        QPointF(place.x() + radius, bottom - radius), QPointF(place.x() + radius, place.y() + radius)};
    std::vector<QPoint> points;
    for (std::size_t corner = 0; corner < centres.size(); ++corner)
        for (int step = 0; step <= kSteps; ++step) {
            const double turn = static_cast<double>(corner) - 1 + static_cast<double>(step) / kSteps;
            const double angle = turn * std::numbers::pi / 2;
            const QPoint point =
                (centres.at(corner) + radius * QPointF(std::cos(angle), std::sin(angle))).toPoint();
            if (points.empty() || points.back() != point)
                points.push_back(point);
        }
    return points;
}
