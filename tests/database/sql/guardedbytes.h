// Gives memory with an inaccessible page on either side: whoever reads a byte too many ends at once, with or
// without a sanitizer.
#pragma once

#include <QByteArrayView>

#include <cstring>
#include <stdexcept>

#include <sys/mman.h>

class GuardedBytes {
public:
    static constexpr std::size_t kRoom = 4096; // as many bytes as it holds

    GuardedBytes()
    {
        void* const pages =
            mmap(nullptr, 3 * kRoom, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (pages == MAP_FAILED)
            throw std::runtime_error("no memory for guarded bytes");
        m_pages = static_cast<char*>(pages);
        if (mprotect(m_pages, kRoom, PROT_NONE) != 0 || mprotect(m_pages + 2 * kRoom, kRoom, PROT_NONE) != 0)
            throw std::runtime_error("no guards for the bytes");
    }
    ~GuardedBytes() { munmap(m_pages, 3 * kRoom); }
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    // They return copies that stand right at the guard, valid until the next one, of at most kRoom bytes.
    QByteArrayView atEnd(QByteArrayView bytes)
    {
        return put(m_pages + 2 * kRoom - static_cast<std::size_t>(bytes.size()), bytes);
    }
    QByteArrayView atStart(QByteArrayView bytes) { return put(m_pages + kRoom, bytes); }

private:
    static QByteArrayView put(char* place, QByteArrayView bytes)
    {
        const auto size = static_cast<std::size_t>(bytes.size());
        if (size > kRoom)
            throw std::length_error("more bytes than a page holds");
        if (size > 0)
            std::memcpy(place, bytes.data(), size);
        return {place, bytes.size()};
    }

    char* m_pages = nullptr;
};
