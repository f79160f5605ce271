// Holds the volume's word as two threads share it without a lock: what the user wished last, or, while no
// wish is open, what the server says.
#pragma once

#include <atomic>
#include <cstdint>

class PendingVolume {
public:
    struct Seen {
        std::uint32_t wish; // the number of the last wish, 0 before the first
        std::uint32_t word;
    };

    Seen load() const { return unpacked(m_packed.load()); }

    void wish(std::uint32_t word)
    {
        std::uint64_t old = m_packed.load();
        while (!m_packed.compare_exchange_weak(old, packed({unpacked(old).wish + 1, word})))
            continue;
        m_isKnown = true;
    }

    // Takes the server's word, unless there was another wish (or word) since `seen`.
    void follow(Seen seen, std::uint32_t word)
    {
        std::uint64_t expected = packed(seen);
        m_packed.compare_exchange_strong(expected, packed({seen.wish, word}));
        m_isKnown = true;
    }

    bool isKnown() const { return m_isKnown; } // somebody wished or the server spoke

private:
    static constexpr std::uint64_t packed(Seen seen) { return std::uint64_t{seen.wish} << 32 | seen.word; }
    static constexpr Seen unpacked(std::uint64_t both)
    {
        return {static_cast<std::uint32_t>(both >> 32), static_cast<std::uint32_t>(both)};
    }

    std::atomic<std::uint64_t> m_packed{0xFFFFFFFF};
    std::atomic<bool> m_isKnown{false};
};
