// Jumps to anywhere in a grid of 1,000,000 rows, each with its repaint, against a plain QTableView over a
// model of that size that holds nothing.
#include "bench/support/archivedata.h"
#include "bench/support/measure.h"
#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "toolkit/grids/datagrid.h"

#include <QApplication>
#include <QHeaderView>

namespace {

constexpr int kRounds = 5;
constexpr int kJumps = 200;

class EmptyModel : public QAbstractTableModel {
public:
    EmptyModel(int rows, int columns) : m_rows(rows), m_columns(columns) {}

    int rowCount(const QModelIndex&) const override { return m_rows; }
    int columnCount(const QModelIndex&) const override { return m_columns; }
    QVariant data(const QModelIndex&, int) const override { return {}; }

private:
    int m_rows;
    int m_columns;
};

double jump(QTableView& view, const std::function<void(int row)>& go)
{
    return milliseconds([&] {
        for (int i = 0; i < kJumps; ++i) {
            go(static_cast<int>((i * 7'919'993LL) % view.model()->rowCount()));
            view.viewport()->repaint();
        }
    });
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    BenchArchive archive(argc > 1 ? argv[1] : "build/bench");
    Connection connection(archive.drives());
    connection.open(archive.connectionText());
    Recordset records;
    records.open(
        QStringLiteral("select fldArtist,fldPath,fldSong,fldVolum, fldAlbum, fldYear, fldComment from MP3"),
        connection);

    DataGrid grid;
    grid.setDataSource(&records);
    grid.resize(1240, 620);
    grid.show();
    EmptyModel empty(records.recordCount(), 7);
    QTableView plain;
    plain.setModel(&empty);
    plain.resize(1240, 620);
    plain.show();
    QApplication::processEvents();

    report("jump anywhere in a grid of 1,000,000 rows and repaint, 200 times",
           "a QTableView over an empty model of that size",
           best(
               kRounds, [&] { return jump(grid, [&](int row) { records.setAbsolutePosition(row + 1); }); },
               [&] { return jump(plain, [&](int row) { plain.setCurrentIndex(empty.index(row, 0)); }); }));
    grid.setDataSource(nullptr);
}
