// The drives of this machine: its mounts, its optical drives and what users declare.
//
// The user's settings file holds two sections: [Drives] declares drives ("E=/srv/music,MUSIC"), [Letters] is
// the program's own note of which letter belongs to which mount place or device. Not for use from several
// threads.
#pragma once

#include "platform/driveletters.h"
#include "platform/drives.h"
#include "platform/foldednames.h"
#include "platform/keyvaluefile.h"
#include "platform/mounttable.h"
#include "platform/programpath.h"
#include "platform/xdg.h"

struct DriveSetup {
    UserDirectories user{};
    QByteArray declared{}; // over the settings' [Drives]; platform/driveletters.h has the form
    QByteArray settings{}; // empty: drives.conf of the user's configuration directory
    QByteArray mountinfo = "/proc/self/mountinfo";
    QByteArray blockDevices = "/sys/class/block";
    QByteArray labelLinks = "/dev/disk/by-label";
};

class SystemDrives : public Drives {
public:
    explicit SystemDrives(DriveSetup setup);

    std::vector<Drive> list() override;
    QString volumeName(const QString& path) override;
    std::optional<QByteArray> machinePath(const QString& path) override;
    QString drivePath(const QByteArray& machinePath) override;

    // Like machinePath with every part as it stands; asks the disk nothing, so that it serves for the first
    // try at a file: one that is not there is then looked up by machinePath.
    std::optional<QByteArray> literalPath(const QString& path);

private:
    void update();
    void build();
    DriveTable declaredDrives();
    LetterMemory readMemory();
    void writeMemory(const LetterMemory& known);
    std::vector<QByteArray> opticalDevices() const;
    const DriveEntry* entryOf(QStringView path) const;
    bool isTraceFile(const QString& path) const;
    QByteArray traceFile() const;
    std::optional<QByteArray> look(const ProgramPath& path);

    DriveSetup m_setup;
    KeyValueFile m_settings;
    std::optional<FileStamp> m_settingsStamp;
    MountTable m_mounts;
    DriveTable m_drives;
    LetterMemory m_memory;
    FoldedNames m_names;

    // The last directory that was asked for, as text and as the machine's, both with the separator behind.
    QString m_lastText;
    QByteArray m_lastDirectory;
};
