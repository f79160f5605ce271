#include "archive/scan/insertrows.h"

#include "archive/core/archivestore.h"
#include "archive/scan/lockwait.h"
#include "base/runtimeerror.h"
#include "base/textrules.h"
#include "base/throttle.h"
#include "database/connection/connection.h"
#include "platform/dialogs.h"
#include "platform/filenumbers.h"
#include "platform/grid.h"
#include "platform/program.h"
#include "platform/tracefile.h"

namespace {

const QString kInsert = QStringLiteral(
    " INSERT INTO MP3 (fldVolum,fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldComment) VALUES (");

class Import {
public:
    Import(ArchiveContext& context, Grid& grid, ImportView& view)
        : m_context(context), m_grid(grid), m_view(view), m_wait(context.platform.program, view),
          m_connection(context.platform.drives, &context.store.groups)
    {
        m_connection.setPatience(LockWait::kOneTry);
    }

    void run()
    {
        try {
            m_connection.setCursorLocation(CursorLocation::Client);
            m_wait.run([this] { m_connection.open(m_context.store.ownConnectionText()); });
            insertAll();
        } catch (const RunTimeError& error) {
            fail(error);
        }
    }

private:
    void insertAll();
    void insertRow(int row);
    QStringList rowTexts(int row);
    void showProgress(const QString& values);
    void commit();
    void store();
    void keepWhatRan();
    void finish();
    void fail(const RunTimeError& error);
    void inform(const QString& text, const QString& title);

    ArchiveContext& m_context;
    Grid& m_grid;
    ImportView& m_view;
    LockWait m_wait;
    Connection m_connection;
    Throttle m_throttle;
    QString m_stored; // what Label1 said when rows were stored last
    QString m_said;
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
    m_wait.run([this] { m_connection.beginGroup(); });
    const int rows = m_grid.Rows();
    for (int row = 0; row < rows && !m_context.platform.program.ending(); ++row)
        insertRow(row);
    store();
    m_connection.endGroup(); // the disk may still refuse to confirm it
    m_connection.close();
    finish();
}

void Import::insertRow(int row)
{
    const QStringList texts = rowTexts(row);
    m_context.fileNumbers.print(m_trace, traceLine(texts));
    const QString values = valueList(texts);
    m_wait.run([&] { m_connection.executeLiterals(kInsert + values + QStringLiteral(");")); });
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
    m_said = QStringLiteral("Inserting... ") + values;
    m_view.setLabel1(m_said);
    if (!m_throttle.due())
        return;
    commit(); // what the user sees as inserted is on the disk
    m_view.showNow();
}

// The next statement takes the archive again: while the progress is painted another program that waits has
// its turn.
void Import::commit()
{
    store();
    m_connection.confirm();
}

void Import::store()
{
    m_wait.run([this] {
        if (m_connection.suspendGroup())
            m_stored = m_said;
    });
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
    resumeNext([this] { keepWhatRan(); }, [this] { m_connection.close(); },
               [this] { m_context.fileNumbers.close(m_trace); });
    if (error.number() == numberOf(ErrorNumber::CancelSelected))
        return;
    m_context.platform.dialogs.message(
        {.text = QStringLiteral("error "), .title = QStringLiteral("error"), .icon = MessageIcon::Critical});
    m_grid.setRedraw(true);
    m_context.platform.program.setBusyPointer(false);
}

// Rows of the open group stay where the disk lets them, and only then the label names the last of them.
void Import::keepWhatRan()
{
    if (m_said.isEmpty())
        return;
    resumeNext([this] {
        try {
            store();
        } catch (const ArchiveLocked&) { // closing tries once more
            m_connection.close();
            m_stored = m_said;
        }
    });
    m_view.setLabel1(m_stored);
    m_view.showNow();
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
