#include "system/desktop/errortext.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

struct Advice {
    constexpr Advice(int ofError, const char* help) : number(ofError), sentence(help) {}
    constexpr Advice(ErrorNumber ofError, const char* help) : Advice(numberOf(ofError), help) {}

    int number;
    const char* sentence;
};

const char* const kTellUs = QT_TRANSLATE_NOOP(
    "errortext", "This should not happen: please tell us what you did, with the text above.");
const char* const kArchiveAgain =
    QT_TRANSLATE_NOOP("errortext", "Close this window, open it again, and repeat what you did.");

const Advice kAdvice[] = {
    {ErrorNumber::Overflow, QT_TRANSLATE_NOOP("errortext", "A number is too large here: use a smaller one.")},
    {ErrorNumber::OutOfMemory,
     QT_TRANSLATE_NOOP("errortext", "Close other programs or take a smaller part at a time.")},
    {ErrorNumber::SubscriptOutOfRange,
     QT_TRANSLATE_NOOP("errortext", "The file names something that is not in it: look at the file, or "
                                    "use another one.")},
    {ErrorNumber::TypeMismatch,
     QT_TRANSLATE_NOOP("errortext", "A number is expected here: put one in its place.")},
    {ErrorNumber::OutOfStringSpace,
     QT_TRANSLATE_NOOP("errortext", "A file, or a line of it, is too long here: use a shorter one.")},
    {ErrorNumber::BadFileNumber, kTellUs},
    {ErrorNumber::BadFileMode, kTellUs},
    {ErrorNumber::BadRecordNumber, kTellUs},
    {ErrorNumber::FileNotFound,
     QT_TRANSLATE_NOOP("errortext", "Look whether the file is still in its place, and whether its disk is "
                                    "in the drive.")},
    {ErrorNumber::FileAlreadyOpen, kTellUs},
    {ErrorNumber::DeviceIoError,
     QT_TRANSLATE_NOOP("errortext", "The disk may be dirty or damaged: clean it, or try another drive.")},
    {ErrorNumber::DiskFull,
     QT_TRANSLATE_NOOP("errortext", "Make room on the disk, or choose another place.")},
    {ErrorNumber::InputPastEnd,
     QT_TRANSLATE_NOOP("errortext", "The file is shorter than it should be: use a whole copy of it.")},
    {ErrorNumber::TooManyFiles,
     QT_TRANSLATE_NOOP("errortext", "Close windows that you do not need, and try again.")},
    {ErrorNumber::DeviceUnavailable,
     QT_TRANSLATE_NOOP("errortext", "Put a disk in the drive, or choose another drive.")},
    {ErrorNumber::PermissionDenied,
     QT_TRANSLATE_NOOP("errortext", "Choose a place where you may write, or a file that is yours; another "
                                    "program that uses it has to be closed first.")},
    {ErrorNumber::DiskNotReady,
     QT_TRANSLATE_NOOP("errortext", "Put the disk in the drive and wait until it has been read in.")},
    {ErrorNumber::PathFileAccess,
     QT_TRANSLATE_NOOP("errortext", "Look whether the disk is in the drive, and whether you may read and "
                                    "write there.")},
    {ErrorNumber::PathNotFound,
     QT_TRANSLATE_NOOP("errortext", "Look whether the directory is still there, and whether its disk is in "
                                    "the drive.")},
    {ErrorNumber::InvalidPropertyValue,
     QT_TRANSLATE_NOOP("errortext", "A value is out of its range: put one that is allowed in its place.")},
    {ErrorNumber::CannotMakeImage,
     QT_TRANSLATE_NOOP("errortext", "The picture is too large: use a smaller one.")},
    {ErrorNumber::PrinterError,
     QT_TRANSLATE_NOOP("errortext", "Look whether a printer is set up as the default one, switched on and "
                                    "ready.")},
    {ErrorNumber::CancelSelected,
     QT_TRANSLATE_NOOP("errortext", "Nothing was chosen: begin again when you want to choose.")},
    {kConnectionError,
     QT_TRANSLATE_NOOP("errortext", "Let other programs that use the archive finish, look whether its disk "
                                    "has room and can be written, and try again.")},
    {kStatementError,
     QT_TRANSLATE_NOOP("errortext", "An apostrophe (') in what you typed may be the reason: leave it out.")},
    {kObjectClosed, kArchiveAgain},
    {kObjectOpen, kArchiveAgain},
    {kNoCurrentRecord,
     QT_TRANSLATE_NOOP("errortext", "Go to a record first; when there is none, search for something else.")},
    {kItemNotFound, kTellUs},
    {kBadCriterion, QT_TRANSLATE_NOOP("errortext", "Look for a shorter text, without apostrophes (').")},
    {kNotChangeable, kTellUs},
    {kOperationCancelled, kArchiveAgain},
    {kInvalidBookmark, QT_TRANSLATE_NOOP("errortext", "The record is gone: press Refresh, or search again.")},
    {kEmptyRow, QT_TRANSLATE_NOOP("errortext", "Type at least one value, or press Cancel.")},
    {kRowNotFound,
     QT_TRANSLATE_NOOP("errortext", "Press Refresh, or search again, to see the archive as it is now.")},
};

bool isOfTheArchive(int number)
{
    return number < 0 || (number >= kBadCriterion && number <= kOperationCancelled);
}

} // namespace

QString errortext::advice(int number)
{
    const auto* found = std::ranges::find(kAdvice, number, &Advice::number);
    return found == std::end(kAdvice) ? QString() : QCoreApplication::translate("errortext", found->sentence);
}

QString errortext::ofBox(const RunTimeError& error)
{
    const QString what =
        isOfTheArchive(error.number())
            ? error.text()
            : QStringLiteral("Run-time error '%1':\n\n%2").arg(QString::number(error.number()), error.text());
    const QString help = error.advice().isEmpty() ? advice(error.number()) : error.advice();
    return help.isEmpty() ? what : what + QStringLiteral("\n\n") + help;
}
