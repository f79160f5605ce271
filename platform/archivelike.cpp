#include "platform/archivelike.h"

#include "platform/likepattern.h"
#include "platform/sqlitecheck.h"

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

// A pattern that is the same for all rows is read once. The engine may drop it again at once, so it is used
// first.
void like(sqlite3_context* context, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return;
    const auto* kept = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0));
    if (kept) {
        sqlite3_result_int(context, kept->matches(textOf(arguments[1])) ? 1 : 0);
        return;
    }
    try {
        auto pattern = std::make_unique<LikePattern>(textOf(arguments[0]), LikeSyntax::Sql);
        sqlite3_result_int(context, pattern->matches(textOf(arguments[1])) ? 1 : 0);
        sqlite3_set_auxdata(context, 0, pattern.release(), deletePattern);
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
