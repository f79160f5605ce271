// Takes apart paths as the program writes them, with a drive letter, a colon and backslashes
// ("D:\Music\a.mp3").
#pragma once

#include <QString>

namespace dospath {

struct Split {
    QString directory; // up to and including the last backslash, empty when there is none
    QString rest;
};

Split splitAtLastBackslash(const QString& path);
QString fileName(const QString& path);

// Returns "D:" of "D:\Music", the first two characters whatever they are.
QString drive(const QString& path);
// Returns "D:\" of "D:\Music".
QString root(const QString& path);

QString withTrailingBackslash(const QString& path);

// "C:\\*.MP3", which arises when the directory is a drive's root, becomes "C:\*.MP3": a backslash at the
// fourth place is dropped.
QString withoutDoubledRoot(const QString& searchString);

// Tells whether a file name matches a pattern of "*" and "?", without regard to case; "*.*" matches every
// name.
bool matches(QStringView name, QStringView pattern);

} // namespace dospath
