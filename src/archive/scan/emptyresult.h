// Says why a scan found nothing, in words for whoever looks at the empty grid.
#pragma once

#include <QString>

// Notes what a scan met on its way. `directory` ends with a backslash where there is one.
struct ScanTally {
    QString directory;   // it began there
    QString pattern;     // "*.MP3"
    QString extension{}; // in force
    bool subdirectories = true;

    int rows = 0;
    int matched = 0;     // files whose names match the pattern
    int ofOtherType = 0; // of those: their names end otherwise than the extension in force
    int others = 0;      // files that do not match
    QString other{};     // one of them
    int directoriesBelow = 0;
    int unreadable = 0;     // directories
    int error = 0;          // of the first one
    bool hasDrive = true;   // there is one with the directory's letter
    bool isKernels = false; // the directory is of the system's own making
};

// Returns one or two sentences, and nothing for a scan that found something.
QString whyEmpty(const ScanTally& tally);
