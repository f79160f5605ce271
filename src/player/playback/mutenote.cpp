#include "player/playback/mutenote.h"

#include "platform/program.h"
#include "platform/usersettings.h"

#include <QString>

namespace {

const QString kApplication = QStringLiteral("tonedeckpro");
const QString kSection = QStringLiteral("config");
const QString kKey = QStringLiteral("VolumeBeforeMute"); // "0.4", a blank and who muted it

} // namespace

std::optional<MuteNote::Note> MuteNote::note()
{
    const QString text = m_store.get(kApplication, kSection, kKey, {});
    const qsizetype blank = text.indexOf(u' ');
    bool isNumber = false;
    const float volume = text.left(blank).toFloat(&isNumber);
    if (blank < 0 || !isNumber || !(volume > 0 && volume <= 1))
        return {};
    return Note{volume, text.mid(blank + 1).toUtf8()};
}

// A silence is no volume to come back to; what another program has noted before it counts.
void MuteNote::keep(float volume)
{
    constexpr int kDigits = 9; // a number comes back as it was
    if (volume > 0)
        m_store.save(kApplication, kSection, kKey,
                     QString::number(volume, 'g', kDigits) + u' ' + QString::fromUtf8(m_program.ownMark()));
}

void MuteNote::drop()
{
    if (const auto noted = note(); noted && noted->keeper == m_program.ownMark())
        clear();
}

std::optional<float> MuteNote::left()
{
    const auto noted = note();
    return noted && !m_program.isRunning(noted->keeper) ? std::optional(noted->volume) : std::nullopt;
}

void MuteNote::clear()
{
    m_store.save(kApplication, kSection, kKey, {});
}
