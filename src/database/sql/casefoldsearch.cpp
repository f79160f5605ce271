#include "database/sql/casefoldsearch.h"

#include "database/sql/casefold.h"

#include <algorithm>
#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

CasefoldSearch::CasefoldSearch(const std::vector<char32_t>& characters)
{
    for (const char32_t character : characters)
        addLetter(character);
    m_first = pivotOf(m_letters.front(), 0);
    m_last = pivotOf(m_letters.back(), m_size - m_letters.back().size);
}

void CasefoldSearch::addLetter(char32_t folded)
{
    Letter letter;
    bool hasOther = false;
    for (const char32_t variant : casefold::variantsOf(folded)) {
        const QByteArray bytes = casefold::encoded(variant);
        if (letter.size == 0) {
            letter.size = static_cast<int>(bytes.size());
            std::copy(bytes.begin(), bytes.end(), letter.one.begin());
            letter.other = letter.one;
        } else if (bytes.size() == letter.size && !hasOther) {
            hasOther = true;
            std::copy(bytes.begin(), bytes.end(), letter.other.begin());
        } else {
            m_hidden.push_back(bytes);
        }
    }
    m_size += letter.size;
    m_letters.push_back(letter);
}

// The last byte of a character tells the most.
CasefoldSearch::Pivot CasefoldSearch::pivotOf(const Letter& letter, qsizetype offset)
{
    const auto last = static_cast<std::size_t>(letter.size - 1);
    return {offset + letter.size - 1, letter.one[last], letter.other[last]};
}

bool CasefoldSearch::fitsAt(const char* place) const
{
    for (const Letter& letter : m_letters) {
        const auto size = static_cast<std::size_t>(letter.size);
        if (std::memcmp(place, letter.one.data(), size) != 0 &&
            std::memcmp(place, letter.other.data(), size) != 0)
            return false;
        place += size;
    }
    return true;
}

qsizetype CasefoldSearch::findPlainly(QByteArrayView text, qsizetype from, qsizetype last) const
{
    const auto is = [](const Pivot& pivot, const char* place) {
        const char byte = place[pivot.offset];
        return byte == pivot.one || byte == pivot.other;
    };
    for (qsizetype at = from; at <= last; ++at) {
        const char* const place = text.data() + at;
        if (is(m_last, place) && is(m_first, place) && fitsAt(place))
            return at;
    }
    return kNotFound;
}

#if defined(__SSE2__)

namespace {

constexpr qsizetype kWidth = 16;

__m128i equalTo(__m128i bytes, char one, char other)
{
    return _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(one)),
                        _mm_cmpeq_epi8(bytes, _mm_set1_epi8(other)));
}

__m128i load(const char* bytes)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

} // namespace

// Looks at sixteen places at a time while their pivots lie within the text, at the rest one by one.
qsizetype CasefoldSearch::findIn(QByteArrayView text, qsizetype from) const
{
    const qsizetype last = text.size() - m_size;
    qsizetype at = from;
    for (; at + m_last.offset + kWidth <= text.size(); at += kWidth) {
        const char* const place = text.data() + at;
        const __m128i first = equalTo(load(place + m_first.offset), m_first.one, m_first.other);
        const __m128i second = equalTo(load(place + m_last.offset), m_last.one, m_last.other);
        auto candidates = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(first, second)));
        for (; candidates != 0; candidates &= candidates - 1) {
            const int offset = std::countr_zero(candidates);
            if (fitsAt(place + offset))
                return at + offset;
        }
    }
    return findPlainly(text, at, last);
}

#else

qsizetype CasefoldSearch::findIn(QByteArrayView text, qsizetype from) const
{
    return findPlainly(text, from, text.size() - m_size);
}

#endif

bool CasefoldSearch::mayHideIn(QByteArrayView text) const
{
    return std::any_of(m_hidden.begin(), m_hidden.end(),
                       [&](const QByteArray& letter) { return text.contains(letter); });
}
