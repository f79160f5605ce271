#include "system/settings/keyvaluelines.h"

#include <algorithm>

namespace {

constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

QByteArrayView trimmed(QByteArrayView line)
{
    while (!line.isEmpty() && (isBlank(line.back()) || line.back() == '\r'))
        line.chop(1);
    while (!line.isEmpty() && isBlank(line.front()))
        line = line.sliced(1);
    return line;
}

bool isLoneSurrogate(const QString& text, qsizetype at)
{
    if (text[at].isHighSurrogate())
        return at + 1 == text.size() || !text[at + 1].isLowSurrogate();
    return text[at].isLowSurrogate() && (at == 0 || !text[at - 1].isHighSurrogate());
}

bool needsEscape(const QString& text, qsizetype at, bool isName)
{
    constexpr QStringView kMarksInNames(u"=[]#;");
    const QChar c = text[at];
    const bool atEitherEnd = at == 0 || at + 1 == text.size();
    return c == u'%' || c < u' ' || c == u'\x7F' || c == QChar::ByteOrderMark || (c == u' ' && atEitherEnd) ||
           isLoneSurrogate(text, at) || (isName && kMarksInNames.contains(c));
}

QByteArray escaped(const QString& text, bool isName)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const uint number = text[i].unicode();
        if (!needsEscape(text, i, isName))
            out += text[i];
        else if (number < 0x100)
            out += QStringLiteral("%%1").arg(number, 2, 16, QChar(u'0'));
        else
            out += QStringLiteral("%u%1").arg(number, 4, 16, QChar(u'0'));
    }
    return out.toUtf8();
}

// Returns the character that the digits name, and nothing when they are no such number.
std::optional<QChar> characterOf(QStringView digits, qsizetype count)
{
    const auto isHexDigit = [](QChar c) {
        return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    };
    if (digits.size() < count || !std::ranges::all_of(digits.first(count), isHexDigit))
        return {};
    return QChar(digits.first(count).toUShort(nullptr, 16));
}

QString unescaped(QByteArrayView bytes)
{
    const QString text = QString::fromUtf8(bytes);
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QStringView rest = QStringView(text).sliced(i);
        std::optional<QChar> character;
        qsizetype length = 0;
        if (rest.startsWith(u"%u"))
            character = characterOf(rest.sliced(2), length = 4);
        else if (rest.startsWith(u'%'))
            character = characterOf(rest.sliced(1), length = 2);
        out += character.value_or(text[i]);
        if (character)
            i += length + (length == 4 ? 1 : 0);
    }
    return out;
}

bool sameName(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace

KeyValueLines::KeyValueLines(QByteArray content) : m_content(std::move(content))
{
    qsizetype begin = m_content.startsWith(kByteOrderMark) ? kByteOrderMark.size() : 0;
    m_sections.push_back({{}, begin});
    while (begin < m_content.size()) {
        const qsizetype found = m_content.indexOf('\n', begin);
        const qsizetype end = found < 0 ? m_content.size() : found;
        const qsizetype next = found < 0 ? end : end + 1;
        readLine(begin, end, next);
        begin = next;
    }
}

void KeyValueLines::readLine(qsizetype begin, qsizetype end, qsizetype next)
{
    const QByteArrayView line = trimmed(QByteArrayView(m_content).sliced(begin, end - begin));
    if (line.isEmpty() || line.startsWith('#') || line.startsWith(';'))
        return;
    if (line.startsWith('['))
        readHeading(line, next);
    else if (m_inSection && line.isValidUtf8())
        readEntry(line, begin, next);
}

// Below a damaged heading nothing is read: its keys must not be taken for those of the section above.
void KeyValueLines::readHeading(QByteArrayView line, qsizetype next)
{
    m_inSection = line.isValidUtf8() && line.size() > 1 && line.endsWith(']');
    if (m_inSection)
        m_sections.push_back({unescaped(trimmed(line.sliced(1, line.size() - 2))), next});
}

void KeyValueLines::readEntry(QByteArrayView line, qsizetype begin, qsizetype next)
{
    const qsizetype equals = line.indexOf('=');
    if (equals < 0)
        return;
    Section& section = m_sections.back();
    const qsizetype end = line.data() + line.size() - m_content.constData();
    const qsizetype value = end - trimmed(line.sliced(equals + 1)).size();
    m_entries.push_back({section.name, unescaped(trimmed(line.first(equals))), begin, value, end, next});
    section.end = next;
}

const KeyValueLines::Entry* KeyValueLines::find(const QString& section, const QString& key) const
{
    const auto wanted = [&](const Entry& entry) {
        return sameName(entry.key, key) && sameName(entry.section, section);
    };
    const auto found = std::find_if(m_entries.rbegin(), m_entries.rend(), wanted);
    return found == m_entries.rend() ? nullptr : &*found;
}

std::optional<QString> KeyValueLines::value(const QString& section, const QString& key) const
{
    const Entry* entry = find(section, key);
    if (entry == nullptr)
        return {};
    return unescaped(QByteArrayView(m_content).sliced(entry->value, entry->valueEnd - entry->value));
}

QStringList KeyValueLines::keys(const QString& section) const
{
    QStringList keys;
    for (const Entry& entry : m_entries)
        if (sameName(entry.section, section) && !keys.contains(entry.key, Qt::CaseInsensitive))
            keys += entry.key;
    return keys;
}

QByteArray KeyValueLines::lineEnd() const
{
    return m_content.contains("\r\n") ? "\r\n" : "\n";
}

QByteArray KeyValueLines::with(const QString& section, const QString& key, const QString& value) const
{
    QByteArray changed = m_content;
    if (const Entry* entry = find(section, key))
        return changed.replace(entry->value, entry->valueEnd - entry->value, escaped(value, false));

    const QByteArray line = escaped(key, true) + '=' + escaped(value, false) + lineEnd();
    const auto wanted = [&](const Section& one) { return sameName(one.name, section); };
    const auto place = std::find_if(m_sections.rbegin(), m_sections.rend(), wanted);
    if (place != m_sections.rend()) {
        const bool behindOpenLine =
            place->end > 0 && place->end == m_content.size() && !m_content.endsWith('\n');
        return changed.insert(place->end, behindOpenLine ? lineEnd() + line : line);
    }
    if (!changed.isEmpty())
        changed += changed.endsWith('\n') ? lineEnd() : lineEnd() + lineEnd();
    return changed + '[' + escaped(section, true) + ']' + lineEnd() + line;
}

QByteArray KeyValueLines::without(const QString& section, const QString& key) const
{
    QByteArray changed = m_content;
    for (auto entry = m_entries.rbegin(); entry != m_entries.rend(); ++entry)
        if (sameName(entry->key, key) && sameName(entry->section, section))
            changed.remove(entry->line, entry->nextLine - entry->line);
    return changed;
}
