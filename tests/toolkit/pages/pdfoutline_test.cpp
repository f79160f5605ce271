#include "toolkit/pages/pdfoutline.h"

#include "base/runtimeerror.h"
#include "tests/toolkit/pages/exporttest.h"

#include <gtest/gtest.h>

namespace {

// A file of two pages as the toolkit writes it, its tail apart.
struct SmallPdf {
    QByteArray bytes = "%PDF-1.4\n";
    std::vector<qsizetype> places;
    PdfEnds ends;

    SmallPdf()
    {
        add("<<\n/Title (x)\n>>\nendobj\n");
        add("<<\n/Type /Catalog\n/Pages 3 0 R\n>>\nendobj\n");
        ends.head = bytes;
        bytes += "what nobody kept";
        ends.tailAt = bytes.size();
        add("<<\n/Type /Pages \n/Kids \n[\n7 0 R\n9 0 R\n]\n/Count 2\n>>\nendobj\n");
        const QByteArray table = QByteArray::number(bytes.size());
        bytes += "xref\n0 4\n0000000000 65535 f \n";
        for (const qsizetype place : places)
            bytes += QByteArray::number(place).rightJustified(10, '0') + " 00000 n \n";
        bytes += "trailer\n<<\n/Size 4\n/Info 1 0 R\n/Root 2 0 R\n>>\nstartxref\n" + table + "\n%%EOF\n";
        ends.tail = bytes.mid(ends.tailAt);
    }
    void add(const QByteArray& object)
    {
        places.push_back(bytes.size());
        bytes += QByteArray::number(qsizetype(places.size())) + " 0 obj\n" + object;
    }
};

QByteArray outlined(const std::vector<PdfBookmark>& bookmarks, const QStringList& titles)
{
    const SmallPdf pdf;
    GatheredFile file;
    PieceWriter out(file);
    out.add(pdf.bytes);
    const std::function<bool(double)> told = [](double) { return true; };
    ExportProgress progress(told);
    const auto title = [&](const PdfBookmark& bookmark) { return titles.value(bookmark.row); };
    EXPECT_TRUE(writeOutline(readPdfPages(pdf.ends).value(), bookmarks, title, out, progress));
    EXPECT_TRUE(file.content.startsWith(pdf.bytes));
    return file.content;
}

QByteArray object(const QByteArray& file, int number)
{
    const qsizetype from = file.lastIndexOf('\n' + QByteArray::number(number) + " 0 obj");
    return from < 0 ? QByteArray() : file.mid(from + 1, file.indexOf("endobj", from) - from - 1);
}

} // namespace

TEST(PdfPages, areFoundByTheFilesOwnTable)
{
    const SmallPdf pdf;
    const std::optional<PdfPages> pages = readPdfPages(pdf.ends);
    ASSERT_TRUE(pages);
    EXPECT_EQ(pages->objects, 4);
    EXPECT_EQ(pages->catalog, 2);
    EXPECT_EQ(pages->info, 1);
    EXPECT_EQ(pages->pages, (std::vector<int>{7, 9}));
    EXPECT_EQ(pages->catalogEntries, "\n/Type /Catalog\n/Pages 3 0 R\n");
    EXPECT_EQ(pages->table, pdf.bytes.indexOf("xref\n"));
}

TEST(PdfPages, areNotFoundInWhatIsWrittenInAnotherWay)
{
    const SmallPdf pdf;
    for (qsizetype length = 0; length + 7 < pdf.ends.tail.size(); ++length)
        EXPECT_FALSE(readPdfPages({pdf.ends.head, pdf.ends.tail.left(length), pdf.ends.tailAt})) << length;
    EXPECT_FALSE(readPdfPages({{}, pdf.ends.tail, pdf.ends.tailAt}));
    EXPECT_FALSE(readPdfPages({pdf.ends.head, {}, 0}));
    for (const qint64 off : {-1, 1, 1000})
        EXPECT_FALSE(readPdfPages({pdf.ends.head, pdf.ends.tail, pdf.ends.tailAt + off}));
    for (qsizetype at = 0; at < pdf.ends.tail.size(); ++at) { // it does not crash
        QByteArray damaged = pdf.ends.tail;
        damaged[at] = '9';
        readPdfPages({pdf.ends.head, damaged, pdf.ends.tailAt});
    }
}

TEST(PdfPages, thatAreNotAllFoundAreTold)
{
    const SmallPdf pdf;
    EXPECT_EQ(pagesOfPdf(pdf.ends, 2).pages.size(), 2U);
    EXPECT_THROW(pagesOfPdf(pdf.ends, 1), RunTimeError);
    EXPECT_THROW(pagesOfPdf(pdf.ends, 3), RunTimeError);
    EXPECT_THROW(pagesOfPdf({}, 2), RunTimeError);
}

TEST(PdfOutline, aTitleTurnsNothingRound)
{
    const QByteArray file = outlined({{0, 0, 0, 1}}, {QStringLiteral("a\u202Eb\u2066c\u2028d\u0085e\tf")});
    EXPECT_TRUE(file.contains("/Title <FEFF0061fffd0062fffd006300200064002000650020"
                              "0066>"))
        << file.mid(file.indexOf("/Title <")).constData();
}

TEST(PdfOutline, bookmarksKnowTheirKin)
{
    const QByteArray file =
        outlined({{0, 0, 0, 800}, {1, 1, 0, 700.5}, {2, 1, 1, 800}, {3, 0, 1, 90}},
                 {QStringLiteral("A"), QStringLiteral("a1"), QStringLiteral("a2"), QStringLiteral("B")});
    EXPECT_EQ(object(file, 4), "4 0 obj\n<</Title <FEFF0041>/Dest[7 0 R/XYZ null 800.0 null]/Parent 8 0 R"
                               "/Next 7 0 R/First 5 0 R/Last 6 0 R/Count -2>>\n");
    EXPECT_EQ(object(file, 5), "5 0 obj\n<</Title <FEFF00610031>/Dest[7 0 R/XYZ null 700.5 null]/Parent 4 0 R"
                               "/Next 6 0 R>>\n");
    EXPECT_EQ(object(file, 6), "6 0 obj\n<</Title <FEFF00610032>/Dest[9 0 R/XYZ null 800.0 null]/Parent 4 0 R"
                               "/Prev 5 0 R>>\n");
    EXPECT_EQ(object(file, 7), "7 0 obj\n<</Title <FEFF0042>/Dest[9 0 R/XYZ null 90.0 null]/Parent 8 0 R"
                               "/Prev 4 0 R>>\n");
    EXPECT_EQ(object(file, 8), "8 0 obj\n<</Type/Outlines/First 4 0 R/Last 7 0 R/Count 2>>\n");
    EXPECT_EQ(object(file, 2),
              "2 0 obj\n<<\n/Type /Catalog\n/Pages 3 0 R\n/Outlines 8 0 R/PageMode/UseOutlines"
              "/ViewerPreferences<</DisplayDocTitle true>>>>\n");
}

TEST(PdfOutline, theNewTableTellsWhereTheNewObjectsStand)
{
    const QByteArray file = outlined({{0, 0, 0, 800}, {0, 1, 1, 700}}, {QStringLiteral("A")});
    const qsizetype table = file.lastIndexOf("\nxref\n") + 1;
    const QByteArrayList lines = file.mid(table).split('\n');
    EXPECT_EQ(lines.value(1), "2 1");
    EXPECT_EQ(lines.value(3), "4 3");
    for (const auto& [line, number] : {std::pair(2, 2), {4, 4}, {5, 5}, {6, 6}}) {
        EXPECT_EQ(lines.value(line).size(), 19);
        EXPECT_TRUE(
            file.mid(lines.value(line).left(10).toInt()).startsWith(QByteArray::number(number) + " 0 obj"));
    }
    EXPECT_TRUE(file.contains("trailer\n<</Size 7/Info 1 0 R/Root 2 0 R/Prev " +
                              QByteArray::number(SmallPdf().bytes.indexOf("xref\n")) + ">>"));
    EXPECT_TRUE(file.endsWith("startxref\n" + QByteArray::number(table) + "\n%%EOF\n"));
}

TEST(PdfOutline, aBookmarkThatLacksItsParentIsOneOfTheParents)
{
    const QByteArray file =
        outlined({{0, 2, 0, 0}, {1, 5, 0, 0}}, {QStringLiteral("A"), QStringLiteral("B")});
    EXPECT_TRUE(object(file, 4).contains("/Parent 6 0 R"));
    EXPECT_TRUE(object(file, 5).contains("/Parent 4 0 R"));
}

TEST(PdfOutline, titlesAreTextWhateverTheyHold)
{
    const QString hostile = QStringLiteral("a)>\n\\(\u0000\u05D0");
    const QByteArray file =
        outlined({{0, 0, 0, 0}, {1, 0, 0, 0}}, {hostile, QString(199, u'x') + QStringLiteral("🎵🎵")});
    EXPECT_TRUE(object(file, 4).contains("<FEFF00610029003e0020005c0028002005d0>"))
        << object(file, 4).constData();
    EXPECT_TRUE(object(file, 5).contains("00782026>")) << "cut before the note, not within it";
}
