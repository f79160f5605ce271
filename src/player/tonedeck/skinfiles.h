// Finds where a skin's control file is, and reads what is in it.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

class FileNumbers;

// Names the directories in the order in which they are asked; the first two may be empty.
struct SkinDirectories {
    QString skins{};  // the setting's
    QString before{}; // of the skin loaded before
    QString program{};
};

// "Gold*" is Gold1024.skin on a screen of 1024 pixels.
QString skinFileName(const QString& name, int screenWidth);

// Returns the full path of a skin's name or path, as skinFileName gives it. What is not where it belongs is
// looked for beside the program.
std::optional<QString> findSkin(const QString& name, const SkinDirectories& directories,
                                const std::function<bool(const QString&)>& exists);

// Returns nothing for a file that cannot be read or is longer.
std::optional<QByteArray> readWhole(FileNumbers& numbers, const QString& path, qint64 most);
