// Finds a text in the rows of a report as its pages show them: without regard to case, each row's values in
// the order in which they stand there. Fixed texts are not looked at.
//
// It keeps a number for each row that has the text, so that its size does not depend on how often it has it.
#pragma once

#include "database/sql/casefoldsearch.h"
#include "toolkit/pages/report.h"

#include <chrono>
#include <cstdint>

class TextFinder {
public:
    // Is a place in the cell of row and field, in bytes.
    struct Hit {
        int row = 0;
        const ReportField* field = nullptr; // of the report's design
        qsizetype start = 0;
        qsizetype size = 0;

        bool operator==(const Hit&) const = default;
    };

    // The report must outlive it; the text is not empty.
    TextFinder(const Report& report, const QString& text);

    // Looks at further rows for about that long.
    void goOn(std::chrono::milliseconds time);
    bool isDone() const { return m_next == m_rows; }

    // Of the rows that were looked at; hits count from 0.
    std::int64_t count() const { return m_count; }
    Hit hit(std::int64_t number) const;
    std::int64_t firstFrom(int row) const; // count() where there is none

    std::vector<Hit> hitsIn(int row) const; // of any row

private:
    struct Found {
        int row;
        std::int64_t before; // how many hits the rows above have
    };

    void look();
    template <typename Take>
    void inRow(int row, const Take& take) const;
    template <typename Take>
    void inCell(QByteArrayView cell, const Take& take) const;
    template <typename Take>
    void inFoldedCell(QByteArrayView cell, const Take& take) const;

    const ReportRows& m_source;
    std::vector<const ReportField*> m_groupFields;
    std::vector<const ReportField*> m_rowFields;
    std::vector<char32_t> m_text; // folded
    CasefoldSearch m_needle;
    int m_rows = 0;
    int m_next = 0; // row to look at
    std::int64_t m_count = 0;
    std::vector<Found> m_found;
};
