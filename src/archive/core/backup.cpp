#include "archive/core/backup.h"

#include "archive/core/archivecontext.h"
#include "archive/core/archivestore.h"
#include "base/runtimeerror.h"
#include "database/connection/archivecopy.h"
#include "platform/busypointer.h"
#include "platform/dialogs.h"
#include "platform/drives.h"
#include "platform/program.h"

#include <QDir>

namespace {

const QString kDialog = QStringLiteral("CommonDialog1");
const QString kFirstDirectory = QStringLiteral("C:\\");
const QString kTitleWhenDone = QStringLiteral("Backup finnished"); // kept: the restore's, too

QByteArray existing(const std::optional<QByteArray>& path)
{
    if (!path)
        throw RunTimeError(ErrorNumber::PathNotFound);
    return *path;
}

QByteArray archivePath(ArchiveContext& context)
{
    return existing(context.platform.drives.machinePath(context.store.file()));
}

// A name without a drive is one in the current directory.
QByteArray chosenPath(Drives& drives, const QString& path)
{
    if (!path.contains(u':'))
        return QFile::encodeName(QDir::current().filePath(path));
    return existing(drives.chosenPath(path));
}

bool isWanted(Dialogs& dialogs)
{
    return dialogs.message({.text = QStringLiteral("Restoring from backup will overwrite the content in "
                                                   "your database with the data from the backup. CONTINUE?"),
                            .title = QStringLiteral("IMPORTANT"),
                            .buttons = MessageButtons::YesNo}) != Answer::No;
}

void tellDone(Dialogs& dialogs, const QString& text)
{
    dialogs.message({.text = text, .title = kTitleWhenDone, .icon = MessageIcon::Information});
}

void restoreFrom(ArchiveContext& context, const QString& fileName)
{
    {
        const BusyPointer busy(context.platform.program);
        restoreArchive(chosenPath(context.platform.drives, fileName), archivePath(context),
                       context.store.groups, &context.store.copies);
    }
    context.platform.program.yield();
    tellDone(context.platform.dialogs, QStringLiteral("Your database is restored from: ") + fileName);
}

} // namespace

void makeBackup(ArchiveContext& context)
{
    const FileQuestion question{.title = QStringLiteral("Select the destination for the backup copy"),
                                .fileName = QStringLiteral("Songbin.Bck"),
                                .directory = kFirstDirectory,
                                .objectName = kDialog};
    const QString fileName = context.platform.dialogs.saveFile(question).value_or(question.fileName);
    if (context.platform.program.ending()) // the dialog was not cancelled, it went with the program
        return;
    {
        const BusyPointer busy(context.platform.program);
        backUpArchive(archivePath(context), chosenPath(context.platform.drives, fileName),
                      context.store.groups, &context.store.copies);
    }
    tellDone(context.platform.dialogs,
             QStringLiteral("A copy of your database is placed under: ") + fileName);
}

void restoreBackup(ArchiveContext& context)
{
    resumeNext([&] {
        if (!isWanted(context.platform.dialogs))
            return;
        if (const std::optional<QString> fileName =
                context.platform.dialogs.openFile({.title = QStringLiteral("Select your backupfile"),
                                                   .fileName = QStringLiteral("*.Bck"),
                                                   .directory = kFirstDirectory,
                                                   .objectName = kDialog}))
            restoreFrom(context, *fileName);
    });
}
