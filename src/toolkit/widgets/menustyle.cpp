#include "toolkit/widgets/menustyle.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QPainter>
#include <QStyleOption>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kContrast = 3.2; // a little more than is asked for, because edges are blended
constexpr qreal kWidth = 2;
constexpr qreal kRadius = 3;

double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

// Returns what the frame may lie on.
QList<QColor> groundsOf(const QPalette& palette)
{
    return {palette.color(QPalette::Window), palette.color(QPalette::Button), palette.color(QPalette::Base)};
}

void drawFocus(QPainter* painter, const QStyleOption* option, const QWidget* widget)
{
    const QPalette& palette = option->palette;
    const bool isCell = qobject_cast<const QAbstractItemView*>(widget);
    const QColor colour =
        isCell ? palette.color(QPalette::HighlightedText)
               : MenuStyle::focusColour(palette.color(QPalette::Highlight), groundsOf(palette));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(colour, kWidth));
    painter->drawRoundedRect(QRectF(option->rect).adjusted(1, 1, -1, -1), kRadius, kRadius);
    painter->restore();
}

bool hasFocus(const QStyleOption* option)
{
    return option->state.testFlag(QStyle::State_HasFocus) && option->state.testFlag(QStyle::State_Enabled);
}

} // namespace

QIcon MenuStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    return icon == SP_ToolBarHorizontalExtensionButton ? QIcon()
                                                       : QProxyStyle::standardIcon(icon, option, widget);
}

QColor MenuStyle::focusColour(QColor highlight, const QList<QColor>& grounds)
{
    const auto standsOut = [&](const QColor& colour) {
        return std::ranges::all_of(
            grounds, [&](const QColor& ground) { return contrast(colour, ground) >= kContrast; });
    };
    const bool isDark = luminance(grounds.constFirst()) < 0.18;
    for (int step = 0; step < 24 && !standsOut(highlight); ++step)
        highlight = isDark ? highlight.lighter(115) : highlight.darker(110);
    if (standsOut(highlight))
        return highlight;
    return isDark ? Qt::white : Qt::black;
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    if (element == PE_FrameFocusRect)
        return drawFocus(painter, option, widget);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isBox =
        element == PE_PanelLineEdit && !(widget && qobject_cast<QComboBox*>(widget->parentWidget()));
    if (isBox && hasFocus(option))
        drawFocus(painter, option, widget);
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_PushButton && hasFocus(option))
        drawFocus(painter, option, widget);
}

void MenuStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox && hasFocus(option))
        drawFocus(painter, option, widget);
}
