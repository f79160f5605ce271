#include "toolkit/grids/gridlook.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>

namespace {

constexpr int kWidestColumn = 380; // pixels
constexpr int kCellMargin = 14;
constexpr qsizetype kLongestShown = 1000; // characters; more than any column is wide, and quick to lay out

} // namespace

QString gridlook::shownText(QString text)
{
    qsizetype size = std::min(text.size(), kLongestShown);
    while (size > 0 && text[size - 1] <= u' ')
        --size;
    text.truncate(size);
    for (QChar& c : text)
        if (c < u' ')
            c = u' ';
    return text;
}

void gridlook::setUp(QTableView& view)
{
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setAlternatingRowColors(true);
    view.setWordWrap(false);
    view.setTabKeyNavigation(false);
    view.setCornerButtonEnabled(false);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(view.fontMetrics().height() + 8);
}

void gridlook::setHeadings(QTableView& view, QHeaderView* headings)
{
    view.setHorizontalHeader(headings);
    headings->setMinimumSectionSize(kNarrowestColumn / 2);
    headings->setStretchLastSection(true);
}

int gridlook::columnWidth(const QTableView& view, int column, int firstRow, int endRow,
                          const std::function<QString(int row, int column)>& textAt)
{
    const QFontMetrics metrics = view.fontMetrics();
    int width = std::max(kNarrowestColumn, view.horizontalHeader()->sectionSizeHint(column));
    for (int row = firstRow; row < endRow && width < kWidestColumn; ++row) {
        const QString text = shownText(textAt(row, column).left(kWidestColumn));
        width = std::max(width, metrics.horizontalAdvance(text) + kCellMargin);
    }
    return std::min(width, kWidestColumn);
}
