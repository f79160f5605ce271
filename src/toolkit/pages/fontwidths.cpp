#include "toolkit/pages/fontwidths.h"

#include <QFontDatabase>

namespace {

QFontMetricsF metricsOf(bool bold)
{
    return QFontMetricsF(pageFont(CharacterWidths::kUnits, bold));
}

CharacterWidths::Table tableOf(const QFontMetricsF& metrics)
{
    CharacterWidths::Table table;
    for (std::size_t c = ' '; c < table.ascii.size(); ++c)
        table.ascii[c] = qRound(metrics.horizontalAdvance(QChar(static_cast<char16_t>(c))));
    return table;
}

} // namespace

QFont pageFont(double size, bool bold)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(qRound(size));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    return font;
}

FontWidths::FontWidths()
    : m_plainMetrics(metricsOf(false)), m_boldMetrics(metricsOf(true)), m_plain(tableOf(m_plainMetrics)),
      m_bold(tableOf(m_boldMetrics))
{
}

int FontWidths::of(char32_t character, bool bold) const
{
    const QFontMetricsF& metrics = bold ? m_boldMetrics : m_plainMetrics;
    return qRound(metrics.horizontalAdvance(QString::fromUcs4(&character, 1)));
}

int FontWidths::ascent() const
{
    return qRound(m_plainMetrics.ascent());
}

int FontWidths::lineHeight() const
{
    return qRound(m_plainMetrics.lineSpacing());
}
