#include "base/runtimeerror.h"

namespace {

QString usualText(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::Overflow:
        return QStringLiteral("Overflow");
    case ErrorNumber::OutOfMemory:
        return QStringLiteral("Out of memory");
    case ErrorNumber::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrorNumber::OutOfStringSpace:
        return QStringLiteral("Out of string space");
    case ErrorNumber::BadFileNumber:
        return QStringLiteral("Bad file name or number");
    case ErrorNumber::BadFileMode:
        return QStringLiteral("Bad file mode");
    case ErrorNumber::BadRecordNumber:
        return QStringLiteral("Bad record number");
    case ErrorNumber::FileNotFound:
        return QStringLiteral("File not found");
    case ErrorNumber::FileAlreadyOpen:
        return QStringLiteral("File already open");
    case ErrorNumber::DeviceIoError:
        return QStringLiteral("Device I/O error");
    case ErrorNumber::DiskFull:
        return QStringLiteral("Disk full");
    case ErrorNumber::InputPastEnd:
        return QStringLiteral("Input past end of file");
    case ErrorNumber::TooManyFiles:
        return QStringLiteral("Too many files");
    case ErrorNumber::DeviceUnavailable:
        return QStringLiteral("Device unavailable");
    case ErrorNumber::PermissionDenied:
        return QStringLiteral("Permission denied");
    case ErrorNumber::DiskNotReady:
        return QStringLiteral("Disk not ready");
    case ErrorNumber::PathFileAccess:
        return QStringLiteral("Path/File access error");
    case ErrorNumber::PathNotFound:
        return QStringLiteral("Path not found");
    case ErrorNumber::InvalidPropertyValue:
        return QStringLiteral("Invalid property value");
    case ErrorNumber::CannotMakeImage:
        return QStringLiteral("Can't create AutoRedraw image");
    case ErrorNumber::PrinterError:
        return QStringLiteral("Printer error");
    case ErrorNumber::CancelSelected:
        return QStringLiteral("Cancel was selected.");
    }
    return QStringLiteral("Application-defined or object-defined error");
}

} // namespace

RunTimeError::RunTimeError(int number, QString text)
    : m_number(number), m_text(std::move(text)), m_what(m_text.toUtf8())
{
}

RunTimeError::RunTimeError(ErrorNumber number) : RunTimeError(numberOf(number), usualText(number)) {}

RunTimeError::RunTimeError(ErrorNumber number, const QString& detail)
    : RunTimeError(numberOf(number), usualText(number) + QStringLiteral(": ") + detail)
{
}

RunTimeError RunTimeError::withAdvice(QString sentence) const
{
    RunTimeError error = *this;
    error.m_advice = std::move(sentence);
    return error;
}
