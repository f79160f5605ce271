// Reads the pages of an archive file through SQLite's own file handle: to open and close another one would
// drop SQLite's locks. The file must be locked by the caller.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <vector>

struct sqlite3;
struct sqlite3_file;

class TablePages {
public:
    explicit TablePages(sqlite3* database);

    bool isReadable() const { return m_size > 0; } // a file in the format and encoding that we know
    std::uint32_t count() const { return m_count; }
    std::uint64_t fileSize() const { return static_cast<std::uint64_t>(m_count) * m_size; }

    // Pages count from 1. The bytes come without those at the page's end that are reserved, empty when there
    // is no such page, and are valid until the next one is read.
    QByteArrayView page(std::uint32_t number);

    // Tells how much of a row of that size lies on the table's own page.
    std::uint64_t localSize(std::uint64_t size) const;

    // Appends what lies on a chain of pages until the row has its size; it is false when the chain is
    // damaged. The page that was read last stays valid.
    bool appendChain(QByteArray& row, std::uint32_t first, std::uint64_t size);

    static std::uint32_t bigEndian(QByteArrayView bytes, qsizetype at, int size)
    {
        std::uint32_t value = 0;
        for (int i = 0; i < size; ++i)
            value = value << 8 | static_cast<std::uint8_t>(bytes[at + i]);
        return value;
    }

private:
    bool fetch(std::uint32_t first, std::uint32_t pages, std::vector<char>& into);

    sqlite3_file* m_file = nullptr;
    std::uint32_t m_size = 0;   // of a page
    std::uint32_t m_usable = 0; // of its bytes
    std::uint32_t m_count = 0;

    std::vector<char> m_window; // several pages, more with each step onwards
    std::uint32_t m_first = 0;
    std::uint32_t m_held = 0;
    std::vector<char> m_link; // a page of a chain
};
