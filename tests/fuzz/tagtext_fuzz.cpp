// The end of any file: a tag is found where its marker stands first, and each field is that part of the
// bytes.
#include "archive/scan/tagtext.h"
#include "base/codepage.h"
#include "base/id3v1.h"
#include "tests/fuzz/demand.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const CodePage kPage = CodePage::windows1252();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const std::optional<TagText> tag = findTag(kPage.toText(bytes));

    const qsizetype at = bytes.toLower().indexOf("tag"); // only the letters A to Z have two cases here
    demand(tag.has_value() == (at >= 0), "a tag is where the marker is");
    if (!tag)
        return 0;
    const auto part = [&](int offset, int length) { return kPage.toText(bytes.mid(at + offset, length)); };
    demand(tag->song == part(id3v1::kTitleOffset, 30), "the song's field");
    demand(tag->artist == part(id3v1::kArtistOffset, 30), "the artist's field");
    demand(tag->album == part(id3v1::kAlbumOffset, 30), "the album's field");
    demand(tag->year == part(id3v1::kYearOffset, 4), "the year's field");
    demand(tag->comment == part(id3v1::kCommentOffset, 30), "the comment's field");
    return 0;
}
