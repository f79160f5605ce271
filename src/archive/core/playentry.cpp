#include "archive/core/playentry.h"

#include "archive/core/registryaccess.h"
#include "archive/core/settings.h"
#include "archive/core/sharedvalues.h"
#include "base/dospath.h"
#include "base/runtimeerror.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/launcher.h"

namespace {

void warnOfWrongDisk(Dialogs& dialogs)
{
    dialogs.message(
        {.text = QStringLiteral("Disk Name does not match, Make sure you are using the right disk."),
         .title = QStringLiteral("IMPORTANT"),
         .icon = MessageIcon::Information});
}

void explainMissingPlayer(Dialogs& dialogs)
{
    dialogs.message(
        {.text = QStringLiteral("This player is no more....\r"
                                "You should install an MP3 player.\r"
                                "VLC is a good one, you find it at https://www.videolan.org/\r"
                                "And then select to Use your installed MP3 player in the Options menu."),
         .title = QStringLiteral("Missing Player")});
}

void play(ArchiveContext& context, const QString& editorPath, const QString& editorDiskName)
{
    const Platform& platform = context.platform;
    const QString drive = editorPath.left(2);
    context.shared.CurrentVolume = platform.files.dir(drive + QStringLiteral("*.*"), kVolumeLabel).value(0);
    // It only warns, because the disk may have another name by now.
    if (editorDiskName != context.shared.CurrentVolume)
        warnOfWrongDisk(platform.dialogs);
    const QString player = GetRegString(platform.registry, RootKey::LocalMachine, settings::kKeyForReading,
                                        settings::kMP3player);
    if (player == u"0")
        explainMissingPlayer(platform.dialogs);
    else
        platform.launcher.open(context.shared.PlayPath);
}

} // namespace

void playEntry(ArchiveContext& context, const QString& editorPath, const QString& editorDiskName)
{
    resumeNext([&] { play(context, editorPath, editorDiskName); });
}
