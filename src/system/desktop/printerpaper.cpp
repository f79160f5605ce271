#include "system/desktop/printerpaper.h"

#include "system/desktop/printerturn.h"

#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>
#include <system_error>
#include <thread>

namespace {

constexpr std::chrono::milliseconds kShortPatience{300};
constexpr qint64 kGoodFor = 30'000; // milliseconds

// Each edge has our margin, or what the printer cannot print on.
QPageLayout withMargins(QPageLayout layout)
{
    layout.setUnits(QPageLayout::Point);
    const QMarginsF ours = Paper().margins;
    const QMarginsF needed = layout.minimumMargins();
    layout.setMargins({std::max(ours.left(), needed.left()), std::max(ours.top(), needed.top()),
                       std::max(ours.right(), needed.right()), std::max(ours.bottom(), needed.bottom())});
    return layout;
}

std::optional<Paper> ofDefaultPrinter()
{
    const PrinterTurn turn;
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull())
        return {};
    QPrinter printer(info, QPrinter::HighResolution);
    const bool isTold = info.defaultPageSize().isValid() && printer.setPageSize(info.defaultPageSize());
    return isTold ? std::optional(PrinterPaper::of(withMargins(printer.pageLayout()))) : std::nullopt;
}

// No error may leave the thread.
std::optional<Paper> ofDefaultPrinterOrNone()
{
    try {
        return ofDefaultPrinter();
    } catch (...) {
        return {};
    }
}

} // namespace

Paper PrinterPaper::of(const QPageLayout& layout)
{
    return {layout.fullRect(QPageLayout::Point).size(), layout.margins(QPageLayout::Point)};
}

Paper PrinterPaper::ofLocale(const QLocale& locale)
{
    const bool isLetter = locale.measurementSystem() == QLocale::ImperialUSSystem;
    return {QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4).size(QPageSize::Point)};
}

Paper PrinterPaper::turned(const Paper& paper)
{
    const QMarginsF& m = paper.margins;
    return {paper.size.transposed(), {m.bottom(), m.left(), m.top(), m.right()}};
}

void PrinterPaper::ask()
{
    std::promise<Answer> answer;
    m_asked = answer.get_future();
    // Nobody waits for the thread's end, which may never come: PrinterTurn::takeForGood() is for the
    // program's.
    try {
        std::thread([answer = std::move(answer)]() mutable {
            answer.set_value(ofDefaultPrinterOrNone());
        }).detach();
    } catch (const std::system_error&) { // there are too many threads
        m_asked = {};
    }
}

bool PrinterPaper::isKnown(std::chrono::milliseconds patience)
{
    const bool isFresh = m_since.isValid() && !m_since.hasExpired(kGoodFor);
    if (!isFresh && !m_asked.valid())
        ask();
    if (!m_asked.valid())
        return true;
    if (m_asked.wait_for(patience) != std::future_status::ready)
        return false;
    m_answer = m_asked.get();
    m_since.start();
    return true;
}

// Whoever asks again meanwhile does not wait again.
Paper PrinterPaper::paper()
{
    isKnown(m_asked.valid() ? std::chrono::milliseconds(0) : kShortPatience);
    return m_answer.value_or(ofLocale());
}
