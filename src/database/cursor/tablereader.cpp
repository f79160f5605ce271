#include "database/cursor/tablereader.h"

#include "base/runtimeerror.h"
#include "database/connection/sqlitestatement.h"
#include "database/cursor/tablepages.h"

#include <sqlite3.h>

namespace {

constexpr int kDeepest = 20; // levels of pages; SQLite's own limit
constexpr std::uint8_t kInterior = 5;
constexpr std::uint8_t kLeaf = 13;

// Reads numbers of up to nine bytes; the high bit of each of the first eight tells that another one follows.
class Bytes {
public:
    explicit Bytes(QByteArrayView bytes) : m_bytes(bytes) {}

    bool isGood() const { return m_good; }
    qsizetype at() const { return m_at; }

    std::uint64_t number()
    {
        std::uint64_t value = 0;
        for (int i = 0; i < 9; ++i) {
            const std::uint8_t byte = next();
            if (i == 8)
                return value << 8 | byte;
            value = value << 7 | (byte & 0x7FU);
            if ((byte & 0x80U) == 0)
                break;
        }
        return value;
    }

    std::uint8_t next()
    {
        if (m_at < m_bytes.size())
            return static_cast<std::uint8_t>(m_bytes[m_at++]);
        m_good = false;
        return 0;
    }

private:
    QByteArrayView m_bytes;
    qsizetype m_at = 0;
    bool m_good = true;
};

// Walks through the pages of one table. Every function is false when the walk is to be given up.
class Walk {
public:
    Walk(TablePages& pages, std::size_t columns, const RowVisitor& visit)
        : m_pages(pages), m_cells(columns), m_visit(visit), m_left(pages.count())
    {
    }

    bool run(std::uint32_t page, int depth = 0)
    {
        if (depth > kDeepest || m_left-- == 0)
            return false;
        const QByteArrayView bytes = m_pages.page(page);
        if (bytes.isEmpty())
            return false;
        const qsizetype head = page == 1 ? 100 : 0;
        if (bytes[head] == kInterior)
            return runBelow(childrenOf(bytes, head), depth);
        return bytes[head] == kLeaf && readLeaf(bytes, head);
    }

private:
    static std::uint32_t two(QByteArrayView bytes, qsizetype at)
    {
        return TablePages::bigEndian(bytes, at, 2);
    }

    // The children's numbers are copied, as the page's bytes go when the next one is read. There are none
    // when the page is damaged.
    static std::vector<std::uint32_t> childrenOf(QByteArrayView bytes, qsizetype head)
    {
        std::vector<std::uint32_t> children;
        const std::uint32_t count = two(bytes, head + 3);
        for (std::uint32_t i = 0; i < count; ++i) {
            const qsizetype pointer = head + 12 + 2 * static_cast<qsizetype>(i);
            const qsizetype cell = pointer + 2 <= bytes.size() ? two(bytes, pointer) : bytes.size();
            if (cell + 4 > bytes.size())
                return {};
            children.push_back(TablePages::bigEndian(bytes, cell, 4));
        }
        children.push_back(TablePages::bigEndian(bytes, head + 8, 4));
        return children;
    }

    bool runBelow(const std::vector<std::uint32_t>& children, int depth)
    {
        for (const std::uint32_t child : children)
            if (!run(child, depth + 1))
                return false;
        return !children.empty();
    }

    bool readLeaf(QByteArrayView bytes, qsizetype head)
    {
        const std::uint32_t count = two(bytes, head + 3);
        if (head + 8 + 2 * static_cast<qsizetype>(count) > bytes.size())
            return false;
        for (std::uint32_t i = 0; i < count; ++i) {
            const qsizetype cell = two(bytes, head + 8 + 2 * static_cast<qsizetype>(i));
            if (cell >= bytes.size() || !readCell(bytes.sliced(cell)))
                return false;
        }
        return true;
    }

    bool readCell(QByteArrayView cell)
    {
        Bytes reader(cell);
        const std::uint64_t size = reader.number();
        const auto number = static_cast<std::int64_t>(reader.number());
        if (!reader.isGood() || size > m_pages.fileSize() || !takePayload(cell.sliced(reader.at()), size))
            return false;
        if (!readRecord(m_payload))
            return false;
        m_visit(number, m_cells);
        return true;
    }

    // What does not fit into the page lies on a chain of others.
    bool takePayload(QByteArrayView rest, std::uint64_t size)
    {
        const std::uint64_t local = m_pages.localSize(size);
        const auto here = static_cast<qsizetype>(local);
        if (rest.size() < (local == size ? here : here + 4))
            return false;
        if (local == size) {
            m_payload = rest.first(here);
            return true;
        }
        m_long = rest.first(here).toByteArray();
        if (!m_pages.appendChain(m_long, TablePages::bigEndian(rest, here, 4), size))
            return false;
        m_payload = m_long;
        return true;
    }

    bool readRecord(QByteArrayView record)
    {
        Bytes reader(record);
        const std::uint64_t head = reader.number();
        if (head > static_cast<std::uint64_t>(record.size()))
            return false;
        auto at = static_cast<qsizetype>(head);
        for (RowSearch::Cell& cell : m_cells) {
            const std::uint64_t type = reader.at() < static_cast<qsizetype>(head) ? reader.number() : 1;
            if (type == 0) {
                cell.reset();
                continue;
            }
            const std::uint64_t size = (type - 13) / 2;
            if (type < 13 || type % 2 == 0 || size > static_cast<std::uint64_t>(record.size() - at))
                return false; // a number, a blob, a column that was added later, or damage
            cell = record.sliced(at, static_cast<qsizetype>(size));
            at += static_cast<qsizetype>(size);
        }
        return reader.isGood() && reader.at() == static_cast<qsizetype>(head);
    }

    TablePages& m_pages;
    std::vector<RowSearch::Cell> m_cells;
    const RowVisitor& m_visit;
    std::uint32_t m_left; // pages that a walk without circles can still come by
    QByteArrayView m_payload;
    QByteArray m_long;
};

// A column that stands for the row's number is stored as a null.
bool isPlain(sqlite3* database, const char* column)
{
    int primary = 0;
    return sqlite3_table_column_metadata(database, "main", "MP3", column, nullptr, nullptr, nullptr, &primary,
                                         nullptr) == SQLITE_OK &&
           primary == 0;
}

StatementPtr prepared(sqlite3* database, const char* text)
{
    try {
        return prepareStatement(database, text);
    } catch (const RunTimeError&) {
        return nullptr;
    }
}

} // namespace

std::vector<QByteArray> TableReader::columns() const
{
    const StatementPtr all = prepared(m_database, "SELECT * FROM main.MP3");
    std::vector<QByteArray> names;
    for (int i = 0; all && i < sqlite3_column_count(all.get()); ++i) {
        const char* name = sqlite3_column_name(all.get(), i);
        if (!isPlain(m_database, name))
            return {};
        names.emplace_back(name);
    }
    return names;
}

bool TableReader::read(const RowVisitor& visit) const
{
    const std::size_t count = columns().size();
    const StatementPtr table =
        prepared(m_database,
                 "SELECT rootpage FROM main.sqlite_master WHERE type='table' AND name='MP3' COLLATE NOCASE");
    if (count == 0 || !table || sqlite3_get_autocommit(m_database) == 0)
        return false;
    // The statement is kept at this row: as long as it is, nobody can write to the file.
    if (sqlite3_step(table.get()) != SQLITE_ROW)
        return false;
    TablePages pages(m_database);
    return pages.isReadable() &&
           Walk(pages, count, visit).run(static_cast<std::uint32_t>(sqlite3_column_int64(table.get(), 0)));
}
