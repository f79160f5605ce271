#include "player/skin/skinreader.h"

#include "base/codepage.h"
#include "base/runtimeerror.h"
#include "base/textrules.h"

#include <limits>
#include <optional>

namespace {

QByteArrayView withoutLeadingBlanks(QByteArrayView bytes)
{
    qsizetype blanks = 0;
    while (blanks < bytes.size() && bytes[blanks] == ' ')
        ++blanks;
    return bytes.sliced(blanks);
}

QByteArrayView withoutTrailingBlanks(QByteArrayView bytes)
{
    while (bytes.endsWith(' '))
        bytes.chop(1);
    return bytes;
}

// Nearly every number of a skin is nothing but a sign and digits.
std::optional<int> plainNumber(QByteArrayView text)
{
    const bool negative = text.startsWith('-');
    const QByteArrayView digits = text.sliced(negative || text.startsWith('+') ? 1 : 0);
    if (digits.isEmpty())
        return std::nullopt;
    int value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9')
            return std::nullopt;
        if (value <= std::numeric_limits<qint16>::max()) // further digits make it no smaller
            value = value * 10 + (c - '0');
    }
    value = negative ? -value : value;
    if (value < std::numeric_limits<qint16>::min() || value > std::numeric_limits<qint16>::max())
        throw RunTimeError(ErrorNumber::Overflow);
    return value;
}

} // namespace

SkinReader::SkinReader(QByteArray bytes, const CodePage& codePage)
    : m_bytes(std::move(bytes)), m_codePage(codePage)
{
    if (m_bytes.startsWith("\xEF\xBB\xBF"))
        m_next = 3;
    m_lineFeed = m_next - 1;
}

QString SkinReader::field()
{
    return text(take());
}

int SkinReader::number()
{
    const QByteArrayView bytes = take();
    if (bytes.isEmpty())
        return 0;
    if (const std::optional<int> plain = plainNumber(bytes))
        return *plain;
    return textrules::toInteger(text(bytes));
}

QString SkinReader::restOfLine()
{
    if (!m_open)
        return {};
    m_open = false;
    return text(m_rest);
}

QByteArrayView SkinReader::take()
{
    if (!m_open)
        nextLine();
    QByteArrayView rest = withoutLeadingBlanks(m_rest);
    QByteArrayView content;
    const bool quoted = rest.startsWith('"');
    if (quoted) {
        rest = rest.sliced(1);
        const qsizetype quote = rest.indexOf('"');
        content = quote < 0 ? rest : rest.first(quote);
        rest = quote < 0 ? QByteArrayView() : rest.sliced(quote + 1);
    }
    const qsizetype comma = rest.indexOf(',');
    if (!quoted)
        content = withoutTrailingBlanks(comma < 0 ? rest : rest.first(comma));
    m_open = comma >= 0;
    m_rest = m_open ? rest.sliced(comma + 1) : QByteArrayView();
    return content;
}

void SkinReader::nextLine()
{
    if (m_next >= m_bytes.size())
        throw RunTimeError(ErrorNumber::InputPastEnd);
    const QByteArrayView bytes(m_bytes);
    if (m_lineFeed < m_next) {
        const qsizetype found = bytes.indexOf('\n', m_next);
        m_lineFeed = found < 0 ? bytes.size() : found;
    }
    const QByteArrayView upToLineFeed = bytes.sliced(m_next, m_lineFeed - m_next);
    const qsizetype carriageReturn = upToLineFeed.indexOf('\r');
    m_rest = carriageReturn < 0 ? upToLineFeed : upToLineFeed.first(carriageReturn);
    m_next += m_rest.size() + 1;
    if (carriageReturn >= 0 && m_next == m_lineFeed)
        ++m_next;
    m_open = true;
    m_utf8 = m_rest.isValidUtf8();
    ++m_line;
}

QString SkinReader::text(QByteArrayView bytes) const
{
    return m_utf8 ? QString::fromUtf8(bytes) : m_codePage.toText(bytes);
}
