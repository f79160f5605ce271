// Knows the single-byte code pages that this machine has by name.
#pragma once

#include "base/codepage.h"

#include <optional>

// Takes any name that iconv knows ("Windows-1251", "ISO-8859-15", "CP437", "KOI8-R"), without regard to case.
// Returns nothing for an unknown name and for an encoding in which a byte alone is not always a character
// (UTF-8, Shift_JIS, UTF-16).
std::optional<CodePage> singleByteCodePage(const QString& name);
