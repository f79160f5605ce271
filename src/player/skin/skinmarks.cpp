#include "player/skin/skinmarks.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype kNumbers = 6;

std::optional<MarkState> stateOf(QStringView name)
{
    struct Name {
        QStringView text;
        MarkState state;
    };
    static constexpr std::array kNames = {
        Name{u"playing", MarkState::Playing}, Name{u"paused", MarkState::Paused},
        Name{u"stopped", MarkState::Stopped}, Name{u"mono", MarkState::Mono},
        Name{u"stereo", MarkState::Stereo},   Name{u"shuffle", MarkState::Shuffle},
        Name{u"repeat", MarkState::Repeat}};
    const auto* const found = std::ranges::find(kNames, name, &Name::text);
    return found == kNames.end() ? std::nullopt : std::optional(found->state);
}

} // namespace

std::optional<SkinMark> markOf(const QString& text)
{
    const QStringList fields = text.split(u',');
    const std::optional<MarkState> state = stateOf(QStringView(fields.first()).trimmed());
    if (!state || fields.size() <= kNumbers)
        return std::nullopt;
    std::array<int, kNumbers> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        bool isNumber = false;
        numbers.at(i) = fields[static_cast<qsizetype>(i) + 1].trimmed().toShort(&isNumber);
        if (!isNumber)
            return std::nullopt;
    }
    const QRect place(numbers[0], numbers[1], numbers[2], numbers[3]);
    return place.isEmpty() ? std::nullopt : std::optional(SkinMark{*state, place, {numbers[4], numbers[5]}});
}
