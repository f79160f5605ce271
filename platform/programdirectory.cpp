#include "platform/programdirectory.h"

#include <unistd.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

void fillMissing(const fs::path& target, const fs::path& installed, const fs::path& executable)
{
    std::error_code error;
    fs::create_directories(target, error);
    for (const fs::directory_entry& entry : fs::directory_iterator(installed, error)) {
        const fs::path copy = target / entry.path().filename();
        if (!entry.is_regular_file(error) || entry.path().filename() == executable.filename() ||
            fs::exists(copy, error))
            continue;
        const fs::path partial = copy.string() + ".part";
        fs::copy_file(entry.path(), partial, fs::copy_options::overwrite_existing, error);
        if (!error) // the installed file may be read-only; the user's own is not
            fs::permissions(partial, fs::perms::owner_write, fs::perm_options::add, error);
        if (!error)
            fs::rename(partial, copy, error);
        if (error)
            fs::remove(partial, error);
    }
}

} // namespace

QByteArray programDirectory(const QByteArray& installed, const QByteArray& executable,
                            const QByteArray& userData)
{
    if (access(installed.constData(), W_OK | X_OK) == 0)
        return installed;
    fillMissing(userData.toStdString(), installed.toStdString(), executable.toStdString());
    return userData;
}
