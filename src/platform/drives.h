// Knows drive letters, and the way between the program's paths ("D:\Music\a.mp3") and this machine's.
//
// C: is the user's home directory, Z: the root of the file system; D: onwards are mounted volumes, optical
// drives and declared directories. Only here does a path of the program become a path of the machine, and
// back.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

enum class DriveKind { Fixed, Removable, Optical, Network, Declared };

struct Drive {
    QChar letter; // upper case
    DriveKind kind;
};

class Drives {
public:
    virtual ~Drives() = default;

    // Lists them in the order of their letters.
    virtual std::vector<Drive> list() = 0;

    // Returns the label of the volume in the drive that the text begins with ("D:", "D:\Music"), empty when
    // it has none, is not ready or does not exist.
    virtual QString volumeName(const QString& path) = 0;

    // Returns the machine's path. Each part is looked up by its exact name first, then without regard to
    // case; the parts from the first that does not exist on are taken as they stand. "/" counts as "\". It is
    // nothing when the letter names no drive or its directory is not there (an empty optical drive, a lost
    // mount).
    virtual std::optional<QByteArray> machinePath(const QString& path) = 0;

    // Returns the machine's path of a file that the user chose in a dialog, that one and no other, so that
    // none whose name differs only in case is overwritten.
    virtual std::optional<QByteArray> chosenPath(const QString& path) { return machinePath(path); }

    // Lists the audio discs that are in the drives, in the order of their letters: devices, or cue sheets in
    // their stead.
    virtual std::vector<QByteArray> audioDiscs() { return {}; }

    // Between the two the drives are those of the first: many paths are looked up without asking for each
    // whether a disk came or went. They may be nested. Nothing may wait in between; class HeldDrives calls
    // them.
    virtual void hold() {}
    virtual void release() {}

    // Returns the path of the program for an absolute path of the machine, on the drive whose directory holds
    // it most closely; it is empty when none does, which takes a user who declares another Z:.
    virtual QString drivePath(const QByteArray& machinePath) = 0;
};

class HeldDrives {
public:
    explicit HeldDrives(Drives& drives) : m_drives(drives) { m_drives.hold(); }
    ~HeldDrives() { m_drives.release(); }
    HeldDrives(const HeldDrives&) = delete;
    HeldDrives& operator=(const HeldDrives&) = delete;

private:
    Drives& m_drives;
};
