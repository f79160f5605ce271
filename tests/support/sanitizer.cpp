// GLib keeps the names that it has numbered in a table for 2,048 of them, and when it needs a larger one
// gives the old one up for good, because other threads may still read it. That is no leak of ours, and the
// stack would not tell whose it is, because these libraries keep no frame pointers. So the blocks of just
// those sizes, and what libraries ask for while they are loaded, are kept in sight.
#include <cstddef>

namespace {

constexpr std::size_t kTable = 2048 * sizeof(char*);
constexpr std::size_t kMostTables = 8;
constexpr std::size_t kMost = 65536;
const volatile void* g_kept[kMost];
std::size_t g_count = 0;
bool g_begun = false;

struct Beginning {
    Beginning() { g_begun = true; }
};
const Beginning g_beginning; // the program's own, so made after those of all libraries

} // namespace

extern "C" void __sanitizer_malloc_hook(const volatile void* block, std::size_t size)
{
    // The first table is asked for while GLib is loaded.
    const bool isLaterTable = size > kTable && size <= kMostTables * kTable && size % kTable == 0;
    if (!g_begun || isLaterTable) {
        const std::size_t place = __atomic_fetch_add(&g_count, 1, __ATOMIC_RELAXED);
        if (place < kMost)
            g_kept[place] = block;
    }
}
