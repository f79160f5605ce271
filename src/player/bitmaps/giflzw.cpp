#include "player/bitmaps/giflzw.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr int kMostCodeBits = 12;
constexpr int kMostCodes = 1 << kMostCodeBits;

class CodeReader {
public:
    explicit CodeReader(QByteArrayView data) : m_data(data) {}

    std::optional<int> next(int bits)
    {
        while (m_held < bits) {
            if (m_at >= m_data.size())
                return {};
            m_bits |= static_cast<quint32>(static_cast<quint8>(m_data[m_at++])) << m_held;
            m_held += 8;
        }
        const auto code = static_cast<int>(m_bits & ((1u << bits) - 1));
        m_bits >>= bits;
        m_held -= bits;
        return code;
    }

private:
    QByteArrayView m_data;
    qsizetype m_at = 0;
    quint32 m_bits = 0;
    int m_held = 0;
};

// Each code is an earlier code and one pixel more.
class Unpacker {
public:
    Unpacker(int codeBits, qint64 most) : m_codeBits(codeBits), m_clear(1 << codeBits), m_most(most)
    {
        for (int code = 0; code < m_clear; ++code)
            m_codes[static_cast<std::size_t>(code)] = {0, static_cast<quint8>(code),
                                                       static_cast<quint8>(code), 1};
        clear();
    }
    QByteArray run(QByteArrayView data)
    {
        CodeReader reader(data);
        while (m_pixels.size() < m_most) {
            const std::optional<int> code = reader.next(m_bits);
            if (!code || *code == m_clear + 1 || !take(*code))
                break;
        }
        return std::move(m_pixels);
    }

private:
    struct Code {
        int before; // the earlier code
        quint8 first;
        quint8 last;
        int length;
    };

    void clear()
    {
        m_bits = m_codeBits + 1;
        m_count = m_clear + 2;
        m_before = -1;
    }
    Code& at(int code) { return m_codes[static_cast<std::size_t>(code)]; }
    // Is false for a code that there cannot be yet.
    bool take(int code)
    {
        if (code == m_clear) {
            clear();
            return true;
        }
        if (m_before < 0 ? code > m_clear : code > m_count)
            return false;
        if (m_before >= 0 && m_count < kMostCodes) // a full table gets no new one
            addCode(code == m_count ? at(m_before).first : at(code).first);
        put(code);
        m_before = code;
        return true;
    }
    void addCode(quint8 last)
    {
        at(m_count) = {m_before, at(m_before).first, last, at(m_before).length + 1};
        ++m_count;
        if (m_count == 1 << m_bits && m_bits < kMostCodeBits)
            ++m_bits;
    }
    // A code is written from its last pixel back to its first.
    void put(int code)
    {
        const qint64 start = m_pixels.size();
        const int length = at(code).length;
        m_pixels.resize(std::min(start + length, m_most));
        char* const pixels = m_pixels.data() + start;
        const qint64 room = m_pixels.size() - start;
        for (int place = length; place-- > 0; code = at(code).before)
            if (place < room)
                pixels[place] = static_cast<char>(at(code).last);
    }

    int m_codeBits;
    int m_clear;
    qint64 m_most;
    int m_bits = 0;
    int m_count = 0;
    int m_before = -1; // the code before, none after a clear
    std::array<Code, kMostCodes> m_codes{};
    QByteArray m_pixels;
};

} // namespace

QByteArray unpackedGif(QByteArrayView data, int codeBits, qint64 most)
{
    return Unpacker(codeBits, most).run(data);
}
