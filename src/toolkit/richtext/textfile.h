// Reads the bytes of a text file.
#pragma once

#include "toolkit/richtext/richtext.h"

#include <QByteArrayView>

class CodePage;

// They are RTF when they begin as such, else lines of UTF-16 with a mark in front, of UTF-8
// or of that code page, in letters of one width.
RichText richTextOf(QByteArrayView bytes, const CodePage& otherwise);
