#include "player/playback/playersettings.h"

#include "base/textrules.h"
#include "base/twips.h"
#include "platform/usersettings.h"

#include <array>
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

// They stand in the order of loading. Saving takes the rows of the skin first.
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
    // Kept: it is read and written in two spellings, which are one name in a store that ignores case.
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

bool load(UserSettings& store, PlayerSettings& settings, const Row& row)
{
    const QString missing =
        row.missing == nullptr ? heldText(row, settings) : QString::fromLatin1(row.missing);
    const QString key = QString::fromLatin1(row.readKey);
    const QString text = store.get(kApplication, kSection, key, missing);
    std::visit([&](auto member) { take(settings.*member, text); }, row.member);
    return store.wasRead(kApplication, kSection, key);
}

bool save(UserSettings& store, const PlayerSettings& settings, const Row& row)
{
    const QString key = QString::fromLatin1(row.writtenKey);
    return store.save(kApplication, kSection, key, heldText(row, settings)) ||
           !store.wasRead(kApplication, kSection, key);
}

// It takes all of them, whatever becomes of one.
template <typename Rows, typename Step>
bool each(const Rows& rows, Step&& step)
{
    bool all = true;
    for (const Row& row : rows)
        all = step(row) && all;
    return all;
}

template <typename Wanted>
bool saveRows(UserSettings& store, const PlayerSettings& settings, Wanted&& isWanted)
{
    const auto saveTurn = [&](Saved turn) {
        return each(kRows, [&](const Row& row) {
            return row.saved != turn || !isWanted(row) || save(store, settings, row);
        });
    };
    const bool first = saveTurn(Saved::First);
    return saveTurn(Saved::Second) && first;
}

} // namespace

bool loadSettings(UserSettings& store, PlayerSettings& settings)
{
    return each(kRows, [&](const Row& row) { return load(store, settings, row); });
}

bool loadPosition(UserSettings& store, PlayerSettings& settings)
{
    return each(kPosition, [&](const Row& row) { return load(store, settings, row); });
}

bool loadLast(UserSettings& store, PlayerSettings& settings)
{
    return each(std::array{kLastTrack, kLastCover},
                [&](const Row& row) { return load(store, settings, row); });
}

bool isStartModeRead(const UserSettings& store)
{
    return store.wasRead(kApplication, kSection, QStringLiteral("StartMd"));
}

bool saveSettings(UserSettings& store, const PlayerSettings& settings)
{
    return saveRows(store, settings, [](const Row&) { return true; });
}

bool saveChanged(UserSettings& store, const PlayerSettings& settings, const PlayerSettings& before)
{
    return saveRows(store, settings,
                    [&](const Row& row) { return heldText(row, settings) != heldText(row, before); });
}

bool savePosition(UserSettings& store, const PlayerSettings& settings)
{
    return each(kPosition, [&](const Row& row) { return save(store, settings, row); });
}

bool saveLast(UserSettings& store, const PlayerSettings& settings)
{
    return each(std::array{kLastCover, kLastTrack},
                [&](const Row& row) { return save(store, settings, row); });
}

bool savePath(UserSettings& store, const PlayerSettings& settings)
{
    static_assert(kRows[0].saved == Saved::Never);
    return save(store, settings, kRows[0]);
}
