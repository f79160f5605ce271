#include "player/playback/mediakind.h"

#include "base/textrules.h"
#include "player/playlist/modcommon.h"

#include <limits>

namespace {

struct Row {
    QStringView extensions; // each between blanks
    const char* deviceType;
    MediaKind::Entry entry = MediaKind::Medium;
    bool hasTag = false;
};

constexpr Row kRows[] = {
    {u" MP2 MP3 MPA ", "ActiveMovie", MediaKind::Medium, true},
    {u" MOD MTM FAR 669 OKT STM S3M NST WOW XM ", "M4W_MCI"},
    {u" FLI FLC ", "Animation"},
    {u" AWA AWM ", "Animation1"},
    {u" MMM ", "MMMovie"},
    {u" CDA ", "cdaudio"},
    {u" BMP GIF JPG ", "Delay", MediaKind::Picture},
    {u" TXT DOC BAT COM EXE LNK ", "Delay", MediaKind::NotPlayed},
};

} // namespace

MediaKind mediaKindOf(const QString& path)
{
    const QString extension = GetExtension(path).toUpper();
    const QString wanted = u' ' + extension + u' ';
    if (!extension.isEmpty() && !extension.contains(u' '))
        for (const Row& row : kRows)
            if (row.extensions.contains(wanted))
                return {QLatin1String(row.deviceType), row.entry, row.hasTag};
    return {QStringLiteral("ActiveMovie")};
}

int discTrackOf(const QString& path)
{
    constexpr int kCharacters = 6;
    const double number = textrules::val(path.right(kCharacters));
    return number >= 0 && number <= std::numeric_limits<qint16>::max() ? static_cast<int>(number) : 0;
}
