// Takes a path of the program ("D:\Music\a.mp3") apart.
#pragma once

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <optional>
#include <vector>

struct DrivePath {
    char letter; // 'A' to 'Z'
    std::vector<QByteArray> names;

    // "/" counts as "\", doubled ones as one. "." and ".." are resolved in the text; the root's parent is the
    // root. It is nothing when the text begins with no letter and colon, or holds a character that no name
    // can (NUL).
    static std::optional<DrivePath> parse(QStringView text);

    // Makes the path below a directory of the machine.
    QByteArray below(const QByteArray& directory) const;
};

// Returns the letter of a text that begins with a letter and a colon, 0 of any other.
char driveLetter(QStringView text);

inline bool isSeparator(QChar c)
{
    return c == u'\\' || c == u'/';
}
// Is the place behind the last separator, or the beginning when there is none.
inline const QChar* lastName(QStringView text)
{
    return std::find_if(text.rbegin(), text.rend(), isSeparator).base();
}
QByteArray joined(const QByteArray& directory, const QByteArray& name);
