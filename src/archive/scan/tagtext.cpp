#include "archive/scan/tagtext.h"

#include "base/id3v1.h"

namespace {

bool isLetter(QChar c, char16_t lower)
{
    return (c.unicode() | 0x20U) == lower;
}

qsizetype findMarker(const QString& tail)
{
    for (qsizetype i = 0; i + 2 < tail.size(); ++i)
        if (isLetter(tail[i], u't') && isLetter(tail[i + 1], u'a') && isLetter(tail[i + 2], u'g'))
            return i;
    return -1;
}

} // namespace

std::optional<TagText> findTag(const QString& tail)
{
    const qsizetype tag = findMarker(tail);
    if (tag < 0)
        return {};
    return TagText{
        .song = tail.mid(tag + id3v1::kTitleOffset, id3v1::kTextLength),
        .artist = tail.mid(tag + id3v1::kArtistOffset, id3v1::kTextLength),
        .album = tail.mid(tag + id3v1::kAlbumOffset, id3v1::kTextLength),
        .year = tail.mid(tag + id3v1::kYearOffset, id3v1::kYearLength),
        .comment = tail.mid(tag + id3v1::kCommentOffset, id3v1::kTextLength),
    };
}
