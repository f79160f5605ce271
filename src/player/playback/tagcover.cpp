#include "player/playback/tagcover.h"

#include "base/textrules.h"
#include "player/playback/tagrecord.h"
#include "player/playlist/modcommon.h"

namespace {

// A field is filled up with blanks or with NULs.
QString withoutFilling(const QString& field)
{
    return textrules::withoutBlanks(field.left(field.indexOf(u'\0')));
}

// Makes a name that a file can have: a tag is not to lead into another directory, nor to any file that fits a
// pattern.
QString fileName(QString text)
{
    for (QChar& character : text)
        if (character < u' ' || QStringView(u"\\/:*?\"<>|").contains(character))
            character = u'-';
    return text;
}

} // namespace

QString tagCover(Files& files, const QString& directory, TagRecord& tag)
{
    tag.artist = withoutFilling(tag.artist);
    tag.album = withoutFilling(tag.album);
    const QString artist = fileName(tag.artist);
    const QString album = fileName(tag.album);
    if (album.isEmpty())
        return {};
    for (const QString& name : {album, artist + u'-' + album, artist + QStringLiteral(" - ") + album})
        if (QString picture = FindPicture(files, directory + name); !picture.isEmpty())
            return picture;
    return {};
}
