// Reads a skin's control file onto a SkinTarget: header, elements, end.
//
// A run-time error (a malformed number, a file that ends too early) ends the load where it is: what was
// applied stays, there is no outline and no message.
#pragma once

#include "player/skin/skinhost.h"
#include "player/skin/skinlint.h"
#include "player/skin/skintarget.h"

#include <functional>

class SkinLines;

class SkinInterpreter {
public:
    // Takes the reader at the file's beginning. The description begins anew, switch names stay until the file
    // gives others.
    explicit SkinInterpreter(const SkinSeams& seams, SkinDiagnostics* notes = nullptr);

    // Reads the first line. It is false when it is no skin's; then nothing was done.
    bool isSkin();

    // Reads everything behind the first line. Bitmaps lie in the directory, which has a trailing backslash.
    void load(const QString& directory);

private:
    bool attempt(const std::function<void()>& step); // false when it threw a RunTimeError
    void apply(const WindowSizes& sizes, const QString& directory, SkinLines& lines);
    QString setBitmaps(const WindowSizes& sizes, const QString& directory);
    QString importDirectory(const QString& proposed);
    void setBitmap(bool (SkinTarget::*set)(const QString&), const QString& path, const QString& what);
    void setWindow();
    void setOutline(const SkinLines& lines, const WindowSizes& sizes);

    SkinSeams m_seams;
    SkinLint m_remarks;
};
