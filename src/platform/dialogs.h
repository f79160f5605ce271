// Every modal question of the program, so that a test can answer it.
#pragma once

#include "base/runtimeerror.h"

#include <QString>

#include <optional>

enum class MessageIcon { None, Information, Question, Warning, Critical };
enum class MessageButtons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

struct Message {
    QString text{};
    QString title{};
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
};

// For a file dialog. Paths are the program's (drive letter, backslashes).
struct FileQuestion {
    QString title{};
    QString fileName{};  // suggested; with "*" in it, which files are offered when there is no filter
    QString directory{}; // where it begins; the home directory where that is not there
    QString objectName = QStringLiteral("FileDialog");
    // "MP3 Playlists (*.M3U)|*.M3U|Pictures|*.BMP;*.GIF": texts and their patterns, which ignore case. A text
    // without a pattern offers every file. A file to save that is named without an extension gets that of the
    // chosen entry's first pattern.
    QString filter{};
};

class Dialogs {
public:
    virtual ~Dialogs() = default;

    // Closing the box counts as its OK, or as No. Carriage returns in the text part its lines.
    virtual Answer message(const Message& message) = 0;

    // Nothing when these are cancelled, or nobody can answer any more.
    virtual std::optional<QString> inputBox(const QString& prompt, const QString& title) = 0;
    virtual std::optional<QString> openFile(const FileQuestion& question) = 0;
    virtual std::optional<QString> saveFile(const FileQuestion& question) = 0; // asks before it replaces one
    // A directory, begun at home; objectName "BrowseFolder".
    virtual std::optional<QString> browseFolder(const QString& title) = 0;

    // The system's own box for an error that nobody trapped.
    virtual void runTimeError(const RunTimeError& error) = 0;
};
