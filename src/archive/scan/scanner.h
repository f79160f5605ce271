// Walks a disk, takes artist, song, album, year and comment of each file of the chosen type from its ID3v1
// tag or its name, and adds a row for it.
#pragma once

#include "archive/core/archivecontext.h"
#include "archive/scan/emptyresult.h"
#include "archive/scan/scansetup.h"
#include "archive/scan/scanview.h"
#include "platform/entereddirectories.h"
#include "platform/files.h"

#include <functional>

class Scanner {
public:
    // The setup is fetched at each use: its window may have been closed and loaded again.
    using SetupSource = std::function<ScanSetup&()>;

    Scanner(ArchiveContext& context, SetupSource setup, ScanView& view);

    // Scans the whole tree below the search string's directory, each directory once, whatever links lead to
    // it.
    void scanTree();
    // Scans the directory alone. Throws RunTimeError for a file that cannot be opened.
    void scanDirectory();

    // Goes depth first, files before subdirectories. Kept: a backslash that dirPath lacks is added for the
    // caller too.
    void FilesSearch(QString& dirPath, const QString& filePattern);

    // Adds one row for CurrentFile when its extension is the chosen one. Throws RunTimeError, without adding
    // a row, when the file cannot be opened.
    void AddFileToResult();

    // Sets the five shared values from CurrentFile's tag; leaves them where there is none.
    void GetIDTag();

private:
    void begin(const ScanTally& tally);
    void tellWhyEmpty();
    void searchDirectory(const QString& dirPath, const QString& filePattern);
    std::optional<std::vector<DirEntry>> enter(const QString& dirPath);
    void note(const DirEntry& other);
    void lookRound();
    void takeFile(const QString& path);
    void readVolumeName();
    QString storedVolume();
    QString readTail(const QString& path);

    ArchiveContext& m_context;
    SetupSource m_setup;
    ScanView& m_view;
    EnteredDirectories m_entered;
    ScanTally m_tally;
};
