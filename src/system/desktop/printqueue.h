// Hands a PDF file to the printing system.
#pragma once

#include "system/desktop/printchoice.h"

#include <functional>

namespace printqueue {

// Returns the words of the command that does so.
QStringList command(const PrintChoice& choice, const QString& file);

// It is false when it was given up, which it may be at any moment: nothing is printed then. Throws
// RunTimeError 482, with what the printing system says, when that refuses the file.
bool submit(const PrintChoice& choice, const QString& file, const std::function<bool()>& goesOn);

} // namespace printqueue
