#include "archive/scan/emptyresult.h"

#include "base/dospath.h"
#include "base/runtimeerror.h"

namespace {

constexpr qsizetype kComparedCharacters = 3;

QString counted(int count, const QString& one, const QString& many)
{
    return count == 1 ? one : many.arg(count);
}

QString shownDirectory(const ScanTally& tally)
{
    const bool isRoot = tally.directory.size() <= kComparedCharacters;
    return isRoot ? tally.directory : tally.directory.chopped(1);
}

QString whyNotRead(const ScanTally& tally)
{
    const QString drive = dospath::drive(tally.directory);
    if (!drive.endsWith(u':'))
        return QStringLiteral("The line \"Files to scan\" must begin with a drive, such as D:\\*.MP3.");
    if (!tally.hasDrive)
        return QStringLiteral("There is no drive %1 on this machine.").arg(drive);
    switch (static_cast<ErrorNumber>(tally.error)) {
    case ErrorNumber::DeviceUnavailable:
        return QStringLiteral("Drive %1 is not ready. Put its disk in and scan again.").arg(drive);
    case ErrorNumber::PathNotFound:
        return QStringLiteral("There is no directory %1.").arg(shownDirectory(tally));
    default:
        return QStringLiteral("%1 cannot be read: it is not yours to read, or its disk is damaged.")
            .arg(shownDirectory(tally));
    }
}

// Returns the end of a name that a type of another length, or in small letters, can still be found by.
QString comparable(const QString& extension)
{
    return (u'.' + extension).right(kComparedCharacters).toUpper();
}

QString whyOfOtherType(const ScanTally& tally)
{
    const QString found =
        counted(tally.matched, QStringLiteral("1 file matches "), QStringLiteral("%1 files match ")) +
        tally.pattern + QStringLiteral(", but ");
    const QString& type = tally.extension;
    if (type.isEmpty())
        return found + QStringLiteral("no type is chosen in the Search window.");
    if (type.size() != kComparedCharacters)
        return found + QStringLiteral(
                           "a type is the last three characters of a name, and \"%1\" has %2. Type %3 as the "
                           "type, then let \"Files to scan\" end in %4.")
                           .arg(type, QString::number(type.size()), comparable(type), tally.pattern);
    if (type != type.toUpper())
        return found + QStringLiteral("a type is typed in capital letters: %1 instead of %2.")
                           .arg(type.toUpper(), type);
    return found + QStringLiteral("the type that is chosen in the Search window is %1.").arg(type);
}

QString whyNoMatch(const ScanTally& tally)
{
    const QString place = shownDirectory(tally);
    const bool stayed = !tally.subdirectories && tally.directoriesBelow > 0;
    const QString where =
        stayed || tally.directoriesBelow == 0 ? place : place + QStringLiteral(" and below it");
    QString reason;
    if (tally.isKernels && tally.others == 0)
        reason = QStringLiteral("%1 is of the system's own making and holds no music.").arg(place);
    else if (tally.others == 0)
        reason = QStringLiteral("There is no file in %1.").arg(where);
    else
        reason = counted(tally.others, QStringLiteral("There is 1 file in "),
                         QStringLiteral("There are %1 files in ")) +
                 QStringLiteral("%1, such as \"%2\", but none that matches %3.")
                     .arg(where, tally.other, tally.pattern);
    if (stayed)
        reason +=
            QStringLiteral(" What is below was left out: tick \"Include subdirectories\" to scan that too.");
    return reason;
}

QString reasonOf(const ScanTally& tally)
{
    if (tally.error != 0)
        return whyNotRead(tally);
    if (tally.matched == 0)
        return whyNoMatch(tally);
    if (tally.ofOtherType > 0)
        return whyOfOtherType(tally);
    return counted(tally.matched, QStringLiteral("1 file was found, but it cannot be read."),
                   QStringLiteral("%1 files were found, but none of them can be read."));
}

} // namespace

QString whyEmpty(const ScanTally& tally)
{
    if (tally.rows > 0)
        return {};
    QString reason = reasonOf(tally);
    if (tally.error == 0 && tally.unreadable > 0)
        reason += counted(tally.unreadable, QStringLiteral(" 1 directory could not be read."),
                          QStringLiteral(" %1 directories could not be read."));
    return reason;
}
