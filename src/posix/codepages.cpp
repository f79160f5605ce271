#include "posix/codepages.h"

#include <cerrno>

#include <iconv.h>

namespace {

class Converter {
public:
    explicit Converter(const char* page) : m_handle(::iconv_open("UTF-16LE", page)) {}
    ~Converter()
    {
        if (isOpen())
            ::iconv_close(m_handle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool isOpen() const { return m_handle != reinterpret_cast<iconv_t>(-1); }

    // Returns the character of one byte, the byte itself where there is none, and nothing where it is part of
    // something longer.
    std::optional<char16_t> character(unsigned char byte)
    {
        char in = static_cast<char>(byte);
        char* source = &in;
        std::size_t sourceLeft = 1;
        std::array<char, 16> out{};
        char* target = out.data();
        std::size_t targetLeft = out.size();
        ::iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
        if (::iconv(m_handle, &source, &sourceLeft, &target, &targetLeft) == kFailed)
            return errno == EILSEQ ? std::optional<char16_t>(byte) : std::nullopt;
        // Pages with combining marks hold a letter back until they know what follows.
        if (::iconv(m_handle, nullptr, nullptr, &target, &targetLeft) == kFailed ||
            out.size() - targetLeft != 2)
            return {};
        const auto low = static_cast<unsigned char>(out[0]);
        const auto high = static_cast<unsigned char>(out[1]);
        return static_cast<char16_t>(low | high << 8);
    }

private:
    static constexpr auto kFailed = static_cast<std::size_t>(-1);
    iconv_t m_handle;
};

} // namespace

std::optional<CodePage> singleByteCodePage(const QString& name)
{
    const QByteArray page = name.toUtf8();
    // An empty name would be the locale's encoding; "/" begins options of the conversion.
    if (page.isEmpty() || page.contains('/') || page.contains('\0'))
        return {};
    Converter converter(page.constData());
    if (!converter.isOpen())
        return {};
    CodePage::Table table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        const std::optional<char16_t> character = converter.character(static_cast<unsigned char>(byte));
        if (!character)
            return {};
        table[byte] = *character;
    }
    return CodePage(table);
}
