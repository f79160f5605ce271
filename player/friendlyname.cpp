#include "base/textrules.h"
#include "player/modcommon.h"

namespace {

constexpr qsizetype kExtensionRoom = 5; // a dot among so many last characters begins the extension

QString withoutTrackNumber(const QString& name)
{
    if (textrules::val(name) <= 0)
        return name;
    QString rest = name;
    if (rest.size() > 2 && rest[2] == u'-')
        rest.remove(0, 3);
    if (rest.size() > 3 && rest[2] == u' ' && rest[3] == u'-')
        rest.remove(0, 4);
    return rest;
}

} // namespace

QString FriendlyName(const QString& path, bool friendlyNames)
{
    const qsizetype start = path.lastIndexOf(u'\\') + 1;
    if (!friendlyNames)
        return textrules::withoutBlanks(QStringView(path).mid(start));
    // Kept: the limit counts on the whole path's length, and a longer extension stays, its dot a blank.
    const qsizetype limit = path.size() - kExtensionRoom;
    qsizetype end = path.lastIndexOf(u'.');
    if (end < start || end < limit)
        end = path.size();
    QString name = path.mid(start, end - start);
    for (qsizetype i = 0; i < name.size(); ++i)
        if (name[i] == u'_' || (name[i] == u'.' && start + i < limit))
            name[i] = u' ';
    return textrules::withoutBlanks(withoutTrackNumber(name));
}
