#include "system/drives/drivepath.h"

#include "base/filenametext.h"

#include <algorithm>

namespace {

void addName(std::vector<QByteArray>& names, QStringView name)
{
    if (name.isEmpty() || name == u".")
        return;
    if (name != u"..")
        names.push_back(filenametext::toBytes(name));
    else if (!names.empty())
        names.pop_back();
}

} // namespace

QByteArray joined(const QByteArray& directory, const QByteArray& name)
{
    return directory.endsWith('/') ? directory + name : directory + '/' + name;
}

char driveLetter(QStringView text)
{
    if (text.size() < 2 || text[1] != u':')
        return '\0';
    const char16_t c = text[0].unicode();
    if (c >= u'a' && c <= u'z')
        return static_cast<char>(c - u'a' + u'A');
    return c >= u'A' && c <= u'Z' ? static_cast<char>(c) : '\0';
}

std::optional<DrivePath> DrivePath::parse(QStringView text)
{
    DrivePath path{driveLetter(text), {}};
    if (path.letter == '\0' || text.contains(u'\0'))
        return std::nullopt;
    for (const QChar* at = text.begin() + 2; at != text.end();) {
        const QChar* const end = std::find_if(at, text.end(), isSeparator);
        addName(path.names, QStringView(at, end));
        at = end == text.end() ? end : end + 1;
    }
    return path;
}

QByteArray DrivePath::below(const QByteArray& directory) const
{
    QByteArray path = directory;
    for (const QByteArray& name : names)
        path = joined(path, name);
    return path;
}
