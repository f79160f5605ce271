// Measures one band of a report and places its lines. Lengths are whole 64ths of a point, so that what is
// counted and what is placed come to the same to the last digit.
#pragma once

#include "toolkit/pages/fieldtext.h"
#include "toolkit/pages/linebreaker.h"
#include "toolkit/pages/pageitem.h"
#include "toolkit/pages/reportrows.h"

#include <limits>
#include <optional>

using PageLength = qint64;

constexpr PageLength kPagePoint = 64;

// What the bands of a report have in common; all of it must outlive them.
struct BandSetting {
    const ReportRows& rows;
    const CharacterWidths& widths;
    const CharacterTable& plain;
    const CharacterTable& bold;
    QRectF inside;       // of the paper
    FieldValues longest; // no page has longer ones
};

// A band that is longer than a page is cut into slices: a rule is one, and each line of a strip, as high as
// the strip's highest.
struct BandSlices {
    static constexpr int kAll = std::numeric_limits<int>::max();

    int first = 0;
    int end = kAll;
    bool isCut = false; // is false for a band that stands whole
};

class BandLayout {
public:
    BandLayout(const ReportBand& band, const BandSetting& setting);

    bool isEmpty() const { return m_strips.empty(); }

    // The row is the one whose columns are shown, -1 for none.
    PageLength height(int row) const { return m_isSteady ? m_least : measured(row); }
    PageLength firstSlice() const { return m_strips.empty() ? 0 : sliceHeight(m_strips.front(), 0); }
    // Calls with the height of each slice in turn.
    template <typename Visit>
    void visitSlices(int row, Visit visit) const
    {
        for (const Strip& strip : m_strips)
            for (int i = 0, count = slicesOf(strip, row); i < count; ++i)
                visit(sliceHeight(strip, i));
    }

    // Returns the slice in which a byte of the cell that the field shows stands; nothing where the band has
    // no such field.
    std::optional<int> sliceOf(int row, const ReportField& field, qsizetype byte) const;

    struct Placing {
        PageLength top;
        FieldValues values;
        std::vector<PageItem>& items; // the lines and rules are appended
    };
    // What is placed next stands behind it.
    void place(int row, const BandSlices& slices, Placing& placing) const;

private:
    struct Field {
        const ReportField* field;
        LineBreaker breaker;
        PageLength lineHeight;
        qsizetype lines; // at least, whatever the row
    };
    struct Strip {
        PageLength above = 0;
        PageLength pitch = 0;     // of its slices
        PageLength least = 0;     // height, whatever the row
        qsizetype leastLines = 1; // of its highest field
        bool isRule = false;
        std::vector<Field> fields{};
        std::vector<Field> columns{}; // those of the fields that show one
    };

    Strip stripOf(const ReportStrip& strip) const;
    Field fieldOf(const ReportField& field) const;
    qsizetype linesOf(const Field& field, int row) const;
    int slicesOf(const Strip& strip, int row) const;
    int lineOf(const Field& field, int row, qsizetype byte) const;
    PageLength sliceHeight(const Strip& strip, int slice) const
    {
        return slice == 0 ? strip.above + strip.pitch : strip.pitch;
    }
    PageLength measured(int row) const;
    PageLength heightOf(const Strip& strip, int row) const;

    void placeStrip(const Strip& strip, int row, const BandSlices& slices, Placing& placing) const;
    void placeRule(const Placing& placing) const;
    void placeField(const Field& field, int row, const BandSlices& slices, PageLength pitch,
                    const Placing& placing) const;
    PageItem itemOf(const Field& field) const;
    QByteArrayView bytesOf(const Field& field, int row, const FieldValues& values, QByteArray& made) const;

    const BandSetting& m_setting;
    std::vector<Strip> m_strips;
    bool m_isSteady = true; // is as high for each row
    PageLength m_least = 0;
};
