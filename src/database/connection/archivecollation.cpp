#include "database/connection/archivecollation.h"

#include "database/connection/sqlitecheck.h"

#include <QLocale>
#include <QStringDecoder>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

constexpr char16_t kHighest = 0xFFFF; // sorts behind every character in every locale
constexpr char16_t kFirstPrinting = 0x20;
constexpr char16_t kDelete = 0x7f;

// Returns the characters of ASCII that print, upper-case letters left out.
std::vector<char16_t> plainCharacters()
{
    std::vector<char16_t> result;
    for (char16_t c = kFirstPrinting; c < kDelete; ++c)
        if (c < u'A' || c > u'Z')
            result.push_back(c);
    return result;
}

unsigned char lower(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + ('a' - 'A')) : byte;
}

std::size_t pairIndex(unsigned first, unsigned second)
{
    return std::size_t{first} * 128U + second;
}

int sign(qsizetype difference)
{
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

int compareNoCase(void* order, int lengthA, const void* a, int lengthB, const void* b)
{
    return static_cast<ArchiveOrder*>(order)->compare({static_cast<const char*>(a), lengthA},
                                                      {static_cast<const char*>(b), lengthB});
}

void deleteOrder(void* order)
{
    delete static_cast<ArchiveOrder*>(order);
}

} // namespace

ArchiveOrder::ArchiveOrder(const QCollator& collator) : m_collator(collator)
{
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
    m_collator.setIgnorePunctuation(false);
    m_collator.setNumericMode(false);
}

QCollator ArchiveOrder::userCollator()
{
    return QCollator(QLocale::system().collation());
}

// The ranks are made at the first comparison, because most connections never compare.
void ArchiveOrder::prepare()
{
    m_prepared = true;
    rankPlain();
    findContractions();
}

// Characters get their rank in the locale. One that differs from its neighbour by less than a letter does (as
// v and w did in old Swedish) decides only behind all the others in the text, so it gets none.
void ArchiveOrder::rankPlain()
{
    std::vector<char16_t> characters = plainCharacters();
    std::sort(characters.begin(), characters.end(), [this](char16_t a, char16_t b) {
        return m_collator.compare(QStringView(&a, 1), QStringView(&b, 1)) < 0;
    });
    unsigned char rank = 0;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        m_rank[characters[i]] = ++rank;
        const std::array<char16_t, 2> before{i == 0 ? u'\0' : characters[i - 1], kHighest};
        if (i > 0 && m_collator.compare(QStringView(before), QStringView(&characters[i], 1)) >= 0)
            m_rank[characters[i]] = m_rank[characters[i - 1]] = 0;
    }
    for (std::size_t c = 'A'; c <= 'Z'; ++c)
        m_rank[c] = m_rank[lower(static_cast<char>(c))];
}

bool ArchiveOrder::contracts(QStringView text, QStringView start) const
{
    std::array<char16_t, 4> limit{};
    const auto end = std::copy(start.utf16(), start.utf16() + start.size(), limit.begin());
    *end = kHighest;
    return m_collator.compare(text, start) <= 0 ||
           m_collator.compare(text, QStringView(limit.data(), start.size() + 1)) >= 0;
}

// Two characters that count as one letter (aa in Norwegian, ch in Czech) do not sort between the first alone
// and the first with the highest character behind it. Three of them occur with an apostrophe in the middle.
void ArchiveOrder::findContractions()
{
    const std::vector<char16_t> characters = plainCharacters();
    const auto isLetter = [](char16_t c) { return c >= u'a' && c <= u'z'; };
    for (const char16_t a : characters) {
        for (const char16_t b : characters) {
            const std::array<char16_t, 2> pair{a, b};
            if (contracts(pair, QStringView(&a, 1)))
                m_contracts.set(pairIndex(a, b));
            const std::array<char16_t, 3> triple{a, u'\'', b};
            if (isLetter(a) && isLetter(b) && contracts(triple, QStringView(triple).first(2))) {
                m_contracts.set(pairIndex(a, u'\''));
                m_contracts.set(pairIndex(u'\'', b));
            }
        }
    }
}

// Tells whether the byte there is a character whose rank decides whatever stands before and behind it.
bool ArchiveOrder::isPlainAt(QByteArrayView text, qsizetype place) const
{
    const auto plain = [&](qsizetype at) {
        const unsigned char c = lower(text[at]);
        return c < kPlain && m_rank[c] != 0;
    };
    if (!plain(place))
        return false;
    const unsigned char here = lower(text[place]);
    if (place > 0 && (!plain(place - 1) || m_contracts[pairIndex(lower(text[place - 1]), here)]))
        return false;
    return place + 1 >= text.size() ||
           (plain(place + 1) && !m_contracts[pairIndex(here, lower(text[place + 1]))]);
}

int ArchiveOrder::rankAt(QByteArrayView text, qsizetype place) const
{
    return place < text.size() ? m_rank[lower(text[place])] : 0; // the end sorts before all
}

int ArchiveOrder::compare(QByteArrayView a, QByteArrayView b) noexcept
{
    if (!m_prepared)
        prepare();
    const qsizetype common = std::min(a.size(), b.size());
    qsizetype at = 0;
    while (at < common && (a[at] == b[at] || lower(a[at]) == lower(b[at])))
        ++at;
    if (at == a.size() && at == b.size())
        return 0;
    const bool decidesA = at == a.size() || isPlainAt(a, at);
    if (decidesA && (at == b.size() || isPlainAt(b, at)))
        return sign(rankAt(a, at) - rankAt(b, at));
    return compareFolded(a, b);
}

QStringView ArchiveOrder::fold(QByteArrayView text, Units& buffer)
{
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const auto needed = static_cast<std::size_t>(decoder.requiredSpace(text.size()));
    if (buffer.size() < needed)
        buffer.resize(needed);
    auto* const begin = reinterpret_cast<QChar*>(buffer.data());
    QChar* const end = decoder.appendToBuffer(begin, text);
    for (QChar* c = begin; c != end; ++c) {
        if (!c->isSurrogate()) {
            *c = c->toCaseFolded();
        } else if (c->isHighSurrogate() && c + 1 != end && c[1].isLowSurrogate()) {
            const char32_t folded = QChar::toCaseFolded(QChar::surrogateToUcs4(c[0], c[1]));
            *c++ = QChar(QChar::highSurrogate(folded));
            *c = QChar(QChar::lowSurrogate(folded));
        }
    }
    return {begin, end};
}

int ArchiveOrder::compareFolded(QByteArrayView a, QByteArrayView b) noexcept
{
    const QStringView first = fold(a, m_first);
    const QStringView second = fold(b, m_second);
    const int byLocale = m_collator.compare(first, second);
    return byLocale != 0 ? byLocale : sign(QtPrivate::compareStrings(first, second, Qt::CaseSensitive));
}

void registerArchiveOrder(sqlite3* database, const QCollator& collator)
{
    auto order = std::make_unique<ArchiveOrder>(collator);
    // SQLite does not delete it when it refuses.
    checked(database, sqlite3_create_collation_v2(database, "NOCASE", SQLITE_UTF8, order.get(), compareNoCase,
                                                  deleteOrder));
    static_cast<void>(order.release());
}
