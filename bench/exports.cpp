// A report's exports: values of 1,000,000 rows, pages of 100,000.
#include "bench/support/benchreport.h"
#include "bench/support/measure.h"
#include "system/files/systemfiles.h"
#include "toolkit/pages/exporter.h"

#include <QApplication>
#include <QFileInfo>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <array>

namespace {

constexpr int kRounds = 3;
constexpr std::array kColumns = {2, 3, 0, 1}; // of the report's rows
const QString kStatement = QStringLiteral("SELECT * FROM MP3");

class Exports {
public:
    explicit Exports(const QByteArray& directory)
        : m_drives({.user = UserDirectories::fromEnvironment(), .declared = "E=" + directory}),
          m_files(m_drives), m_rival(directory + "/rival")
    {
    }

    double ours(OpenReport& open, ExportKind kind)
    {
        return milliseconds([&] {
            open.layOut();
            exportReport({open.report, *open.layout, open.widths}, kind, m_files, QStringLiteral("E:\\ours"),
                         [](double) { return true; });
        });
    }
    double byShell(const std::string& archive) const
    {
        const std::string command = "sqlite3 -csv '" + archive + "' \"" + kStatement.toStdString() +
                                    "\" > '" + m_rival.toStdString() + '\'';
        return milliseconds([&] { runCommand(command); });
    }
    double byDocument(const ReportRows& rows, int count) const
    {
        return milliseconds([&] {
            QPdfWriter writer(QString::fromUtf8(m_rival));
            writer.setPageSize(QPageSize(QPageSize::A4));
            QTextDocument document;
            QTextCursor cursor(&document);
            QTextTable* table = cursor.insertTable(count, kColumns.size());
            for (int row = 0; row < count; ++row)
                for (std::size_t column = 0; column < kColumns.size(); ++column)
                    table->cellAt(row, static_cast<int>(column))
                        .firstCursorPosition()
                        .insertText(QString::fromUtf8(rows.cell(row, kColumns[column]).value_or("")));
            document.print(&writer);
        });
    }

private:
    SystemDrives m_drives;
    SystemFiles m_files;
    QByteArray m_rival;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QByteArray directory = argc > 1 ? argv[1] : "build/bench";
    BenchArchive archive(directory.toStdString());
    Exports exports(QFileInfo(QString::fromUtf8(directory)).absoluteFilePath().toUtf8());
    {
        OpenReport all(archive);
        report("CSV of 1,000,000 rows", "`sqlite3 -csv` of the same query",
               best(
                   kRounds, [&] { return exports.ours(all, ExportKind::Csv); },
                   [&] { return exports.byShell(archive.file()); }));
        if (qEnvironmentVariableIsSet("SONGBIN_BENCH_ALL"))
            for (const ExportKind kind : {ExportKind::Html, ExportKind::Pdf})
                std::fprintf(stderr, "%d: %.0f ms, %ld bytes\n", int(kind), exports.ours(all, kind),
                             residentBytes());
    }
    constexpr int kPart = 10'000; // of the rows: the whole takes minutes
    OpenReport some(archive, 100'000);
    report("PDF of 100,000 rows",
           "QTextDocument with a table of the same rows to QPdfWriter (of 10,000, scaled)",
           best(
               1, [&] { return exports.ours(some, ExportKind::Pdf); },
               [&] { return exports.byDocument(*some.rows, kPart) * some.rows->count() / kPart; }));
}
