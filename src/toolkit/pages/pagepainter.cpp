#include "toolkit/pages/pagepainter.h"

#include "toolkit/grids/textpainter.h"
#include "toolkit/pages/fontwidths.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <limits>

namespace {

constexpr double kRule = 0.75; // points

// Texts are drawn with a large font on a painter that is scaled down: fonts have whole sizes, and a large one
// is as wide as its outlines say.
double scaleOf(const ReportFont& font)
{
    return font.size / CharacterWidths::kUnits;
}

double indent(FieldAlign align, double space)
{
    return align == FieldAlign::Left ? 0 : align == FieldAlign::Center ? space / 2 : space;
}

// The line is never thinner than what the device can show.
void drawRule(QPainter& painter, const QRectF& place)
{
    const double pixels = kRule * std::abs(painter.worldTransform().m22());
    painter.setPen(QPen(Qt::black, pixels < 1 ? 0 : kRule, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QLineF(place.left(), place.center().y(), place.right(), place.center().y()));
}

} // namespace

struct PagePainter::Texts {
    explicit Texts(const ReportFont& of)
        : font(of), large(pageFont(CharacterWidths::kUnits, of.bold)), painter(large)
    {
    }

    ReportFont font;
    QFont large;
    TextPainter painter;
};

PagePainter::PagePainter(const CharacterWidths& widths)
    : m_widths(widths), m_plain(widths, false), m_bold(widths, true)
{
}

PagePainter::~PagePainter() = default;

PagePainter::Texts& PagePainter::textsOf(const ReportFont& font)
{
    const auto found =
        std::find_if(m_texts.begin(), m_texts.end(), [&](const auto& texts) { return texts->font == font; });
    return found != m_texts.end() ? **found : *m_texts.emplace_back(std::make_unique<Texts>(font));
}

// In the font's units.
double PagePainter::widthOf(const PageItem& item) const
{
    const CharacterTable& table = item.font.bold ? m_bold : m_plain;
    int width = 0;
    for (const QChar c : item.text)
        width += table.of(c.unicode());
    return width;
}

void PagePainter::add(QPainter& painter, const PageItem& item)
{
    Texts& texts = textsOf(item.font);
    const double scale = scaleOf(item.font);
    const double space = item.place.width() / scale - widthOf(item);
    const QPointF base(item.place.left() / scale + indent(item.align, space),
                       item.place.top() / scale + m_widths.ascent());
    constexpr double kAnyWidth = std::numeric_limits<double>::max();
    if (space < 0 || !texts.painter.add(item.text, base, kAnyWidth))
        drawByScript(painter, item, texts.large);
}

void PagePainter::drawByScript(QPainter& painter, const PageItem& item, const QFont& font) const
{
    const double scale = scaleOf(item.font);
    const double room = item.place.width() / scale;
    const double width = QFontMetricsF(font).horizontalAdvance(item.text);
    const double squeeze = width > room ? room / width : 1;
    painter.save();
    painter.translate(item.place.topLeft());
    painter.scale(scale * squeeze, scale);
    painter.setFont(font);
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.drawText(QPointF(indent(item.align, std::max(room - width, 0.0)), m_widths.ascent()), item.text);
    painter.restore();
}

void PagePainter::paint(QPainter& painter, const std::vector<PageItem>& items)
{
    painter.save();
    painter.setPen(Qt::black);
    for (const PageItem& item : items)
        if (!item.isRule)
            add(painter, item);
    for (const auto& texts : m_texts) {
        painter.save();
        painter.scale(scaleOf(texts->font), scaleOf(texts->font));
        texts->painter.draw(painter);
        painter.restore();
    }
    for (const PageItem& item : items)
        if (item.isRule)
            drawRule(painter, item.place);
    painter.restore();
}

void paintPage(QPainter& painter, const std::vector<PageItem>& items, const CharacterWidths& widths)
{
    PagePainter(widths).paint(painter, items);
}
