// The drives of this machine are its mounts, its optical drives and what users declare.
//
// This is not for use from several threads.
#pragma once

#include "platform/drives.h"
#include "posix/atomicfile.h"
#include "posix/mounttable.h"
#include "posix/xdg.h"
#include "system/drives/caselessnames.h"
#include "system/drives/driveletters.h"
#include "system/drives/drivepath.h"
#include "system/drives/drivesettings.h"

struct DriveSetup {
    UserDirectories user{};
    QByteArray declared{}; // over the settings'; system/drives/driveletters.h has the form
    QByteArray settings{}; // empty: drives.conf of the user's configuration; system/drives/drivesettings.h
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
    std::optional<QByteArray> chosenPath(const QString& path) override;
    QString drivePath(const QByteArray& machinePath) override;
    std::vector<QByteArray> audioDiscs() override;
    void hold() override;
    void release() override { --m_holds; }

    // Works like machinePath with every part as it stands and asks the disk nothing, so that it serves for
    // the first try at a file: one that is not there is then looked up by machinePath.
    std::optional<QByteArray> literalPath(const QString& path);

private:
    void update();
    void build();
    std::vector<QByteArray> opticalDevices() const;
    void showTracks(DriveEntry& entry);
    bool sheetsChanged() const;
    const DriveEntry* entryOf(QStringView path) const;
    bool isTraceFile(const QString& path) const;
    QByteArray traceFile() const;
    std::optional<QByteArray> look(const DrivePath& path);

    DriveSetup m_setup;
    DriveSettings m_settings;
    MountTable m_mounts;
    DriveTable m_drives;
    CaselessNames m_names;
    int m_holds = 0;
    std::vector<std::pair<QByteArray, std::optional<FileStamp>>>
        m_sheetFiles; // declared sheets, their images

    // Holds the last directory that was asked for, as text and as the machine's, both with the separator
    // behind.
    QString m_lastText;
    QByteArray m_lastDirectory;
};
