#include "base/dospath.h"

namespace dospath {

namespace {

const QChar kBackslash = u'\\';

bool sameLetter(QChar a, QChar b)
{
    return a == b || a.toCaseFolded() == b.toCaseFolded();
}

} // namespace

Split splitAtLastBackslash(const QString& path)
{
    const qsizetype at = path.lastIndexOf(kBackslash) + 1;
    return {path.left(at), path.mid(at)};
}

QString fileName(const QString& path)
{
    return path.mid(path.lastIndexOf(kBackslash) + 1);
}

QString drive(const QString& path)
{
    return path.left(2);
}

QString root(const QString& path)
{
    return drive(path) + kBackslash;
}

QString withTrailingBackslash(const QString& path)
{
    return path.endsWith(kBackslash) ? path : path + kBackslash;
}

QString withoutDoubledRoot(const QString& searchString)
{
    if (searchString.size() < 4 || searchString.at(3) != kBackslash)
        return searchString;
    return searchString.left(3) + searchString.mid(4);
}

bool matches(QStringView name, QStringView pattern)
{
    if (pattern == u"*.*")
        return true;
    qsizetype n = 0;
    qsizetype p = 0;
    qsizetype star = -1;
    qsizetype resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            star = p++;
            resume = n;
        } else if (p < pattern.size() && (pattern[p] == u'?' || sameLetter(pattern[p], name[n]))) {
            ++p;
            ++n;
        } else if (star >= 0) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'*')
        ++p;
    return p == pattern.size();
}

} // namespace dospath
