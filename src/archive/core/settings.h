// The archive keeps its settings here: the machine-wide key with its values, and the per-user section.
#pragma once

#include <QString>

namespace settings {

// Kept: reads name the key without a trailing backslash, writes with one; both are the same key.
inline const QString kKeyForReading = QStringLiteral("SOFTWARE\\Songbin");
inline const QString kKeyForWriting = QStringLiteral("SOFTWARE\\Songbin\\");

inline const QString kMP3player =
    QStringLiteral("MP3player"); // "1" the installed player, "0" the built-in one
inline const QString kInitDrive = QStringLiteral("InitDrive"); // last search string of the scan window
inline const QString kVindu = QStringLiteral("Vindu");         // state of the main window: 0, 1 or 2

inline const QString kOptionsSection = QStringLiteral("Options");
inline const QString kShowTips = QStringLiteral("Show Tips at Startup"); // "1" or "0"
inline const QString kSubdirectories =
    QStringLiteral("Include Subdirectories");                 // "1" or "0", of the scan window
inline const QString kCodePage = QStringLiteral("Code Page"); // of tags, by name: "windows-1251"

} // namespace settings
