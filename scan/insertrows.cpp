#include "scan/insertrows.h"

#include "base/pace.h"
#include "base/runtimeerror.h"
#include "base/textrules.h"
#include "platform/connection.h"
#include "platform/dialogs.h"
#include "platform/filenumbers.h"
#include "platform/grid.h"
#include "platform/program.h"
#include "shell/archivestore.h"

namespace {

// Kept: a fixed path; the drives map this one file into the user's state directory.
const QString kTraceFile = QStringLiteral("c:\\test.txt");

constexpr int kPatience = 30;

const QString kInsert = QStringLiteral(
    " INSERT INTO MP3 (fldVolum,fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldComment) VALUES (");

class Import {
public:
    Import(ArchiveContext& context, Grid& grid, ImportView& view)
        : m_context(context), m_grid(grid), m_view(view),
          m_connection(context.platform.drives, &context.store.groups)
    {
    }

    void run()
    {
        try {
            m_connection.setCursorLocation(CursorLocation::Client);
            m_connection.open(m_context.store.ownConnectionText());
            insertAll();
        } catch (const RunTimeError& error) {
            fail(error);
        }
    }

private:
    void insertAll();
    void waitForReaders();
    void insertRow(int row);
    QStringList rowTexts(int row);
    void showProgress(const QString& values);
    void finish();
    void fail(const RunTimeError& error);
    void inform(const QString& text, const QString& title);

    ArchiveContext& m_context;
    Grid& m_grid;
    ImportView& m_view;
    Connection m_connection;
    Pace m_pace;
    int m_trace = 0;
};

void Import::insertAll()
{
    if (m_grid.Rows() < 1) {
        inform(QStringLiteral("No DataFound"), QStringLiteral("Information"));
        return;
    }
    m_trace = m_context.fileNumbers.freeFile();
    m_context.fileNumbers.openOutput(m_trace, kTraceFile);
    m_grid.setRedraw(false);
    m_connection.beginGroup();
    const int rows = m_grid.Rows();
    for (int row = 0; row < rows && !m_context.platform.program.ending(); ++row)
        insertRow(row);
    waitForReaders();
    m_connection.endGroup();
    m_connection.close();
    finish();
}

// Each try waits for about a second.
void Import::waitForReaders()
{
    for (int tries = 0;
         tries < kPatience && !m_context.platform.program.ending() && !m_connection.tryCommitGroup(); ++tries)
        m_context.platform.program.yield();
}

void Import::insertRow(int row)
{
    const QStringList texts = rowTexts(row);
    m_context.fileNumbers.print(m_trace, traceLine(texts));
    const QString values = valueList(texts);
    m_connection.execute(kInsert + values + QStringLiteral(");"));
    showProgress(values);
    m_context.platform.program.yield();
}

QStringList Import::rowTexts(int row)
{
    QStringList texts;
    m_grid.setRow(row);
    for (int column = 0; column < m_grid.Cols(); ++column) {
        m_grid.setCol(column);
        texts += m_grid.Text();
    }
    return texts;
}

void Import::showProgress(const QString& values)
{
    m_view.setLabel5({});
    m_view.setLabel1(QStringLiteral("Inserting... ") + values);
    // What the user sees as inserted is on the disk. A reader that takes its time, such as another program's
    // backup, only puts that off.
    if (m_pace.due() && m_connection.tryCommitGroup())
        m_view.showNow();
}

void Import::finish()
{
    m_grid.setRedraw(true);
    m_context.fileNumbers.close(m_trace);
    if (m_context.platform.program.ending())
        return;
    m_context.platform.program.setBusyPointer(false);
    m_view.setLabel1(QStringLiteral("Finished inserting %1 records...").arg(m_grid.Rows()));
    m_view.showNow();
    inform(QStringLiteral("%1 Records is added to Songbin").arg(m_grid.Rows()),
           QStringLiteral("information"));
}

void Import::fail(const RunTimeError& error)
{
    // Rows of the open group stay where the disk lets them, and only then the label names the last of them.
    resumeNext(
        [this] {
            m_connection.endGroup();
            m_view.showNow();
        },
        [this] { m_connection.close(); }, [this] { m_context.fileNumbers.close(m_trace); });
    if (error.number() == static_cast<int>(ErrorNumber::CancelSelected))
        return;
    m_context.platform.dialogs.message(
        {.text = QStringLiteral("error "), .title = QStringLiteral("error"), .icon = MessageIcon::Critical});
    m_grid.setRedraw(true);
    m_context.platform.program.setBusyPointer(false);
}

void Import::inform(const QString& text, const QString& title)
{
    m_context.platform.dialogs.message({.text = text, .title = title, .icon = MessageIcon::Information});
}

} // namespace

QString valueList(const QStringList& values)
{
    QString list;
    for (qsizetype i = 0; i < values.size(); ++i) {
        list += u'\'' + values[i] + u'\'';
        if (i + 1 < values.size())
            list += QStringLiteral(", ");
    }
    return list.replace(QStringLiteral("''"), QStringLiteral("' '"));
}

QString traceLine(const QStringList& values)
{
    QString line;
    for (qsizetype i = 0; i < values.size(); ++i) {
        const bool last = i + 1 == values.size();
        line += textrules::atLeastTwo(last ? values[i] : values[i] + u';');
    }
    return line + QStringLiteral("\r\n");
}

void InsertGridRows(ArchiveContext& context, Grid& grid, ImportView& view)
{
    Import(context, grid, view).run();
}
