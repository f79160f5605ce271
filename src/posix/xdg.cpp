#include "posix/xdg.h"

#include <QtGlobal>

#include <pwd.h>
#include <unistd.h>

namespace {

QByteArray withoutTrailingSlashes(QByteArray path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

// Returns an empty text when the variable is unset or holds no absolute path.
QByteArray absoluteFrom(const char* variable)
{
    const QByteArray path = qgetenv(variable);
    return path.startsWith('/') ? withoutTrailingSlashes(path) : QByteArray();
}

QByteArray homeDirectory()
{
    QByteArray home = absoluteFrom("HOME");
    if (!home.isEmpty())
        return home;
    const passwd* user = getpwuid(getuid());
    const QByteArray ofUser = user ? QByteArray(user->pw_dir) : QByteArray();
    return ofUser.startsWith('/') ? withoutTrailingSlashes(ofUser) : QByteArray("/");
}

QByteArray below(const QByteArray& directory, const char* path)
{
    return directory == "/" ? QByteArray(path) : directory + path;
}

QByteArray own(const char* variable, const QByteArray& home, const char* otherwise)
{
    const QByteArray set = absoluteFrom(variable);
    return below(set.isEmpty() ? below(home, otherwise) : set, "/Songbin");
}

} // namespace

UserDirectories UserDirectories::fromEnvironment()
{
    const QByteArray home = homeDirectory();
    return {.home = home,
            .config = own("XDG_CONFIG_HOME", home, "/.config"),
            .state = own("XDG_STATE_HOME", home, "/.local/state"),
            .data = own("XDG_DATA_HOME", home, "/.local/share")};
}
