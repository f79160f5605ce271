#include "archive/reports/reportdesigns.h"

#include <gtest/gtest.h>

namespace {

// What stands in a band, strip by strip: texts, "[name]" for a column, "---" for a rule.
QString contentOf(const ReportDesign& design, const ReportBand& band)
{
    QStringList strips;
    for (const ReportStrip& strip : band) {
        QStringList fields;
        for (const ReportField& field : strip.fields)
            fields += field.column >= 0 ? u'[' + design.columns[field.column] + u']' : field.text;
        strips += strip.isRule ? u"---"_qs : fields.join(u' ');
    }
    return strips.join(u'|');
}

std::vector<const ReportBand*> bandsOf(const ReportDesign& design)
{
    return {&design.reportHeader, &design.pageHeader, &design.groupHeader, &design.detail,
            &design.groupFooter,  &design.pageFooter, &design.reportFooter};
}

std::vector<ReportDesign> all()
{
    return {reportdesigns::rptListing(), reportdesigns::rptFullListe(), reportdesigns::ArtistSong()};
}

QStringList listedOf(const ReportDesign& design)
{
    QStringList names;
    for (const int column : design.listed)
        names += design.columns[column];
    return names;
}

} // namespace

TEST(ReportDesigns, rptListing)
{
    const ReportDesign design = reportdesigns::rptListing();
    EXPECT_EQ(design.title, u"Songbin");
    EXPECT_EQ(design.caption, u"Songbin");
    EXPECT_EQ(contentOf(design, design.reportHeader), u"%i|%D");
    EXPECT_EQ(contentOf(design, design.pageHeader),
              u"Content of Songbin|---|Artist: Song: Disk Name: Full path:");
    EXPECT_EQ(contentOf(design, design.detail), u"[fldArtist] [fldSong] [fldVolum] [fldPath]");
    EXPECT_EQ(contentOf(design, design.pageFooter), u"%D %p Of %P");
    EXPECT_TRUE(design.groupHeader.empty() && design.groupFooter.empty() && design.reportFooter.empty());
}

TEST(ReportDesigns, rptFullListe)
{
    const ReportDesign design = reportdesigns::rptFullListe();
    EXPECT_EQ(design.title, u"Songbin");
    EXPECT_EQ(design.caption, u"Songbin");
    EXPECT_EQ(contentOf(design, design.reportHeader), u"%i|%D");
    EXPECT_EQ(contentOf(design, design.pageHeader), u"Content of Songbin|---");
    EXPECT_EQ(contentOf(design, design.groupHeader), u"Disk VolumName: [fldVolum]|Artist: Song: Album: Year");
    EXPECT_EQ(contentOf(design, design.detail),
              u"[fldArtist] [fldSong] [fldAlbum] [fldYear]|Full path: [fldPath]");
    EXPECT_EQ(contentOf(design, design.pageFooter), u"%D %p Of %P");
    EXPECT_EQ(contentOf(design, design.reportFooter), u"End of report");
    EXPECT_TRUE(design.groupFooter.empty());
}

TEST(ReportDesigns, ArtistSong)
{
    const ReportDesign design = reportdesigns::ArtistSong();
    EXPECT_EQ(design.title, u"Report on Artist & Song");
    EXPECT_EQ(design.caption, u"Report on Artist & Song");
    EXPECT_EQ(contentOf(design, design.reportHeader), u"Comlete MusicListing|Songbin");
    EXPECT_EQ(contentOf(design, design.pageHeader), u"Artist: Song name|---");
    EXPECT_EQ(contentOf(design, design.detail), u"[fldArtist] [fldSong]");
    EXPECT_EQ(contentOf(design, design.pageFooter), u"%D %i");
    EXPECT_EQ(contentOf(design, design.reportFooter), u"End of report");
    EXPECT_TRUE(design.groupHeader.empty() && design.groupFooter.empty());
}

TEST(ReportDesigns, noTwoOfferTheSameFile)
{
    QStringList names;
    for (const ReportDesign& design : all())
        names += design.fileName();
    EXPECT_EQ(names.join(u'|'), u"Songbin list|Songbin detailed list|Songbin artists and songs");
}

TEST(ReportDesigns, aListOfValuesHasEachColumnOnceDiskAndPathFirst)
{
    const QString table = u"fldVolum fldPath fldArtist fldSong fldAlbum fldYear fldComment"_qs;
    EXPECT_EQ(listedOf(reportdesigns::rptListing()).join(u' '), table);
    EXPECT_EQ(listedOf(reportdesigns::rptFullListe()).join(u' '), table);
    EXPECT_EQ(listedOf(reportdesigns::ArtistSong()).join(u' '), u"fldArtist fldSong");
}

TEST(ReportDesigns, fieldsAreNamedAfterTheirColumnsAndNoneCoversItsNeighbour)
{
    for (const ReportDesign& design : all())
        for (const ReportBand* band : bandsOf(design))
            for (const ReportStrip& strip : *band) {
                int right = 0;
                for (const ReportField& field : strip.fields) {
                    EXPECT_EQ(field.name.left(3), field.column >= 0 ? u"txt" : u"lbl");
                    EXPECT_TRUE(field.column < 0 || field.name.sliced(3) == design.columns[field.column]);
                    EXPECT_GE(field.left, right) << field.name.toStdString();
                    right = field.left + field.width;
                }
                EXPECT_LE(right, 1000);
            }
}
