#include "base/textrules.h"
#include "player/playlist/modcommon.h"

#include <QVarLengthArray>

#include <algorithm>

namespace {

constexpr qsizetype kExtensionRoom = 5; // a dot among so many last characters begins the extension

constexpr qsizetype kUsualName = 256;

qsizetype lengthUpToLast(char16_t character, QStringView text)
{
    qsizetype length = text.size();
    while (length > 0 && text[length - 1] != character)
        --length;
    return length;
}

// Takes the first `count` characters, with blanks for those that are `replaced`. Every one is written, for
// that can be done to many of them at once.
void putBlanks(const char16_t* from, char16_t* to, qsizetype count, char16_t replaced)
{
    for (qsizetype i = 0; i < count; ++i)
        to[i] = from[i] == replaced ? u' ' : from[i];
}

bool hasDash(QStringView name)
{
    return name.size() > 2 && name[2] == u'-';
}

bool hasBlankAndDash(QStringView name)
{
    return name.size() > 3 && name[2] == u' ' && name[3] == u'-';
}

// Serves a name with a dash behind its first two characters. Two digits, which is what nearly all have, are
// told without making a number of them: this runs for every line of a playlist.
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
    const QStringView name = QStringView(path).sliced(lengthUpToLast(u'\\', path));
    if (!friendlyNames)
        return textrules::withoutBlanks(name);
    // Kept: a longer extension stays, and its dot becomes a blank.
    const qsizetype dotsBefore = std::max(name.size() - kExtensionRoom, qsizetype(0));
    const qsizetype upToDot = lengthUpToLast(u'.', name.sliced(dotsBefore));
    const QStringView kept = upToDot == 0 ? name : name.first(dotsBefore + upToDot - 1);
    QVarLengthArray<char16_t, kUsualName> shown(kept.size());
    putBlanks(kept.utf16(), shown.data(), kept.size(), u'_');
    putBlanks(shown.data(), shown.data(), std::min(dotsBefore, kept.size()), u'.');
    return withoutBlanks(withoutTrackNumber({shown.data(), shown.size()})).toString();
}
