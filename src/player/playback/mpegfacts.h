// Reads what the first four bytes of an MPEG audio file and its ID3v1 tag tell.
#pragma once

#include "player/playback/tagrecord.h"

class CodePage;
class FileNumbers;
class Files;

struct MpegFacts {
    QString bitRate{};  // kbit/s as text, empty when not known
    QString sampling{}; // kHz as text, "??" for the undefined one
    QString mode{};
    double bitRateValue = 0; // of the text; 0 when it is no number
    double samplingValue = 0;
    bool read = false; // the texts count; false when the file is missing or shorter than 256 bytes
    TagRecord tag{};
};

// Closes every open file of the table. A file that cannot be read is like one that is missing.
MpegFacts GetMP3Info(const QString& path, Files& files, FileNumbers& numbers, const CodePage& codePage);
