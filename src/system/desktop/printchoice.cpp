#include "system/desktop/printchoice.h"

#include <QPageRanges>
#include <QPrintEngine>
#include <QPrinter>

#include <algorithm>
#include <numeric>

namespace {

const QString kPageSet = QStringLiteral("page-set");
const QString kOdd = QStringLiteral("odd");
const QString kEven = QStringLiteral("even");

// The dialog's further settings. The toolkit has no public name for them.
QStringList furtherOptions(const QPrinter& printer)
{
    constexpr auto kOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);
    return printer.printEngine()->property(kOptions).toStringList();
}

QString valueOf(const QStringList& options, const QString& name)
{
    for (qsizetype i = 0; i + 1 < options.size(); i += 2)
        if (options[i] == name)
            return options[i + 1];
    return {};
}

// What the pages themselves follow must not be followed by the printing system again.
QStringList withoutPages(const QStringList& options)
{
    QStringList left;
    for (qsizetype i = 0; i + 1 < options.size(); i += 2)
        if (options[i] != kPageSet && options[i] != QStringLiteral("page-ranges"))
            left << options[i] << options[i + 1];
    return left;
}

// The dialog turns the two round when the chosen pages begin with an even one, because the printing system
// would count from there.
QString pageSet(const QPrinter& printer, bool isRange)
{
    const QString set = valueOf(furtherOptions(printer), kPageSet);
    if (!isRange || printer.fromPage() % 2 != 0)
        return set;
    return set == kOdd ? kEven : set == kEven ? kOdd : set;
}

std::vector<int> chosenPages(const QPrinter& printer, int count)
{
    const QPageRanges ranges = printer.pageRanges();
    const bool isRange = printer.printRange() == QPrinter::PageRange && !ranges.isEmpty();
    const QString set = pageSet(printer, isRange);
    std::vector<int> pages;
    for (int page = 1; page <= count; ++page)
        if ((!isRange || ranges.contains(page)) && set != (page % 2 == 0 ? kOdd : kEven))
            pages.push_back(page);
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::reverse(pages.begin(), pages.end());
    return pages;
}

// A file has the copies in itself.
std::vector<int> repeated(const std::vector<int>& pages, int copies, bool isCollated)
{
    std::vector<int> all;
    for (std::size_t i = 0; i < pages.size() * static_cast<std::size_t>(copies); ++i)
        all.push_back(pages[isCollated ? i % pages.size() : i / static_cast<std::size_t>(copies)]);
    return all;
}

QString sides(const QPrinter& printer)
{
    const bool isLong = printer.duplex() == QPrinter::DuplexLongSide ||
                        (printer.duplex() == QPrinter::DuplexAuto &&
                         printer.pageLayout().orientation() == QPageLayout::Portrait);
    return printer.duplex() == QPrinter::DuplexNone ? QStringLiteral("one-sided")
           : isLong                                 ? QStringLiteral("two-sided-long-edge")
                                                    : QStringLiteral("two-sided-short-edge");
}

} // namespace

PrintChoice choiceOf(QPrinter& printer, int pages)
{
    PrintChoice choice{.file = printer.outputFileName(),
                       .title = printer.docName(),
                       .layout = printer.pageLayout(),
                       .pages = chosenPages(printer, pages),
                       .copies = printer.copyCount(),
                       .isCollated = printer.collateCopies()};
    if (!choice.file.isEmpty()) {
        choice.pages = repeated(choice.pages, std::exchange(choice.copies, 1), choice.isCollated);
        return choice;
    }
    choice.printer = printer.printerName();
    choice.options = withoutPages(furtherOptions(printer)) << QStringLiteral("sides") << sides(printer);
    return choice;
}
