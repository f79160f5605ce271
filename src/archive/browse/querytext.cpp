#include "archive/browse/querytext.h"

namespace {

const QString kSelect = QStringLiteral(
    "select fldArtist,fldPath,fldSong,fldVolum, fldAlbum, fldYear, fldComment from MP3 where ");

} // namespace

QString querytext::allOf(const Criteria& criteria)
{
    return kSelect + QStringLiteral("fldArtist like '%") + criteria.artist +
           QStringLiteral("%' And fldpath Like '%") + criteria.path +
           QStringLiteral("%' And fldSong Like '%") + criteria.song +
           QStringLiteral("%' And fldVolum Like '%") + criteria.diskName +
           QStringLiteral("%' And fldAlbum Like '%") + criteria.album +
           QStringLiteral("%' And fldYear Like '%") + criteria.year +
           QStringLiteral("%' And fldComment Like '%") + criteria.comment +
           QStringLiteral("%' And fldpath Like '%.") + criteria.extension + QStringLiteral("%'");
}

QString querytext::anyOf(const Criteria& criteria)
{
    return kSelect + QStringLiteral("(fldArtist like '%") + criteria.artist +
           QStringLiteral("%' Or fldpath Like '%") + criteria.path + QStringLiteral("%' Or fldSong Like '%") +
           criteria.song + QStringLiteral("%' Or fldVolum Like '%") + criteria.diskName +
           QStringLiteral("%' Or fldAlbum Like '%") + criteria.album +
           QStringLiteral("%' Or fldYear Like '%") + criteria.year +
           QStringLiteral("%' Or fldComment Like '%") + criteria.comment +
           QStringLiteral("%') And (fldpath Like '%.") + criteria.extension + QStringLiteral("%')");
}

bool querytext::holdsApostrophe(const Criteria& criteria)
{
    for (const QString* text : {&criteria.artist, &criteria.path, &criteria.song, &criteria.diskName,
                                &criteria.album, &criteria.year, &criteria.comment, &criteria.extension})
        if (text->contains(u'\''))
            return true;
    return false;
}
