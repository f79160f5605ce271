#include "database/sql/rowsearch.h"

#include "database/sql/sqltokens.h"

#include <algorithm>

namespace {

constexpr int kDeepest = 100;                // parentheses; SQLite has a limit of its own
constexpr qsizetype kLongestPattern = 50000; // SQLite's; what lies beyond is an error that it tells

std::optional<std::size_t> indexOf(const std::vector<QByteArray>& columns, const QByteArray& name)
{
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return std::nullopt;
}

} // namespace

class RowSearch::Reader {
public:
    explicit Reader(QByteArrayView statement) : m_tokens(statement) { advance(); }

    std::optional<RowSearch> read()
    {
        if (!pass("select") || !readColumns() || !pass("mp3"))
            return std::nullopt;
        if (pass("where")) {
            std::optional<Condition> condition = readAny();
            if (!condition)
                return std::nullopt;
            m_search.m_condition = std::move(*condition);
        }
        pass(";");
        if (!m_token.text.isEmpty())
            return std::nullopt;
        return std::move(m_search);
    }

private:
    void advance() { m_token = m_tokens.next(); }

    bool pass(QByteArrayView word)
    {
        if (!m_token.is(word))
            return false;
        advance();
        return true;
    }

    bool readColumns()
    {
        do {
            if (!m_token.isWord())
                return false;
            m_search.m_columns.push_back(m_token.text.toByteArray());
            advance();
        } while (pass(","));
        return pass("from");
    }

    std::optional<Condition> readAny() { return readList(Condition::Any, "or", &Reader::readAll); }
    std::optional<Condition> readAll() { return readList(Condition::All, "and", &Reader::readOne); }

    std::optional<Condition> readList(Condition::Kind kind, QByteArrayView word,
                                      std::optional<Condition> (Reader::*readPart)())
    {
        Condition list;
        list.kind = kind;
        do {
            std::optional<Condition> part = (this->*readPart)();
            if (!part)
                return std::nullopt;
            list.parts.push_back(std::move(*part));
        } while (pass(word));
        return list.parts.size() == 1 ? std::move(list.parts.front()) : std::move(list);
    }

    std::optional<Condition> readOne()
    {
        if (!pass("("))
            return readLike();
        if (++m_depth > kDeepest)
            return std::nullopt;
        std::optional<Condition> inner = readAny();
        --m_depth;
        return pass(")") ? std::move(inner) : std::nullopt;
    }

    std::optional<Condition> readLike()
    {
        Condition like;
        like.kind = Condition::Like;
        if (!m_token.isWord())
            return std::nullopt;
        like.column = m_token.text.toByteArray();
        advance();
        if (!pass("like"))
            return std::nullopt;
        const QByteArrayView literal = m_token.text;
        if (literal.size() < 2 || literal.front() != '\'' || literal.back() != '\'' ||
            literal.size() > kLongestPattern)
            return std::nullopt;
        like.pattern.emplace_back(literal.sliced(1, literal.size() - 2).toByteArray().replace("''", "'"),
                                  LikeSyntax::Sql);
        advance();
        return like;
    }

    SqlTokens m_tokens;
    SqlToken m_token;
    int m_depth = 0;
    RowSearch m_search;
};

std::optional<RowSearch> RowSearch::read(QByteArrayView statement)
{
    return Reader(statement).read();
}

bool RowSearch::resolve(const std::vector<QByteArray>& tableColumns)
{
    m_shown.clear();
    for (const QByteArray& column : m_columns) {
        const std::optional<std::size_t> index = indexOf(tableColumns, column);
        if (!index)
            return false;
        m_shown.push_back(*index);
    }
    m_others.clear();
    for (std::size_t i = 0; i < tableColumns.size(); ++i)
        if (std::find(m_shown.begin(), m_shown.end(), i) == m_shown.end())
            m_others.push_back(i);
    return resolve(m_condition, tableColumns);
}

bool RowSearch::resolve(Condition& condition, const std::vector<QByteArray>& tableColumns)
{
    if (condition.kind != Condition::Like)
        return std::all_of(condition.parts.begin(), condition.parts.end(),
                           [&](Condition& part) { return resolve(part, tableColumns); });
    const std::optional<std::size_t> index = indexOf(tableColumns, condition.column);
    condition.cell = index.value_or(0);
    return index.has_value();
}

bool RowSearch::fits(const std::vector<Cell>& cells) const
{
    return fits(m_condition, cells);
}

bool RowSearch::fits(const Condition& condition, const std::vector<Cell>& cells)
{
    const auto partFits = [&](const Condition& part) { return fits(part, cells); };
    switch (condition.kind) {
    case Condition::Like:
        return cells[condition.cell] && condition.pattern.front().matches(*cells[condition.cell]);
    case Condition::All:
        return std::all_of(condition.parts.begin(), condition.parts.end(), partFits);
    case Condition::Any:
        return std::any_of(condition.parts.begin(), condition.parts.end(), partFits);
    }
    return false;
}
