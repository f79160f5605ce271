#include "archive/reports/reportdesigns.h"

#include "archive/reports/tablecolumns.h"

namespace {

using namespace tablecolumns;

constexpr ReportFont kPlain{9, false};
constexpr ReportFont kCaption{9, true};
constexpr ReportFont kSmall{8, false};
constexpr ReportFont kHeading{13, true};
constexpr ReportFont kTitle{20, true};

constexpr double kAboveCaptions = 6;
constexpr double kAboveRow = 2.5;
constexpr double kAboveFooter = 10;

struct Place {
    int left;
    int width;
    FieldAlign align = FieldAlign::Left;
};

constexpr Place kWhole{0, 1000};

ReportField label(const char* name, const QString& text, Place place, ReportFont font = kCaption)
{
    return {.name = QLatin1String(name),
            .left = place.left,
            .width = place.width,
            .text = text,
            .font = font,
            .align = place.align};
}

ReportField value(const char* name, int column, Place place, ReportFont font = kPlain)
{
    return {.name = QLatin1String(name),
            .left = place.left,
            .width = place.width,
            .column = column,
            .font = font,
            .align = place.align};
}

ReportStrip rule(double above)
{
    return {.above = above, .isRule = true};
}

// A report begins with what it is and, below, of which day.
ReportBand titleBand()
{
    return {{.fields = {label("lblTitle", QStringLiteral("%i"), kWhole, kTitle)}},
            {.above = 2, .fields = {label("lblDate", QStringLiteral("%D"), kWhole, kPlain)}}};
}

ReportStrip headingStrip()
{
    return {.above = 12,
            .fields = {label("lblHeading", QStringLiteral("Content of Songbin"), kWhole, kHeading)}};
}

// "12 Of 345" stands in the middle, whatever the numbers are.
ReportStrip pageNumberStrip()
{
    return {.above = kAboveFooter,
            .fields = {label("lblFooterDate", QStringLiteral("%D"), {0, 400}, kSmall),
                       label("lblPageNumber", QStringLiteral("%p"), {400, 80, FieldAlign::Right}, kSmall),
                       label("lblOf", QStringLiteral("Of"), {480, 40, FieldAlign::Center}, kSmall),
                       label("lblPageCount", QStringLiteral("%P"), {520, 80}, kSmall)}};
}

ReportStrip endStrip()
{
    return {.above = 18,
            .fields = {
                label("lblEnd", QStringLiteral("End of report"), {0, 1000, FieldAlign::Center}, kCaption)}};
}

ReportDesign listing(const char* name, const QString& exportName)
{
    return {.name = QLatin1String(name),
            .title = QStringLiteral("Songbin"),
            .caption = QStringLiteral("Songbin"),
            .exportName = exportName,
            .columns = tablecolumns::names(),
            .reportHeader = titleBand(),
            .pageFooter = {pageNumberStrip()},
            .listed = {kVolum, kPath, kArtist, kSong, kAlbum, kYear, kComment}};
}

} // namespace

// Paths are long: the paper lies on its side.
ReportDesign reportdesigns::rptListing()
{
    constexpr Place kArtistPlace{0, 175};
    constexpr Place kSongPlace{187, 213};
    constexpr Place kDiskPlace{412, 93};
    constexpr Place kPathPlace{517, 483};
    ReportDesign design = listing("rptListing", QStringLiteral("Songbin list"));
    design.isWide = true;
    design.pageHeader = {headingStrip(),
                         rule(3),
                         {.above = kAboveCaptions,
                          .fields = {label("lblArtist", QStringLiteral("Artist:"), kArtistPlace),
                                     label("lblSong", QStringLiteral("Song:"), kSongPlace),
                                     label("lblDiskName", QStringLiteral("Disk Name:"), kDiskPlace),
                                     label("lblFullPath", QStringLiteral("Full path:"), kPathPlace)}}};
    design.detail = {
        {.above = kAboveRow,
         .fields = {value("txtfldArtist", kArtist, kArtistPlace), value("txtfldSong", kSong, kSongPlace),
                    value("txtfldVolum", kVolum, kDiskPlace), value("txtfldPath", kPath, kPathPlace)}}};
    return design;
}

ReportDesign reportdesigns::rptFullListe()
{
    constexpr Place kArtistPlace{0, 290};
    constexpr Place kSongPlace{305, 315};
    constexpr Place kAlbumPlace{635, 275};
    constexpr Place kYearPlace{925, 75};
    ReportDesign design = listing("rptFullListe", QStringLiteral("Songbin detailed list"));
    design.pageHeader = {headingStrip(), rule(3)};
    design.groupHeader = {{.above = 10,
                           .fields = {label("lblDiskVolumName", QStringLiteral("Disk VolumName:"), {0, 195}),
                                      value("txtfldVolum", kVolum, {195, 805}, kCaption)}},
                          {.above = 3,
                           .fields = {label("lblArtist", QStringLiteral("Artist:"), kArtistPlace),
                                      label("lblSong", QStringLiteral("Song:"), kSongPlace),
                                      label("lblAlbum", QStringLiteral("Album:"), kAlbumPlace),
                                      label("lblYear", QStringLiteral("Year"), kYearPlace)}}};
    design.detail = {
        {.above = kAboveRow,
         .fields = {value("txtfldArtist", kArtist, kArtistPlace), value("txtfldSong", kSong, kSongPlace),
                    value("txtfldAlbum", kAlbum, kAlbumPlace), value("txtfldYear", kYear, kYearPlace)}},
        {.above = 1,
         .fields = {label("lblFullPath", QStringLiteral("Full path:"), {0, 105}),
                    value("txtfldPath", kPath, {105, 895})}}};
    design.reportFooter = {endStrip()};
    return design;
}

ReportDesign reportdesigns::ArtistSong()
{
    constexpr Place kArtistPlace{0, 440};
    constexpr Place kSongPlace{460, 540};
    const QString title = QStringLiteral("Report on Artist & Song");
    return {
        .name = QStringLiteral("ArtistSong"),
        .title = title,
        .caption = title,
        .exportName = QStringLiteral("Songbin artists and songs"),
        .columns = {QStringLiteral("fldArtist"), QStringLiteral("fldSong")},
        .reportHeader =
            {{.fields = {label("lblListing", QStringLiteral("Comlete MusicListing"), kWhole, kTitle)}},
             {.above = 2, .fields = {label("lblSongbin", QStringLiteral("Songbin"), kWhole, kPlain)}}},
        .pageHeader = {{.above = 12,
                        .fields = {label("lblArtist", QStringLiteral("Artist:"), kArtistPlace),
                                   label("lblSongName", QStringLiteral("Song name"), kSongPlace)}},
                       rule(3)},
        .detail = {{.above = kAboveRow,
                    .fields = {value("txtfldArtist", 0, kArtistPlace), value("txtfldSong", 1, kSongPlace)}}},
        .pageFooter = {{.above = kAboveFooter,
                        .fields = {label("lblFooterDate", QStringLiteral("%D"), {0, 500}, kSmall),
                                   label("lblFooterTitle", QStringLiteral("%i"),
                                         {500, 500, FieldAlign::Right}, kSmall)}}},
        .reportFooter = {endStrip()},
        .listed = {0, 1}};
}
