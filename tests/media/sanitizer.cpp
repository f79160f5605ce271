// What libraries ask for while they are loaded, before the program begins, is theirs for good. GLib gives up
// its first table of names when a larger one is needed (readers may still use it), which is no leak of ours;
// the stack would not tell, because these libraries keep no frame pointers. So those blocks are kept in
// sight.
#include <cstddef>

namespace {

constexpr std::size_t kMost = 65536;
const volatile void* g_kept[kMost];
std::size_t g_count = 0;
bool g_begun = false;

struct Beginning {
    Beginning() { g_begun = true; }
};
const Beginning g_beginning; // the program's own, so made after those of all libraries

} // namespace

extern "C" void __sanitizer_malloc_hook(const volatile void* block, std::size_t)
{
    if (!g_begun && g_count < kMost)
        g_kept[g_count++] = block;
}
