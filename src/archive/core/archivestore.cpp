#include "archive/core/archivestore.h"

#include "base/runtimeerror.h"
#include "database/connection/archiverecovery.h"
#include "platform/dialogs.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/program.h"

#include <QCoreApplication>

namespace {

const QString kArchive = QStringLiteral("\\Songbin.mdb");
const QString kTemplate = QStringLiteral("\\Songbin.dat");

// A directory's name may hold what ends a value of a connection text.
QString asValue(const QString& path)
{
    if (!path.contains(u';') && !path.contains(u'"') && !path.contains(u'\''))
        return path;
    return u'"' + QString(path).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

} // namespace

ArchiveStore::ArchiveStore(Files& files, Program& program, const QByteArray& state)
    : copies(state + "/copies"), SelectData{QStringLiteral("Songbin_Hovedtabell"),
                                            QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;")},
      DataEnvironment1{QStringLiteral("Songbin_Report"),
                       QStringLiteral("PROVIDER=MSDataShape;DATA PROVIDER=MICROSOFT.JET.OLEDB.4.0;")},
      m_files(files), m_program(program)
{
}

QString ArchiveStore::file() const
{
    return m_program.directory() + kArchive;
}

void ArchiveStore::createOnFirstRun(Dialogs& dialogs)
{
    if (!m_files.dir(file()).isEmpty())
        return;
    if (m_files.isTaken(file()))
        throw RunTimeError(ErrorNumber::PathFileAccess, file())
            .withAdvice(QCoreApplication::translate("ArchiveStore",
                                                    "Your archive should be there, but no file can be "
                                                    "opened: connect the disk that it lies on, or "
                                                    "move what has that name away, and start again."));
    dialogs.message(
        {.text = QStringLiteral("This is the first time you run Songbin, database bill be generated."),
         .title = QStringLiteral("For your information"),
         .icon = MessageIcon::Information});
    if (!m_files.dir(file()).isEmpty())
        return; // a second program was quicker while the message stood there
    const QString source = m_program.directory() + kTemplate;
    if (!m_files.exists(source))
        throw RunTimeError(ErrorNumber::FileNotFound, source);
    m_files.copy(source, file());
}

void ArchiveStore::recover(Drives& drives)
{
    if (const std::optional<QByteArray> path = drives.machinePath(file()))
        recoverArchive(*path);
    copies.removeLeftOversInBackground();
}

QString ArchiveStore::sharedConnectionText() const
{
    return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Persist Security Info=False;Data Source=") +
           asValue(file());
}

QString ArchiveStore::ownConnectionText() const
{
    return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + asValue(file()) + u';';
}
