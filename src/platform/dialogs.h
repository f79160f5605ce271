// Every modal question of the program passes here, so that a test can answer it.
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

// A file dialog is asked with this. Paths are the program's (drive letter, backslashes).
struct FileQuestion {
    QString title{};
    QString fileName{};  // suggested; with "*" in it, which files are offered when there is no filter
    QString directory{}; // where it begins; the home directory where that is not there
    QString objectName = QStringLiteral("FileDialog");
    // Holds texts and their patterns, as in "MP3 Playlists (*.M3U)|*.M3U|Pictures|*.BMP;*.GIF"; patterns
    // ignore case. A text without a pattern offers every file. A file to save that is named without an
    // extension gets that of the chosen entry's first pattern.
    QString filter{};
    int* chosenEntry = nullptr; // is told which entry of the filter was chosen at last, counted from 0
};

class Dialogs {
public:
    virtual ~Dialogs() = default;

    // Closing the box counts as its OK, or as No. Carriage returns in the text part its lines.
    virtual Answer message(const Message& message) = 0;

    // These give nothing when they are cancelled, or nobody can answer any more.
    virtual std::optional<QString> inputBox(const QString& prompt, const QString& title) = 0;
    virtual std::optional<QString> openFile(const FileQuestion& question) = 0;
    virtual std::optional<QString> saveFile(const FileQuestion& question) = 0; // asks before it replaces one
    // Asks for a directory, begun at home; the dialog's objectName is "BrowseFolder".
    virtual std::optional<QString> browseFolder(const QString& title) = 0;

    // Shows the system's own box for an error that nobody trapped.
    virtual void runTimeError(const RunTimeError& error) = 0;
};
