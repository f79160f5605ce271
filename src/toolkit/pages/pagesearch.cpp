#include "toolkit/pages/pagesearch.h"

#include <QLocale>

namespace {

constexpr std::chrono::milliseconds kSlice{8};

} // namespace

PageSearch::PageSearch(QObject* parent) : QObject(parent)
{
    connect(&m_slices, &QTimer::timeout, this, &PageSearch::work);
}

void PageSearch::begin(const Report& report, const QString& text, int fromRow)
{
    end();
    m_text = text;
    if (text.isEmpty())
        return;
    m_finder = std::make_unique<TextFinder>(report, text);
    m_fromRow = fromRow;
    m_slices.start(0);
}

void PageSearch::end()
{
    m_slices.stop();
    m_finder.reset();
    m_text.clear();
    m_current = -1;
}

void PageSearch::work()
{
    m_finder->goOn(kSlice);
    if (m_finder->isDone())
        m_slices.stop();
    settle();
    Q_EMIT counted();
}

// Begins with a hit as soon as one is known to be the first.
void PageSearch::settle()
{
    if (m_current >= 0 || m_finder->count() == 0)
        return;
    const std::int64_t first = m_finder->firstFrom(m_fromRow);
    if (first == m_finder->count() && !m_finder->isDone())
        return;
    m_current = first % m_finder->count();
    Q_EMIT currentChanged();
}

// While it still counts, nobody knows what comes behind the last hit or before the first.
void PageSearch::goOn(int direction)
{
    if (m_current < 0)
        return;
    const std::int64_t wanted = m_current + direction;
    const std::int64_t count = m_finder->count();
    if ((wanted < 0 || wanted >= count) && !m_finder->isDone())
        return;
    m_current = (wanted + count) % count;
    Q_EMIT currentChanged();
}

std::optional<TextFinder::Hit> PageSearch::current() const
{
    if (m_current < 0)
        return std::nullopt;
    return m_finder->hit(m_current);
}

QString PageSearch::foundText() const
{
    if (!m_finder)
        return {};
    if (m_finder->count() == 0)
        return m_finder->isDone() ? tr("Nothing found") : tr("Searching …");
    const QString count = QLocale().toString(static_cast<qlonglong>(m_finder->count()));
    const QString number = QLocale().toString(static_cast<qlonglong>(m_current + 1));
    const QString known = m_finder->isDone() ? count : count + QStringLiteral(" …");
    return m_current < 0 ? known : tr("%1 of %2").arg(number, known);
}
