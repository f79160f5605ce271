#include "system/drives/cuesheet.h"

#include <QList>

#include <algorithm>
#include <array>

namespace audiodisc {

namespace {

constexpr int kMostMinutes = 99;
constexpr int kMostTracks = 99;

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

// Takes digits alone, at most three, without a sign or a blank.
std::optional<int> smallNumber(const QByteArray& text)
{
    const bool digits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    return digits && !text.isEmpty() && text.size() <= 3 ? std::optional(text.toInt()) : std::nullopt;
}

std::optional<int> framesOf(const QByteArray& minutesSecondsFrames)
{
    constexpr std::array kMost{kMostMinutes, 59, kFramesPerSecond - 1};
    const QList<QByteArray> parts = minutesSecondsFrames.split(':');
    if (parts.size() != 3)
        return {};
    std::array<int, 3> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::optional<int> value = smallNumber(parts[static_cast<qsizetype>(i)]);
        if (!value || *value > kMost[i])
            return {};
        values[i] = *value;
    }
    return (values[0] * 60 + values[1]) * kFramesPerSecond + values[2];
}

QByteArray placeText(int frames)
{
    QByteArray text;
    for (const int part :
         {frames / kFramesPerSecond / 60, frames / kFramesPerSecond % 60, frames % kFramesPerSecond})
        text += (text.isEmpty() ? "" : ":") + QByteArray::number(part).rightJustified(2, '0');
    return text;
}

// Collects what the lines of a sheet say, until one of them cannot be.
class Reader {
public:
    bool take(const QByteArray& line)
    {
        const auto blank = std::find_if(line.begin(), line.end(), isBlank);
        const QByteArray word = line.left(blank - line.begin()).toUpper();
        const QByteArray rest = line.mid(word.size()).trimmed();
        if (word == "FILE")
            return takeFile(rest);
        const QList<QByteArray> words = rest.simplified().toUpper().split(' ');
        if (word == "TRACK")
            return takeTrack(words.value(0), words.value(1));
        return word != "INDEX" || takeIndex(words.value(0), words.value(1));
    }
    std::optional<CueSheet> sheet() const { return m_hasStart ? std::optional(m_sheet) : std::nullopt; }

private:
    // Takes "NAME" TYPE, or NAME TYPE. The name's own blanks stay as they are.
    bool takeFile(const QByteArray& rest)
    {
        const bool quoted = rest.startsWith('"');
        const auto blank = std::find_if(rest.begin(), rest.end(), isBlank);
        const qsizetype end = quoted ? rest.indexOf('"', 1) : blank - rest.begin();
        const bool first = m_sheet.image.isEmpty();
        if (!first || end <= 0 || rest.mid(end + 1).trimmed().toUpper() != "BINARY")
            return false;
        m_sheet.image = rest.mid(quoted ? 1 : 0, quoted ? end - 1 : end);
        return !m_sheet.image.isEmpty() && !m_sheet.image.contains('\0');
    }
    bool takeTrack(const QByteArray& number, const QByteArray& mode)
    {
        const std::optional<int> value = smallNumber(number);
        const bool audio = mode == "AUDIO";
        if (!m_hasStart && !m_sheet.entries.empty())
            return false;
        const std::size_t next = m_sheet.entries.size() + 1;
        if (m_sheet.image.isEmpty() || !value || static_cast<std::size_t>(*value) != next ||
            next > kMostTracks || !(audio || mode.endsWith("/2352")))
            return false;
        m_hasStart = false;
        m_sheet.entries.push_back({*value, 0, audio});
        return true;
    }
    // INDEX 00 is the pause before a track, which belongs to the one before; above 01 are places within.
    bool takeIndex(const QByteArray& number, const QByteArray& place)
    {
        if (smallNumber(number) != 1)
            return smallNumber(number).has_value();
        const std::optional<int> frames = framesOf(place);
        if (!frames || m_sheet.entries.empty() || m_hasStart)
            return false;
        m_sheet.entries.back().start = *frames;
        m_hasStart = true;
        return true;
    }

    CueSheet m_sheet;
    bool m_hasStart = false; // the last track has
};

QByteArray trackLines(int number, const char* mode, int start)
{
    return "  TRACK " + QByteArray::number(number).rightJustified(2, '0') + ' ' + mode + "\n    INDEX 01 " +
           placeText(start) + '\n';
}

} // namespace

std::optional<CueSheet> readCueSheet(const QByteArray& text)
{
    Reader reader;
    const bool marked = text.startsWith("\xEF\xBB\xBF");
    for (const QByteArray& line : text.mid(marked ? 3 : 0).replace('\r', '\n').split('\n'))
        if (!reader.take(line.trimmed()))
            return {};
    return reader.sheet();
}

QByteArray cueSheetOf(const std::vector<Track>& tracks, int end, const QByteArray& image)
{
    constexpr const char* kData = "MODE1/2352";
    QByteArray text = "FILE \"" + image + "\" BINARY\n";
    int number = 1;
    int place = 0;
    for (const Track& track : tracks) {
        for (; number < track.number; ++number)
            text += trackLines(number, kData, place++); // the player fails on tracks of no length
        text += trackLines(number++, "AUDIO", track.start);
        place = track.start + track.length;
    }
    return place < end && number <= kMostTracks ? text + trackLines(number, kData, place) : text;
}

} // namespace audiodisc
