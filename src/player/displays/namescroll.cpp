#include "player/displays/displaytext.h"

#include <algorithm>
#include <limits>

namespace {

constexpr QStringView kBetween = u"  *  ";
constexpr int kPlacesAfterText = 4; // kept: one less than kBetween, so that its last blank is never the first

} // namespace

QString NameScroll::next(const QString& text, int cells, bool scrolls)
{
    if (!scrolls || text.size() <= cells) {
        m_counter = 1;
        return text;
    }
    if (m_counter > text.size() + kPlacesAfterText)
        m_counter = 1;
    const qsizetype start = m_counter - 1;
    // A longer text than the counter can reach begins anew at the counter's end.
    m_counter =
        m_counter == std::numeric_limits<qint16>::max() ? qint16{1} : static_cast<qint16>(m_counter + 1);

    const int most = cells >= kFirstCountedCells ? std::min(cells, kMostCells) : kMostCells;
    QString shown = text.mid(start, most);
    shown += kBetween.mid(std::max<qsizetype>(start - text.size(), 0));
    shown += QStringView(text).left(most);
    shown.truncate(most);
    return shown;
}
