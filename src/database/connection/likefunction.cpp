#include "database/connection/likefunction.h"

#include "database/connection/sqlitecheck.h"
#include "database/sql/likepattern.h"

#include <sqlite3.h>

#include <memory>
#include <new>

namespace {

QByteArrayView textOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text, sqlite3_value_bytes(value)};
}

void deletePattern(void* pattern)
{
    delete static_cast<LikePattern*>(pattern);
}

// A pattern that is the same for all rows is read once. SQLite may drop it again at once, so it is used
// first.
bool fits(sqlite3_context* context, sqlite3_value** arguments)
{
    const QByteArrayView text = textOf(arguments[1]);
    if (const auto* kept = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0)))
        return kept->matches(text);
    auto pattern = std::make_unique<LikePattern>(textOf(arguments[0]), LikeSyntax::Sql);
    const bool result = pattern->matches(text);
    sqlite3_set_auxdata(context, 0, pattern.release(), deletePattern);
    return result;
}

// Blobs come first, as SQLite's own has it: not even against a null do they give a null.
void like(sqlite3_context* context, int, sqlite3_value** arguments)
{
    const int pattern = sqlite3_value_type(arguments[0]);
    const int text = sqlite3_value_type(arguments[1]);
    if (pattern == SQLITE_BLOB || text == SQLITE_BLOB) {
        sqlite3_result_int(context, 0);
        return;
    }
    if (pattern == SQLITE_NULL || text == SQLITE_NULL)
        return;
    try {
        sqlite3_result_int(context, fits(context, arguments) ? 1 : 0);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

} // namespace

void registerArchiveLike(sqlite3* database)
{
    checked(database, sqlite3_create_function_v2(database, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                                 nullptr, like, nullptr, nullptr, nullptr));
}
