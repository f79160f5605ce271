// Holds the player's tag record: texts of fixed width, one character for each byte of an ID3v1 tag
// (base/id3v1.h).
#pragma once

#include "base/id3v1.h"

#include <QString>

struct TagRecord {
    QString title = QString(id3v1::kTextLength, u' ');
    QString artist = QString(id3v1::kTextLength, u' ');
    QString album = QString(id3v1::kTextLength, u' ');
    QString year = QString(id3v1::kYearLength, u' ');
    QString comment = QString(id3v1::kCommentLength, u' ');
    QString track = QStringLiteral(" "); // one character: the byte
    QString genre = QStringLiteral("P"); // one character: the byte; 80 when there is no tag
    bool operator==(const TagRecord&) const = default;
};
