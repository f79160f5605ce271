// Random reports on random papers hold what every report must hold.
#include "toolkit/pages/reportlayout.h"

#include "tests/support/pagesworld.h"
#include "toolkit/pages/linebreaker.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace {

constexpr int kColumns = 3;

class RandomReport {
public:
    explicit RandomReport(unsigned seed) : m_random(seed)
    {
        const int count = below(60);
        for (int row = 0; row < count; ++row) {
            rows.rows.push_back({value(), value(), value()});
            if (row == 0 || below(3) == 0)
                rows.groups.insert(row);
        }
        report.rows = &rows;
        report.date = u"Sunday, 22 November"_qs;
        report.design.title = u"Title"_qs;
        setBands(report.design);
        const double height = 80 + below(400);
        paper = {{100.0 + below(400), height}, {10, double(below(20)), double(below(20)), 5}};
    }

    TextRows rows;
    Report report;
    Paper paper;

private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    TextRows::Value value()
    {
        static const std::vector<QByteArray> pieces = {"a",
                                                       "bc",
                                                       "Bohemian",
                                                       " ",
                                                       "  ",
                                                       "\n",
                                                       "\r\n",
                                                       "\t",
                                                       "D:\\",
                                                       "\\",
                                                       "sjø",
                                                       "Мира",
                                                       "\xCC\x81",
                                                       "\xFF",
                                                       "\xE4\xB8\xAD",
                                                       "\xF0\x9F\x8E\xB5",
                                                       "\xE2\x80\xAE",
                                                       "-",
                                                       "01 - song.mp3",
                                                       "\x01",
                                                       "wwwwwwwwwwwwwwwwwwwwww"};
        if (below(10) == 0)
            return std::nullopt;
        QByteArray out;
        const int count = below(20) == 0 ? 50 + below(150) : below(8);
        for (int i = 0; i < count; ++i)
            out += pieces[static_cast<std::size_t>(below(static_cast<int>(pieces.size())))];
        return out;
    }
    ReportField field(const QString& name, int column)
    {
        const int left = below(600);
        return {.name = name,
                .left = left,
                .width = 60 + below(940 - left),
                .text = column < 0 ? name + u" %p of %P"_qs : QString(),
                .column = column,
                .font = {6.0 + below(12), below(2) == 0}};
    }
    ReportBand band(const QString& name, bool hasColumns)
    {
        ReportBand out;
        for (int strip = below(3); strip > 0; --strip) {
            out.push_back({.above = below(5) / 2.0, .isRule = below(5) == 0});
            for (int i = below(3); i > 0 && !out.back().isRule; --i)
                out.back().fields.push_back(field(name + QString::number(strip) + QString::number(i),
                                                  hasColumns ? below(kColumns + 1) - 1 : -1));
        }
        return out;
    }
    void setBands(ReportDesign& design)
    {
        design.reportHeader = band(u"RH"_qs, false);
        design.pageHeader = band(u"PH"_qs, false);
        design.groupHeader = band(u"GH"_qs, true);
        design.detail = band(u"D"_qs, true);
        design.detail.push_back({.fields = {field(u"Ds"_qs, 0), field(u"Dt"_qs, 1)}});
        design.groupFooter = band(u"GF"_qs, true);
        design.pageFooter = band(u"PF"_qs, false);
        design.reportFooter = band(u"RF"_qs, false);
    }

    std::mt19937 m_random;
};

QString withoutBlanks(const QString& text)
{
    QString out;
    for (const QChar c : text)
        if (c != u' ')
            out += c;
    return out;
}

class RandomReports : public testing::TestWithParam<unsigned> {
protected:
    using Part = std::pair<const ReportField*, int>; // a field of a row

    void SetUp() override
    {
        for (int page = 1; page <= layout.pages(); ++page)
            pages.push_back(layout.page(page));
    }
    const std::vector<PageItem>& page(int number) const
    {
        return pages[static_cast<std::size_t>(number - 1)];
    }
    bool isOfDetail(const PageItem& item) const { return item.row >= 0 && item.field->name.startsWith(u'D'); }
    std::set<int> pagesOf(int row) const
    {
        std::set<int> found;
        for (int number = 1; number <= layout.pages(); ++number)
            for (const PageItem& item : page(number))
                if (item.row == row && isOfDetail(item))
                    found.insert(number);
        return found;
    }

    // How high the band is for the row, as a report of that row alone shows it on paper without end.
    double heightOf(const ReportBand& band, int row) const
    {
        TextRows one;
        one.rows = {random.rows.rows.empty() ? std::vector<TextRows::Value>(kColumns)
                                             : random.rows.rows[static_cast<std::size_t>(row)]};
        Report alone{.design = {.detail = band}, .date = random.report.date, .rows = &one};
        alone.design.title = random.report.design.title;
        alone.design.reportFooter = {{.fields = {{.text = QStringLiteral("end")}}}};
        const Paper endless{{random.paper.size.width(), 1e6}, random.paper.margins};
        return ReportLayout(alone, widths, endless).page(1).back().place.top() - endless.inside().top();
    }

    FixedWidths widths;
    RandomReport random{GetParam()};
    ReportLayout layout{random.report, widths, random.paper};
    std::vector<std::vector<PageItem>> pages;
};

} // namespace

TEST_P(RandomReports, everyValueStandsThereOnceAndInOrder)
{
    std::map<Part, QString> shown;
    std::map<Part, int> lines;
    for (const auto& items : pages)
        for (const PageItem& item : items)
            if (item.row >= 0) {
                const Part part(item.field, item.row);
                EXPECT_GE(item.line, lines[part]);
                lines[part] = item.line + 1;
                shown[part] += item.text;
            }
    for (const ReportStrip& strip : random.report.design.detail)
        for (const ReportField& field : strip.fields)
            for (int row = 0; field.column >= 0 && row < random.rows.count(); ++row) {
                const QByteArrayView bytes = random.rows.cell(row, field.column).value_or(QByteArrayView());
                EXPECT_EQ(withoutBlanks(shown[Part(&field, row)]), withoutBlanks(LineBreaker::shown(bytes)));
            }
}

TEST_P(RandomReports, nothingStandsOutsideThePaper)
{
    const QRectF inside = random.paper.inside().adjusted(-0.1, -0.1, 0.1, 0.1);
    for (const auto& items : pages)
        for (const PageItem& item : items)
            EXPECT_TRUE(inside.contains(item.place)) << item.text.toStdString();
}

TEST_P(RandomReports, linesOfAFieldNeverCover)
{
    for (const auto& items : pages) {
        std::map<const ReportField*, double> bottoms;
        for (const PageItem& item : items)
            if (item.row >= 0) {
                EXPECT_GE(item.place.top(), bottoms[item.field] - 0.01);
                bottoms[item.field] = item.place.bottom();
            }
    }
}

TEST_P(RandomReports, rowsAreFoundOnTheirPages)
{
    for (int row = 0; row < random.rows.count(); ++row) {
        const int first = layout.pageOf(row);
        EXPECT_GE(first, row == 0 ? 1 : layout.pageOf(row - 1));
        const std::set<int> found = pagesOf(row);
        EXPECT_TRUE(found.empty() || *found.begin() >= first);
        EXPECT_LE(layout.firstRowOf(first), row);
    }
    for (int number = 1; number <= layout.pages(); ++number) {
        const int row = layout.firstRowOf(number);
        EXPECT_TRUE(row == random.rows.count() || layout.pageOf(row) >= number);
        EXPECT_TRUE(row == 0 || layout.pageOf(row - 1) < number);
    }
}

TEST_P(RandomReports, aRowIsOnOnePageUnlessItIsLongerThanOne)
{
    const ReportDesign& design = random.report.design;
    const double room =
        random.paper.inside().height() - heightOf(design.pageHeader, 0) - heightOf(design.pageFooter, 0);
    for (int row = 0; row < random.rows.count(); ++row) {
        const std::set<int> found = pagesOf(row);
        EXPECT_TRUE(found.size() < 2 || heightOf(design.detail, row) > room - 0.1) << row;
    }
}

TEST_P(RandomReports, aGroupsHeaderIsFollowedByItsRowWhereBothFit)
{
    const ReportDesign& design = random.report.design;
    const double room =
        random.paper.inside().height() - heightOf(design.pageHeader, 0) - heightOf(design.pageFooter, 0);
    for (const int row : random.rows.groups) {
        const std::set<int> detail = pagesOf(row);
        if (detail.empty() || heightOf(design.groupHeader, row) + heightOf(design.detail, row) > room)
            continue;
        for (const PageItem& item : page(*detail.begin() == 1 ? 1 : *detail.begin() - 1))
            EXPECT_FALSE(*detail.begin() > 1 && item.row == row) << "its header stands on the page before";
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomReports, testing::Range(1U, 61U));
