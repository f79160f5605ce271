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

// The first line of a report: what it is, and of which day.
ReportStrip titleStrip()
{
    return {.fields = {label("lblTitle", QStringLiteral("%i"), {0, 600}, kTitle),
                       label("lblDate", QStringLiteral("%D"), {600, 400, FieldAlign::Right}, kPlain)}};
}

ReportStrip headingStrip()
{
    return {.above = 12,
            .fields = {label("lblHeading", QStringLiteral("Content of Songbin"), {0, 1000}, kHeading)}};
}

// "12 Of 345" stands in the right corner, whatever the numbers are.
ReportStrip pageNumberStrip()
{
    return {.above = kAboveFooter,
            .fields = {label("lblFooterDate", QStringLiteral("%D"), {0, 500}, kSmall),
                       label("lblPageNumber", QStringLiteral("%p"), {600, 260, FieldAlign::Right}, kSmall),
                       label("lblOf", QStringLiteral("Of"), {860, 50, FieldAlign::Center}, kSmall),
                       label("lblPageCount", QStringLiteral("%P"), {910, 90}, kSmall)}};
}

ReportStrip endStrip()
{
    return {.above = 18,
            .fields = {
                label("lblEnd", QStringLiteral("End of report"), {0, 1000, FieldAlign::Center}, kCaption)}};
}

ReportDesign listing(const char* name)
{
    return {.name = QLatin1String(name),
            .title = QStringLiteral("Songbin"),
            .caption = QStringLiteral("Songbin"),
            .columns = tablecolumns::names(),
            .reportHeader = {titleStrip()},
            .pageFooter = {pageNumberStrip()},
            .listed = {kVolum, kPath, kArtist, kSong, kAlbum, kYear, kComment}};
}

} // namespace

// Paths are long: the paper lies on its side.
ReportDesign reportdesigns::rptListing()
{
    constexpr Place kArtistPlace{0, 180};
    constexpr Place kSongPlace{190, 220};
    constexpr Place kDiskPlace{420, 110};
    constexpr Place kPathPlace{540, 460};
    ReportDesign design = listing("rptListing");
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
    ReportDesign design = listing("rptFullListe");
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
        .columns = {QStringLiteral("fldArtist"), QStringLiteral("fldSong")},
        .reportHeader = {{.fields = {label("lblListing", QStringLiteral("Comlete MusicListing"), {0, 700},
                                           kTitle),
                                     label("lblSongbin", QStringLiteral("Songbin"),
                                           {700, 300, FieldAlign::Right}, kHeading)}}},
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
