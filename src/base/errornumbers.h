// A whole field of old desktop programs knew these numbers of run-time errors by heart. Those of media
// devices are in platform/mediaerror.h.
#pragma once

enum class ErrorNumber : int {
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    OutOfStringSpace = 14,
    BadFileNumber = 52,
    FileNotFound = 53,
    BadFileMode = 54,
    FileAlreadyOpen = 55,
    DeviceIoError = 57,
    DiskFull = 61,
    InputPastEnd = 62,
    BadRecordNumber = 63,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccess = 75,
    PathNotFound = 76,
    InvalidPropertyValue = 380,
    CannotMakeImage = 480,
    PrinterError = 482,
    CancelSelected = 32755,
};

constexpr int numberOf(ErrorNumber error)
{
    return static_cast<int>(error);
}

// The database has these.
inline constexpr int kConnectionError = -2147467259; // cannot be opened, is no archive, is locked, disk full
inline constexpr int kStatementError = -2147217900;  // the text is no valid statement
inline constexpr int kObjectClosed = 3704;
inline constexpr int kObjectOpen = 3705;
inline constexpr int kNoCurrentRecord = 3021;
inline constexpr int kItemNotFound = 3265;
inline constexpr int kBadCriterion = 3001;
inline constexpr int kNotChangeable = 3251; // the rows are not one for one the table's
inline constexpr int kOperationCancelled = 3712;
inline constexpr int kInvalidBookmark = -2147217906;
inline constexpr int kEmptyRow = -2147217887;
inline constexpr int kRowNotFound = -2147217864; // it was changed or deleted since it was read
