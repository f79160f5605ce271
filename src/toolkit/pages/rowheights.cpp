#include "toolkit/pages/rowheights.h"

#include "toolkit/pages/inparts.h"

#include <algorithm>
#include <limits>
#include <thread>

namespace {

constexpr int kFewRows = 20'000;
constexpr int kSample = 2'000;
constexpr unsigned kMostThreads = 8;

// Measures by what the tables know already.
class FrozenBand {
public:
    FrozenBand(const ReportBand& design, const BandSetting& setting)
        : m_plain(setting.plain, CharacterTable::Frozen{}),
          m_bold(setting.bold, CharacterTable::Frozen{}), m_setting{setting.rows,   setting.widths,
                                                                    m_plain,        m_bold,
                                                                    setting.inside, setting.longest},
          m_band(design, m_setting)
    {
    }

    std::int32_t height(int row) const
    {
        const PageLength height = m_band.height(row);
        const bool hasMissed = m_plain.hasMissed() | m_bold.hasMissed();
        const bool isTooHigh = height > std::numeric_limits<std::int32_t>::max();
        return hasMissed || isTooHigh ? rowheights::kNotMeasured : static_cast<std::int32_t>(height);
    }

private:
    CharacterTable m_plain;
    CharacterTable m_bold;
    BandSetting m_setting;
    BandLayout m_band;
};

void askForCharacters(const BandLayout& band, int rows)
{
    for (int i = 0; i < kSample; ++i)
        band.height(static_cast<int>(static_cast<qint64>(rows) * i / kSample));
}

} // namespace

RowHeights rowheights::measure(const ReportBand& design, const BandLayout& band, const BandSetting& setting)
{
    const int rows = setting.rows.count();
    const int threads = static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads));
    if (rows < kFewRows || threads < 2 || !setting.rows.isForThreads())
        return {};
    askForCharacters(band, rows);
    RowHeights heights(static_cast<std::size_t>(rows));
    const auto measurePart = [&](int part) {
        const FrozenBand frozen(design, setting);
        const auto bound = [&](int of) { return static_cast<int>(static_cast<qint64>(rows) * of / threads); };
        for (int row = bound(part); row < bound(part + 1); ++row)
            heights[static_cast<std::size_t>(row)] = frozen.height(row);
    };
    doInParts(threads, measurePart);
    return heights;
}
