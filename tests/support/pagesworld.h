// Rows of texts for reports, and a font whose characters are all as wide.
#pragma once

#include "toolkit/pages/characterwidths.h"
#include "toolkit/pages/reportrows.h"

#include <QByteArray>

#include <set>
#include <vector>

// Each character is half as wide as the font is high; a line is as high as the font.
class FixedWidths : public CharacterWidths {
public:
    FixedWidths() { m_table.ascii.fill(kUnits / 2); }

    const Table& table(bool) const override { return m_table; }
    int of(char32_t, bool) const override { return kUnits / 2; }
    int ascent() const override { return kUnits * 3 / 4; }
    int lineHeight() const override { return kUnits; }

private:
    Table m_table;
};

class TextRows : public ReportRows {
public:
    using Value = std::optional<QByteArray>;

    int count() const override { return static_cast<int>(rows.size()); }
    Cell cell(int row, int column) const override
    {
        const Value& value = rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
        return value ? Cell(*value) : Cell();
    }
    bool isForThreads() const override { return areForThreads; }
    bool beginsGroup(int row) const override { return groups.count(row) > 0; }
    QStringList bookmarks(int row) const override
    {
        return beginsGroup(row) ? QStringList(QString::number(row)) : QStringList();
    }

    std::vector<std::vector<Value>> rows;
    bool areForThreads = false;
    std::set<int> groups; // the rows with which one begins
};
