#include "database/cursor/tablepages.h"

#include <sqlite3.h>

#include <algorithm>

namespace {

constexpr std::uint32_t kWidest = 512 * 1024; // bytes that are read at once
constexpr std::uint32_t kNear = 8;            // pages that are skipped at most in a walk onwards
constexpr qsizetype kHead = 100;
constexpr std::uint32_t kUtf8 = 1;

} // namespace

TablePages::TablePages(sqlite3* database)
{
    sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &m_file);
    sqlite3_int64 size = 0;
    std::vector<char> bytes(kHead);
    if (!m_file || !m_file->pMethods || m_file->pMethods->xFileSize(m_file, &size) != SQLITE_OK ||
        m_file->pMethods->xRead(m_file, bytes.data(), kHead, 0) != SQLITE_OK)
        return;
    const QByteArrayView head(bytes.data(), kHead);
    const std::uint32_t stored = bigEndian(head, 16, 2);
    const std::uint32_t page = stored == 1 ? 65536 : stored;
    const std::uint32_t usable = page - static_cast<std::uint8_t>(head[20]);
    const bool journalled = head[18] == 1 && head[19] == 1; // not with rows in a log beside the file
    if (!head.startsWith("SQLite format 3") || !journalled || page < 512 || usable < 480 ||
        bigEndian(head, 56, 4) != kUtf8)
        return;
    m_size = page;
    m_usable = usable;
    m_count = static_cast<std::uint32_t>(size / page);
}

bool TablePages::fetch(std::uint32_t first, std::uint32_t pages, std::vector<char>& into)
{
    into.resize(std::size_t{pages} * m_size);
    const auto from = static_cast<sqlite3_int64>(first - 1) * m_size;
    return m_file->pMethods->xRead(m_file, into.data(), static_cast<int>(into.size()), from) == SQLITE_OK;
}

QByteArrayView TablePages::page(std::uint32_t number)
{
    if (number == 0 || number > m_count)
        return {};
    const std::uint32_t behind = m_first + m_held;
    if (number < m_first || number >= behind) {
        const bool onwards = m_held > 0 && number >= behind && number - behind < kNear;
        const std::uint32_t wanted = onwards ? std::min(m_held * 2, kWidest / m_size) : 1;
        m_held = std::clamp(wanted, 1U, m_count - number + 1);
        m_first = number;
        if (!fetch(m_first, m_held, m_window)) {
            m_held = 0;
            return {};
        }
    }
    return {m_window.data() + std::size_t{number - m_first} * m_size, static_cast<qsizetype>(m_usable)};
}

std::uint64_t TablePages::localSize(std::uint64_t size) const
{
    if (size <= m_usable - 35)
        return size;
    const std::uint64_t least = (m_usable - 12) * 32 / 255 - 23;
    const std::uint64_t fitting = least + (size - least) % (m_usable - 4);
    return fitting <= m_usable - 35 ? fitting : least;
}

bool TablePages::appendChain(QByteArray& row, std::uint32_t first, std::uint64_t size)
{
    std::uint32_t next = first;
    while (static_cast<std::uint64_t>(row.size()) < size) {
        if (next == 0 || next > m_count || !fetch(next, 1, m_link))
            return false;
        const QByteArrayView link(m_link.data(), static_cast<qsizetype>(m_usable));
        const std::uint64_t missing = size - static_cast<std::uint64_t>(row.size());
        row.append(link.sliced(4, static_cast<qsizetype>(std::min<std::uint64_t>(missing, m_usable - 4))));
        next = bigEndian(link, 0, 4);
    }
    return true;
}
