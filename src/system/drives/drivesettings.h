// Reads what the settings file says of drives: [Drives] declares some ("E=/srv/music,MUSIC"), [Letters] is
// the program's own note of which letter belongs to which volume.
#pragma once

#include "posix/atomicfile.h"
#include "system/drives/driveletters.h"
#include "system/settings/keyvaluefile.h"

#include <optional>

class DriveSettings {
public:
    explicit DriveSettings(const QByteArray& file);

    // Is true once after each change, also after one of our own.
    bool changed();

    void addDeclared(DriveTable& drives);

    // Gives volumes their letters and notes the new ones; where the file cannot be read or written they are
    // remembered while the program runs, and the file keeps its own.
    void addVolumes(DriveTable& drives, const std::vector<Volume>& volumes);

private:
    LetterMemory noted();

    QByteArray m_path;
    KeyValueFile m_file;
    std::optional<FileStamp> m_stamp;
    LetterMemory m_memory;
};
