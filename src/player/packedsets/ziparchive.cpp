#include "player/packedsets/ziparchive.h"

#include <archive.h>
#include <archive_entry.h>
#include <dlfcn.h>

#include <array>
#include <memory>

namespace {

// libarchive and what it needs cost every start time, and few ever open an archive: it is loaded by the
// first.
struct Library {
    decltype(&archive_read_new) read_new = nullptr;
    decltype(&archive_read_free) read_free = nullptr;
    decltype(&archive_read_support_format_zip_seekable) read_support_format_zip_seekable = nullptr;
    decltype(&archive_read_open_memory) read_open_memory = nullptr;
    decltype(&archive_read_next_header) read_next_header = nullptr;
    decltype(&archive_read_data) read_data = nullptr;
    decltype(&archive_format_name) format_name = nullptr;
    decltype(&archive_entry_pathname) entry_pathname = nullptr;
    decltype(&archive_entry_filetype) entry_filetype = nullptr;
    decltype(&archive_entry_is_encrypted) entry_is_encrypted = nullptr;

    bool load()
    {
        void* module = dlopen("libarchive.so.13", RTLD_NOW | RTLD_LOCAL);
        return module && found(module, read_new, "archive_read_new") &&
               found(module, read_free, "archive_read_free") &&
               found(module, read_support_format_zip_seekable, "archive_read_support_format_zip_seekable") &&
               found(module, read_open_memory, "archive_read_open_memory") &&
               found(module, read_next_header, "archive_read_next_header") &&
               found(module, read_data, "archive_read_data") &&
               found(module, format_name, "archive_format_name") &&
               found(module, entry_pathname, "archive_entry_pathname") &&
               found(module, entry_filetype, "archive_entry_filetype") &&
               found(module, entry_is_encrypted, "archive_entry_is_encrypted");
    }

private:
    template <typename Function>
    static bool found(void* module, Function& function, const char* name)
    {
        function = reinterpret_cast<Function>(dlsym(module, name));
        return function != nullptr;
    }
};

// Returns null when there is none.
const Library* library()
{
    static Library functions;
    static const bool isThere = functions.load();
    return isThere ? &functions : nullptr;
}

using Fault = ZipFiles::Fault;

class Reading {
public:
    Reading(const Library& library, const QByteArray& bytes)
        : m_library(library), m_archive(library.read_new(), library.read_free)
    {
        m_open = m_archive && m_library.read_support_format_zip_seekable(m_archive.get()) == ARCHIVE_OK &&
                 m_library.read_open_memory(m_archive.get(), bytes.constData(),
                                            static_cast<std::size_t>(bytes.size())) == ARCHIVE_OK;
    }

    ZipFiles read(const std::function<bool(const QString& name)>& wanted)
    {
        if (!m_open)
            return {.fault = Fault::Damaged};
        ZipFiles all;
        bool more = true;
        while (more && all.fault == Fault::None)
            more = next(wanted, all);
        if (all.fault != Fault::None)
            all.files.clear();
        return all;
    }

private:
    bool next(const std::function<bool(const QString& name)>& wanted, ZipFiles& all)
    {
        archive_entry* entry = nullptr;
        const int result = m_library.read_next_header(m_archive.get(), &entry);
        if (result == ARCHIVE_EOF)
            return false;
        if (result != ARCHIVE_OK && result != ARCHIVE_WARN)
            all.fault = Fault::Damaged;
        else if (++m_entries > kMostZipEntries)
            all.fault = Fault::TooLarge;
        else if (const QString name = nameOf(entry);
                 m_library.entry_filetype(entry) == AE_IFREG && !name.isEmpty() && wanted(name))
            all.fault = take(entry, name, all.files);
        return true;
    }

    // Its bytes are not asked for in UTF-8: without a locale the library would take them for Latin-1.
    QString nameOf(archive_entry* entry) const
    {
        const QByteArray bytes(m_library.entry_pathname(entry));
        return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
    }

    Fault take(archive_entry* entry, const QString& name, std::vector<ZipFile>& files)
    {
        if (m_library.entry_is_encrypted(entry) != 0)
            return Fault::Protected;
        if (files.size() == kMostZipFiles)
            return Fault::TooLarge;
        if (!isPackedPlainly())
            return Fault::Damaged;
        files.push_back({.name = name});
        return unpack(files.back().content);
    }

    // Other ways of packing take as much memory as the archive says.
    bool isPackedPlainly() const
    {
        const QByteArray format(m_library.format_name(m_archive.get()));
        return format.endsWith("(deflation)") || format.endsWith("(uncompressed)");
    }

    // What the archive promises about sizes is not believed: it is read until it ends or is too much. The
    // last read tells whether the checksum is right.
    Fault unpack(QByteArray& content)
    {
        std::array<char, 65536> piece{};
        for (;;) {
            const la_ssize_t count = m_library.read_data(m_archive.get(), piece.data(), piece.size());
            if (count < 0)
                return Fault::Damaged;
            if (count == 0)
                return Fault::None;
            m_content += count;
            content.append(piece.data(), count);
            if (content.size() > kMostZipFileBytes || m_content > kMostZipContent)
                return Fault::TooLarge;
        }
    }

    const Library& m_library;
    std::unique_ptr<archive, decltype(Library::read_free)> m_archive;
    bool m_open = false;
    int m_entries = 0;
    qint64 m_content = 0;
};

} // namespace

ZipFiles readZip(const QByteArray& archive, const std::function<bool(const QString& name)>& wanted)
{
    const Library* functions = library();
    if (!functions)
        return {.fault = Fault::NoReader};
    if (archive.size() > kMostZipBytes)
        return {.fault = Fault::TooLarge};
    return Reading(*functions, archive).read(wanted);
}
