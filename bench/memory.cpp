// Measures the memory of a result of 100,000 rows, against the bytes of its text.
#include "bench/support/bench_world.h"
#include "bench/support/measure.h"
#include "bench/support/musictree.h"
#include "toolkit/grids/flexgrid.h"

#include <QApplication>

#include <malloc.h>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const std::string work = argc > 1 ? argv[1] : "build/bench";
    const std::string tree = musicTree(work);
    BenchWorld world(work, tree);
    malloc_trim(0);
    const long before = residentBytes();
    frmResult* result = world.scan();
    QApplication::processEvents();
    malloc_trim(0);
    const long after = residentBytes();
    qsizetype text = 0;
    for (int row = 0; row < result->MSFlexGrid1->Rows(); ++row)
        for (int col = 0; col < result->MSFlexGrid1->Cols(); ++col)
            text += result->MSFlexGrid1->textAt(row, col).toUtf8().size();
    constexpr double kMegabyte = 1024.0 * 1024.0;
    report("memory of a 100,000-row result, its list of files included", "the bytes of its text",
           {static_cast<double>(after - before) / kMegabyte, static_cast<double>(text) / kMegabyte}, "MB");
    delete result;
}
