#include "toolkit/pages/textfinder.h"

#include "database/sql/casefold.h"
#include "toolkit/pages/reportrows.h"

#include <algorithm>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRowsBetweenLooksAtTheClock = 64;

std::vector<const ReportField*> fieldsOf(const ReportBand& band)
{
    std::vector<const ReportField*> fields;
    for (const ReportStrip& strip : band)
        for (const ReportField& field : strip.fields)
            if (field.column >= 0)
                fields.push_back(&field);
    return fields;
}

std::vector<char32_t> foldedText(const QString& text)
{
    std::vector<char32_t> characters;
    casefold::fold(text.toUtf8(), characters);
    return characters;
}

bool isAscii(QByteArrayView text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

} // namespace

TextFinder::TextFinder(const Report& report, const QString& text)
    : m_source(*report.rows), m_groupFields(fieldsOf(report.design.groupHeader)),
      m_rowFields(fieldsOf(report.design.detail)), m_text(foldedText(text)), m_needle(m_text),
      m_rows(m_source.count())
{
}

void TextFinder::goOn(std::chrono::milliseconds time)
{
    const Clock::time_point end = Clock::now() + time;
    do
        for (int i = 0; i < kRowsBetweenLooksAtTheClock && !isDone(); ++i)
            look();
    while (!isDone() && Clock::now() < end);
}

void TextFinder::look()
{
    const std::int64_t before = m_count;
    inRow(m_next, [this](const ReportField*, qsizetype, qsizetype) { ++m_count; });
    if (m_count > before)
        m_found.push_back({m_next, before});
    ++m_next;
}

TextFinder::Hit TextFinder::hit(std::int64_t number) const
{
    const auto behind = std::ranges::upper_bound(m_found, number, {}, &Found::before);
    const Found& found = *std::prev(behind);
    return hitsIn(found.row)[static_cast<std::size_t>(number - found.before)];
}

std::int64_t TextFinder::firstFrom(int row) const
{
    const auto found = std::ranges::lower_bound(m_found, row, {}, &Found::row);
    return found == m_found.end() ? m_count : found->before;
}

std::vector<TextFinder::Hit> TextFinder::hitsIn(int row) const
{
    std::vector<Hit> hits;
    inRow(row, [&](const ReportField* field, qsizetype start, qsizetype size) {
        hits.push_back({row, field, start, size});
    });
    return hits;
}

template <typename Take>
void TextFinder::inRow(int row, const Take& take) const
{
    const auto inFields = [&](const std::vector<const ReportField*>& fields) {
        for (const ReportField* field : fields)
            if (const ReportRows::Cell cell = m_source.cell(row, field->column))
                inCell(*cell, [&](qsizetype start, qsizetype size) { take(field, start, size); });
    };
    if (!m_groupFields.empty() && m_source.beginsGroup(row))
        inFields(m_groupFields);
    inFields(m_rowFields);
}

template <typename Take>
void TextFinder::inCell(QByteArrayView cell, const Take& take) const
{
    if (!isAscii(cell) && m_needle.mayHideIn(cell))
        return inFoldedCell(cell, take);
    for (qsizetype at = 0; (at = m_needle.findIn(cell, at)) != CasefoldSearch::kNotFound;
         at += m_needle.size())
        take(at, m_needle.size());
}

template <typename Take>
void TextFinder::inFoldedCell(QByteArrayView cell, const Take& take) const
{
    std::vector<char32_t> characters;
    std::vector<qsizetype> places; // one more than there are characters
    for (qsizetype at = 0; at < cell.size();) {
        const casefold::Character character = casefold::characterAt(cell, at);
        characters.push_back(casefold::folded(character.code));
        places.push_back(at);
        at += character.size;
    }
    places.push_back(cell.size());
    auto from = characters.begin();
    while ((from = std::search(from, characters.end(), m_text.begin(), m_text.end())) != characters.end()) {
        const auto first = static_cast<std::size_t>(from - characters.begin());
        take(places[first], places[first + m_text.size()] - places[first]);
        from += static_cast<std::ptrdiff_t>(m_text.size());
    }
}
