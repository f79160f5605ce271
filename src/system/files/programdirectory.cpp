#include "system/files/programdirectory.h"

#include "system/drives/driveletters.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

// Nothing else but these and the skins is taken, because the directory may be one that many programs share.
constexpr std::array kBesideTheProgram = {"Songbin.dat", "Songbin.mdb", "TIPOFDAY.TXT",
                                          "uphist.txt",  "update.txt",  "mp1.mp3"};

// Tells what is certainly not there: a name that cannot be looked at, and a link to a disk that is out, are
// the user's own.
bool isMissing(const fs::path& path)
{
    std::error_code error;
    return fs::symlink_status(path, error).type() == fs::file_type::not_found;
}

void copyMissing(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    if (!fs::is_regular_file(from, error) || !isMissing(to))
        return;
    const fs::path partial = to.string() + ".part";
    fs::remove(partial, error); // what a copy that was cut off left
    fs::copy_file(from, partial, error);
    if (!error) // the installed file may be read-only; the user's own is not
        fs::permissions(partial, fs::perms::owner_write, fs::perm_options::add, error);
    if (!error)
        fs::rename(partial, to, error);
    if (error)
        fs::remove(partial, error);
}

// A skin is X.skin, the bitmaps X-face.png and X-parts.png, and the pictures in a directory X that it is put
// together from.
void copySkin(const fs::path& control, const fs::path& userData)
{
    std::error_code error;
    copyMissing(control, userData / control.filename());
    const fs::path stem = control.parent_path() / control.stem();
    for (const char* ending : {"-face.png", "-parts.png"}) {
        const fs::path bitmap = stem.string() + ending;
        copyMissing(bitmap, userData / bitmap.filename());
    }
    if (!fs::is_directory(stem, error))
        return;
    fs::create_directories(userData / stem.filename(), error);
    for (fs::directory_iterator file(stem, error), end; !error && file != end; file.increment(error))
        copyMissing(file->path(), userData / stem.filename() / file->path().filename());
}

void copySkins(const fs::path& directory, const fs::path& userData)
{
    std::error_code error;
    for (fs::directory_iterator file(directory, error), end; !error && file != end; file.increment(error))
        if (file->path().extension() == ".skin")
            copySkin(file->path(), userData);
}

} // namespace

QByteArray executableFile()
{
    std::error_code error;
    return QByteArray::fromStdString(fs::read_symlink("/proc/self/exe", error).native());
}

QByteArray installedDirectory(const QByteArray& executable, const QByteArray& named)
{
    std::error_code error;
    const fs::path directory =
        named.isEmpty() ? fs::path(executable.toStdString()).parent_path() : fs::path(named.toStdString());
    return cleanedPath(QByteArray::fromStdString(fs::absolute(directory, error).native()));
}

QByteArray programDirectory(const QByteArray& installed, const QByteArray& userData)
{
    std::error_code error;
    const fs::path directory = installed.toStdString();
    if (!fs::is_directory(directory, error) ||
        faccessat(AT_FDCWD, installed.constData(), W_OK | X_OK, AT_EACCESS) == 0)
        return installed;
    fs::create_directories(userData.toStdString(), error);
    for (const char* name : kBesideTheProgram)
        copyMissing(directory / name, fs::path(userData.toStdString()) / name);
    copySkins(directory, userData.toStdString());
    return userData;
}
