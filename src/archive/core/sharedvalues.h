// Windows of the archive hand these values to each other, under the names that they have always had.
#pragma once

#include <QString>

struct SharedValues {
    QString InitDrive;  // the last search string of the scan window; its first two characters count
    QString SearchRoot; // of the chosen drive: "D:\"

    QString CurrentVolume; // of the scanned drive, or of the drive checked before playing
    QString CurrentFile;   // full path of the file being processed
    QString ScanArtist;
    QString ScanSong;
    QString ScanAlbum;
    QString ScanYear;
    QString ScanComment;

    // These are seconds. Kept: nobody has ever set it, so the time a scan took is counted from midnight.
    float ScanStartTime = 0;

    // They belong to the entry to play. Kept: of these only the path is used; the disk is checked by the
    // record editor's boxes.
    QString PlayPath; // full path
    QString PlayDiskName;
    QString PlayFileType; // extension
};
