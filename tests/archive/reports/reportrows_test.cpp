// What the reports show of the rows that their commands gave.
#include "archive/reports/artistrows.h"
#include "archive/reports/filerows.h"
#include "archive/reports/tablecolumns.h"
#include "base/runtimeerror.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

struct File {
    RowStore::Cell disk;
    RowStore::Cell path;
    bool begins = true;
};

FileRows filesOf(const std::vector<File>& files)
{
    CommandRows rows{tablecolumns::names(), RowStore(7), {}};
    for (const File& file : files) {
        rows.cells.append({file.disk, file.path, "artist", "song", "", "", std::nullopt});
        rows.groups.push_back(file.begins);
    }
    return FileRows(std::move(rows));
}

ArtistRows artistsOf(const std::vector<RowStore::Cell>& artists)
{
    CommandRows rows{{u"fldSong"_qs, u"FLDARTIST"_qs}, RowStore(2)};
    for (const RowStore::Cell& artist : artists)
        rows.cells.append({"song", artist});
    return ArtistRows(std::move(rows));
}

// Row by row, the levels parted by ">".
QString bookmarksOf(const ReportRows& rows)
{
    QStringList all;
    for (int row = 0; row < rows.count(); ++row)
        all += rows.bookmarks(row).join(u'>');
    return all.join(u'|');
}

} // namespace

TEST(StoredRows, showTheColumnsByTheirNames)
{
    const ArtistRows rows = artistsOf({"a", std::nullopt});
    EXPECT_EQ(rows.count(), 2);
    EXPECT_EQ(rows.cell(0, 0), "a");
    EXPECT_EQ(rows.cell(0, 1), "song");
    EXPECT_EQ(rows.cell(1, 0), std::nullopt);
    EXPECT_FALSE(rows.beginsGroup(0));
    EXPECT_THROW(FileRows(CommandRows{{u"fldPath"_qs}, RowStore(1)}), RunTimeError);
}

TEST(StoredRows, groupsBeginWhereTheCommandSays)
{
    const FileRows rows = filesOf({{"V", "a", true}, {"V", "a", false}, {"V", "b", true}});
    EXPECT_TRUE(rows.beginsGroup(0));
    EXPECT_FALSE(rows.beginsGroup(1));
    EXPECT_TRUE(rows.beginsGroup(2));
}

TEST(FileRows, bookmarksAreDisksAndTheFilesOnThem)
{
    EXPECT_EQ(bookmarksOf(filesOf({{"ROCK", "D:\\x\\a.mp3"},
                                   {"ROCK", "D:\\x\\a.mp3", false},
                                   {"ROCK", "D:\\y\\b.mp3"},
                                   {"JAZZ", "D:\\y\\b.mp3"},
                                   {std::nullopt, "c.mp3"},
                                   {" ", std::nullopt}})),
              u"ROCK>a.mp3||>b.mp3|JAZZ>b.mp3|(no disk name)>c.mp3|(no disk name)>(no path)");
}

TEST(FileRows, bookmarksAreDirectoriesWhereTheFilesAreTooMany)
{
    std::vector<QByteArray> paths;
    for (int i = 0; i <= FileRows::kMostBookmarks; ++i)
        paths.push_back("D:\\" + QByteArray::number(i / 1000) + "\\" + QByteArray::number(i));
    std::vector<File> files;
    for (const QByteArray& path : paths)
        files.push_back({"V", path});
    const FileRows rows = filesOf(files);
    EXPECT_EQ(rows.bookmarks(0).join(u'>'), u"V>D:\\0\\");
    EXPECT_EQ(rows.bookmarks(1), QStringList());
    EXPECT_EQ(rows.bookmarks(1000).join(u'>'), u">D:\\1\\");
    files.pop_back();
    EXPECT_EQ(filesOf(files).bookmarks(1).join(u'>'), u">1");
}

TEST(FileRows, thereAreNoMoreBookmarksThanAnybodyLooksThrough)
{
    std::vector<QByteArray> names;
    for (int i = 0; i <= FileRows::kMostBookmarks; ++i)
        names.push_back(QByteArray::number(i) + "\\");
    std::vector<File> files;
    for (const QByteArray& name : names)
        files.push_back({"V", name});
    EXPECT_EQ(filesOf(files).bookmarks(0), QStringList{u"V"_qs});
    EXPECT_EQ(filesOf(files).bookmarks(7), QStringList());
    for (std::size_t i = 0; i < files.size(); ++i)
        files[i].disk = names[i];
    const FileRows rows = filesOf(files);
    EXPECT_EQ(rows.bookmarks(0), QStringList{u"0\\"_qs});
    EXPECT_EQ(rows.bookmarks(1), QStringList());
    EXPECT_EQ(rows.bookmarks(4'000), QStringList{u"4000\\"_qs});
    EXPECT_EQ(rows.bookmarks(4'001), QStringList());
}

TEST(FileRows, ofTooManyDisksSomeHaveBookmarksAllTheWay)
{
    for (const int disks : {2 * FileRows::kMostBookmarks, 3 * FileRows::kMostBookmarks + 7}) {
        std::vector<QByteArray> names;
        for (int i = 0; i < disks; ++i)
            names.push_back(QByteArray::number(i));
        std::vector<File> files;
        for (const QByteArray& name : names)
            for (const char* path : {"a", "b"})
                files.push_back({name, path});
        const FileRows rows = filesOf(files);
        std::vector<int> marked;
        for (int row = 0; row < rows.count(); ++row)
            if (!rows.bookmarks(row).isEmpty())
                marked.push_back(row);
        EXPECT_LE(marked.size(), std::size_t(FileRows::kMostBookmarks));
        EXPECT_GT(marked.size(), std::size_t(FileRows::kMostBookmarks) / 2);
        EXPECT_EQ(marked.front(), 0);
        EXPECT_GE(marked.back(), rows.count() - 10);
    }
}

TEST(Bookmarks, canBeTranslatedWhereNothingIsNamed)
{
    struct Marked : QTranslator {
        bool isEmpty() const override { return false; }
        QString translate(const char*, const char* source, const char*, int) const override
        {
            return u'<' + QString::fromUtf8(source) + u'>';
        }
    } translator;
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(bookmarksOf(filesOf({{" ", std::nullopt}})), u"<(no disk name)>><(no path)>");
    EXPECT_EQ(bookmarksOf(artistsOf({" "})), u"<(no artist)>");
    QCoreApplication::removeTranslator(&translator);
}

TEST(ArtistRows, bookmarksAreFirstLetters)
{
    EXPECT_EQ(
        bookmarksOf(artistsOf({std::nullopt, "", "  ", "!x", "?", "1", "9b", "abba", " Alpha", "B", "b"})),
        u"(no artist)|||#||0-9||A||B|"_qs);
}

TEST(ArtistRows, aLetterWithAnAccentGoesWithTheBareOneUnlessTheLocaleHasItForItself)
{
    const QCollator english(QLocale(QLocale::English, QLocale::UnitedStates));
    const QCollator norwegian(QLocale(QLocale::NorwegianBokmal, QLocale::Norway));
    const QString ring = u"\u00E5se"_qs;
    EXPECT_EQ(indexLetter(ring, english), u"A"_qs);
    EXPECT_EQ(indexLetter(ring, norwegian), u"\u00C5"_qs);
    EXPECT_EQ(indexLetter(u"\u00E9toile"_qs, norwegian), u"E"_qs);
    EXPECT_EQ(indexLetter(u"\u4EAC"_qs, english), u"\u4EAC"_qs);
    EXPECT_EQ(indexLetter(u"\U00010428"_qs, english), u"\U00010400"_qs);
    EXPECT_EQ(indexLetter(u"\uFFFD"_qs, english), u"#"_qs);
}
