// Measures the bands of many rows at once, on all processors.
#pragma once

#include "toolkit/pages/bandlayout.h"

#include <cstdint>
#include <vector>

using RowHeights = std::vector<std::int32_t>; // page lengths, by row

namespace rowheights {

constexpr std::int32_t kNotMeasured = -1;

// Measures what can be told without asking for further characters, whose font only this thread may ask; a
// sample of the rows makes the characters known before. It is empty where it would not be worth it: for few
// rows, and for rows that threads cannot share. The band is that of the design.
RowHeights measure(const ReportBand& design, const BandLayout& band, const BandSetting& setting);

} // namespace rowheights
