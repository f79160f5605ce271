#include "base/textrules.h"
#include "player/modcommon.h"

#include <algorithm>

namespace {

constexpr qsizetype kExtensionRoom = 5; // a dot among so many last characters begins the extension

bool hasDash(QStringView name)
{
    return name.size() > 2 && name[2] == u'-';
}

bool hasBlankAndDash(QStringView name)
{
    return name.size() > 3 && name[2] == u' ' && name[3] == u'-';
}

// Of a name with a dash behind its first two characters. Two digits, which is what nearly all have, are told
// without making a number of them: this runs for every line of a playlist.
bool beginsWithNumber(QStringView name)
{
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    if (isDigit(name[0]) && isDigit(name[1]))
        return name[0] != u'0' || name[1] != u'0';
    return textrules::val(name) > 0;
}

QStringView withoutTrackNumber(QStringView name)
{
    if ((!hasDash(name) && !hasBlankAndDash(name)) || !beginsWithNumber(name))
        return name;
    if (hasDash(name))
        name = name.sliced(3);
    return hasBlankAndDash(name) ? name.sliced(4) : name;
}

QStringView withoutBlanks(QStringView name)
{
    while (name.startsWith(u' '))
        name = name.sliced(1);
    while (name.endsWith(u' '))
        name.chop(1);
    return name;
}

} // namespace

QString FriendlyName(const QString& path, bool friendlyNames)
{
    const qsizetype start = path.lastIndexOf(u'\\') + 1;
    if (!friendlyNames)
        return textrules::withoutBlanks(QStringView(path).mid(start));
    // Kept: the limit counts on the whole path's length, and a longer extension stays, its dot a blank.
    const qsizetype limit = path.size() - kExtensionRoom;
    const qsizetype searched = std::max({start, limit, qsizetype(0)});
    const qsizetype dot = QStringView(path).sliced(searched).lastIndexOf(u'.');
    QString name = path.mid(start, dot < 0 ? -1 : searched + dot - start);
    QChar* const characters = name.data();
    const qsizetype dotsBefore = std::clamp(limit - start, qsizetype(0), name.size());
    std::replace(characters, characters + name.size(), QChar(u'_'), QChar(u' '));
    std::replace(characters, characters + dotsBefore, QChar(u'.'), QChar(u' '));
    const QStringView shown = withoutBlanks(withoutTrackNumber(name));
    const qsizetype before = shown.begin() - QStringView(name).begin();
    name.truncate(before + shown.size());
    return name.remove(0, before);
}
