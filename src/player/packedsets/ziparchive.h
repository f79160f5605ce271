// Reads the files in a ZIP archive, whatever the archive is: it may be damaged, lie about its sizes, or have
// been made to hurt. Nothing is written anywhere; what is read stays within limits.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

struct ZipFile {
    QString name{}; // as the archive has it, with slashes
    QByteArray content{};
};

struct ZipFiles {
    enum class Fault {
        None,
        Damaged,   // or no archive at all, or packed in a way that is neither "stored" nor "deflated"
        Protected, // by a password
        TooLarge,
        NoReader // this machine has no libarchive
    };

    std::vector<ZipFile> files{}; // none when there is a fault
    Fault fault = Fault::None;
};

inline constexpr qint64 kMostZipBytes = qint64(64) << 20;     // of the archive
inline constexpr qint64 kMostZipFileBytes = qint64(16) << 20; // of one file in it
inline constexpr qint64 kMostZipContent = qint64(48) << 20;   // of all that are wanted together
inline constexpr int kMostZipEntries = 4096;                  // of every kind
inline constexpr int kMostZipFiles = 256;                     // that are wanted

// Returns the regular files whose names are wanted, in the archive's order; the others are not unpacked. A
// name that is no text of any kind is not asked for.
ZipFiles readZip(const QByteArray& archive, const std::function<bool(const QString& name)>& wanted);
