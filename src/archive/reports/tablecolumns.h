// Names the columns of the archive's table in their order.
#pragma once

#include <QStringList>

namespace tablecolumns {

enum Column { kVolum, kPath, kArtist, kSong, kAlbum, kYear, kComment };

inline QStringList names()
{
    return {QStringLiteral("fldVolum"),  QStringLiteral("fldPath"),  QStringLiteral("fldArtist"),
            QStringLiteral("fldSong"),   QStringLiteral("fldAlbum"), QStringLiteral("fldYear"),
            QStringLiteral("fldComment")};
}

} // namespace tablecolumns
