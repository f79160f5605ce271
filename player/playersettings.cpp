#include "player/playersettings.h"

#include "base/textrules.h"
#include "platform/usersettings.h"
#include "platform/windowing.h"

#include <cmath>
#include <limits>
#include <variant>

namespace {

const QString kApplication = QStringLiteral("tonedeckpro");
const QString kSection = QStringLiteral("config");

using Member = std::variant<qint16 PlayerSettings::*, QString PlayerSettings::*, float PlayerSettings::*>;

enum class Saved { Never, First, Second };

struct Row {
    const char* readKey;
    const char* writtenKey;
    const char* missing; // the text where the key is not there; null: that of the value already held
    Member member;
    Saved saved = Saved::Second;
};

// In the order of loading. Saving takes the rows of the skin first.
constexpr Row kRows[] = {
    {"Path", "Path", "", &PlayerSettings::Path, Saved::Never},
    {"WinOnTop", "WinOnTop", "0", &PlayerSettings::WinOnTop},
    {"WinSnap", "WinSnap", "0", &PlayerSettings::WinSnap},
    {"WinSavePos", "WinSavePos", "0", &PlayerSettings::WinSavePos},
    {"Auto", "Auto", "0", &PlayerSettings::Auto},
    {"Snooze", "Snooze", "0", &PlayerSettings::Snooze},
    {"SnoozeMode", "SnoozeMode", "0", &PlayerSettings::SnoozeMode},
    {"SnoozeTime", "SnoozeTime", "23:59", &PlayerSettings::SnoozeTime},
    {"SnoozeHide", "SnoozeHide", "0", &PlayerSettings::SnoozeHide},
    {"ExitMode", "ExitMode", "0", &PlayerSettings::ExitMode},
    {"StartMd", "StartMd", "0", &PlayerSettings::StartMd},
    {"StartMin", "StartMin", "0", &PlayerSettings::StartMin},
    {"StartMute", "StartMute", "0", &PlayerSettings::StartMute},
    {"StartFile", "StartFile", "", &PlayerSettings::StartFile},
    {"Skin", "Skin", "", &PlayerSettings::Skin, Saved::First},
    {"SkinPath", "SkinPath", "", &PlayerSettings::SkinPath, Saved::First},
    {"SkinImport", "SkinImport", "", &PlayerSettings::SkinImport, Saved::First},
    {"TimeFmt", "TimeFmt", "", &PlayerSettings::TimeFmt},
    {"VisPLPath", "VisPLPath", "", &PlayerSettings::VisPLPath},
    // Kept: read and written in two spellings, which are one name in a store that ignores case.
    {"ClearPLFirst", "ClearPlFirst", "", &PlayerSettings::ClearPLFirst},
    {"AutoPlay", "AutoPlay", "", &PlayerSettings::AutoPlay},
    {"ValidExt", "ValidExt", "", &PlayerSettings::ValidExt},
    {"PBOverlap", "PBOverlap", nullptr, &PlayerSettings::OverlapMs},
    {"ScrollName", "ScrollName", "0", &PlayerSettings::ScrollName},
    {"UseTagCover", "UseTagCover", "0", &PlayerSettings::UseTagCover},
    {"FriendlyNames", "FriendlyNames", "1", &PlayerSettings::FriendlyNames},
};

constexpr Row kPosition[] = {
    {"X", "X", nullptr, &PlayerSettings::X},
    {"Y", "Y", nullptr, &PlayerSettings::Y},
};

constexpr Row kLastTrack{"LastTrack", "LastTrack", "0", &PlayerSettings::LastTrack};
constexpr Row kLastCover{"LastCover", "LastCover", "", &PlayerSettings::LastCover};

void take(qint16& held, const QString& text)
{
    using Limits = std::numeric_limits<qint16>;
    const double number = std::nearbyint(textrules::val(text));
    if (number >= Limits::min() && number <= Limits::max()) // not so when it is no number at all
        held = static_cast<qint16>(number);
}

void take(QString& held, const QString& text)
{
    held = text;
}

void take(float& held, const QString& text)
{
    constexpr double kFarthest = toTwips(std::numeric_limits<qint16>::max());
    const double number = textrules::val(text);
    if (std::abs(number) <= kFarthest)
        held = static_cast<float>(number);
}

QString textOf(qint16 value)
{
    return QString::number(value);
}

QString textOf(const QString& value)
{
    return value;
}

QString textOf(float value)
{
    return textrules::singleText(value);
}

QString heldText(const Row& row, const PlayerSettings& settings)
{
    return std::visit([&](auto member) { return textOf(settings.*member); }, row.member);
}

void load(UserSettings& store, PlayerSettings& settings, const Row& row)
{
    const QString missing =
        row.missing == nullptr ? heldText(row, settings) : QString::fromLatin1(row.missing);
    const QString text = store.get(kApplication, kSection, QString::fromLatin1(row.readKey), missing);
    std::visit([&](auto member) { take(settings.*member, text); }, row.member);
}

void save(UserSettings& store, const PlayerSettings& settings, const Row& row)
{
    store.save(kApplication, kSection, QString::fromLatin1(row.writtenKey), heldText(row, settings));
}

} // namespace

void loadSettings(UserSettings& store, PlayerSettings& settings)
{
    for (const Row& row : kRows)
        load(store, settings, row);
}

void loadPosition(UserSettings& store, PlayerSettings& settings)
{
    for (const Row& row : kPosition)
        load(store, settings, row);
}

void loadLast(UserSettings& store, PlayerSettings& settings)
{
    load(store, settings, kLastTrack);
    load(store, settings, kLastCover);
}

void saveSettings(UserSettings& store, const PlayerSettings& settings)
{
    for (const Saved turn : {Saved::First, Saved::Second})
        for (const Row& row : kRows)
            if (row.saved == turn)
                save(store, settings, row);
}

void savePosition(UserSettings& store, const PlayerSettings& settings)
{
    for (const Row& row : kPosition)
        save(store, settings, row);
}

void saveLast(UserSettings& store, const PlayerSettings& settings)
{
    save(store, settings, kLastCover);
    save(store, settings, kLastTrack);
}

void savePath(UserSettings& store, const PlayerSettings& settings)
{
    static_assert(kRows[0].saved == Saved::Never);
    save(store, settings, kRows[0]);
}
