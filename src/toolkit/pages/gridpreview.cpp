#include "toolkit/pages/gridpreview.h"

#include "platform/platform.h"
#include "toolkit/grids/texttable.h"
#include "toolkit/pages/gridreport.h"
#include "toolkit/pages/reportrows.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>

namespace {

class GridRows : public ReportRows {
public:
    explicit GridRows(const PreviewedGrid& from) : m_table(from.grid->model()->columnCount())
    {
        const int rows = from.grid->model()->rowCount();
        for (int row = 0; row < rows; ++row) {
            QStringList values;
            for (int column = 0; column < m_table.columns(); ++column)
                values += from.textAt(row, column);
            m_table.append(values);
        }
    }

    int count() const override { return m_table.rows(); }
    Cell cell(int row, int column) const override { return m_table.utf8(row, column); }
    bool beginsGroup(int) const override { return false; }
    QStringList bookmarks(int) const override { return {}; }

private:
    TextTable m_table;
};

// Of the last column, which takes all that is left in its window, it is what the column would have by itself.
int widthOf(const QTableView& grid, int column)
{
    const QHeaderView& headings = *grid.horizontalHeader();
    const int width = grid.columnWidth(column);
    if (column + 1 < headings.count() || !headings.stretchLastSection())
        return width;
    const QAbstractItemView& view = grid;
    return std::min(width, std::max(headings.sectionSizeHint(column), view.sizeHintForColumn(column)));
}

ReportDesign designOf(const PreviewedGrid& from)
{
    GridReport report{.name = from.name,
                      .title = from.title,
                      .caption = PreviewForm::tr("%1 - Print Preview").arg(from.title),
                      .isWide = from.isWide};
    const QAbstractItemModel& model = *from.grid->model();
    for (int column = 0; column < model.columnCount(); ++column)
        report.columns.push_back({model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
                                  widthOf(*from.grid, column)});
    return gridDesign(report);
}

class GridPreviewForm : public PreviewForm {
public:
    GridPreviewForm(const PreviewSeams& seams, const PreviewedGrid& grid)
        : PreviewForm(seams, designOf(grid)), m_grid(grid)
    {
    }

protected:
    std::unique_ptr<ReportRows> readRows() override { return std::make_unique<GridRows>(m_grid); }

private:
    const PreviewedGrid m_grid;
};

} // namespace

GridPreview::GridPreview(const Platform& platform, PreviewedGrid grid)
    : m_seams{platform.dialogs, platform.program, platform.files, platform.printer}, m_grid(std::move(grid))

{
}

GridPreview::~GridPreview()
{
    delete m_form; // what is still open when the program ends
}

void GridPreview::show()
{
    if (!m_form || m_form->closing())
        m_form = new GridPreviewForm(m_seams, m_grid);
    m_form->showForm();
}

void GridPreview::close()
{
    if (m_form)
        m_form->unload();
    m_form = nullptr;
}
