#include "scan/tagtext.h"

#include "base/id3v1.h"

std::optional<TagText> findTag(const QString& tail)
{
    const qsizetype tag = tail.indexOf(QStringLiteral("tag"), 0, Qt::CaseInsensitive);
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
