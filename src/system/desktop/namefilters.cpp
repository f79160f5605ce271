#include "system/desktop/namefilters.h"

namespace {

const QString kEveryFile = QStringLiteral("*");

// The pattern "*.*" means every file, those without a dot too.
QStringList patternsOf(const QString& text)
{
    QStringList patterns;
    for (const QString& part : text.split(u';')) {
        const QString pattern = part.trimmed();
        if (!pattern.isEmpty())
            patterns += pattern == QStringLiteral("*.*") ? kEveryFile : pattern;
    }
    return patterns.isEmpty() ? QStringList{kEveryFile} : patterns;
}

// The toolkit knows a pattern by these characters, parts patterns at blanks and gives brackets a meaning.
bool isPlain(char32_t c)
{
    constexpr QStringView kMarks(u"_.,*?+#-@{}!<>$%&=^~");
    const bool letterOrDigit =
        (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z') || (c >= U'0' && c <= U'9');
    return letterOrDigit || (c < 0x80 && kMarks.contains(QChar(static_cast<char16_t>(c))));
}

// What it does not take becomes "?", so that the entry offers at least the files it names.
QString toolkitPattern(const QString& pattern)
{
    QString out;
    for (const char32_t c : pattern.toUcs4())
        out += isPlain(c) ? QChar(static_cast<char16_t>(c)) : QChar(u'?');
    return out;
}

} // namespace

std::vector<NameFilter> nameFilters(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    std::vector<NameFilter> filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const bool onlyAfterTheLastBar = i + 1 == parts.size() && parts[i].isEmpty();
        if (!onlyAfterTheLastBar)
            filters.push_back({parts[i], patternsOf(parts.value(i + 1))});
    }
    return filters;
}

// The toolkit takes the last parentheses for the patterns, whatever stands in the text.
QString toolkitFilter(const NameFilter& filter)
{
    QStringList patterns;
    for (const QString& pattern : filter.patterns)
        patterns += toolkitPattern(pattern);
    return filter.text.simplified() + QStringLiteral(" (") + patterns.join(u' ') + u')';
}

QString firstExtension(const NameFilter& filter)
{
    const QString pattern = filter.patterns.value(0);
    const QString extension = pattern.mid(2);
    const bool open = extension.contains(u'*') || extension.contains(u'?') || extension.contains(u'.');
    return pattern.startsWith(QStringLiteral("*.")) && !open ? extension : QString();
}
