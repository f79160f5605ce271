// Feeds a fuzz target every seed and every beginning of one, so that target and seeds do not rot.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void feed(const std::filesystem::path& seed)
{
    std::ifstream in(seed, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(in), {}};
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        // It is a copy of just that size: what reads beyond it is seen by the sanitizer.
        const std::vector<std::uint8_t> beginning(bytes.begin(),
                                                  bytes.begin() + static_cast<std::ptrdiff_t>(size));
        LLVMFuzzerTestOneInput(beginning.data(), size);
    }
}

} // namespace

int main(int argc, char** argv)
{
    int fed = 0;
    if (argc == 2 && std::filesystem::is_directory(argv[1]))
        for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
            feed(entry.path());
            ++fed;
        }
    std::printf("%d seeds\n", fed);
    return fed > 0 ? 0 : 1;
}
