// The three reports as windows over a real archive.
#include "archive/reports/artistsong.h"
#include "archive/reports/rptfullliste.h"
#include "archive/reports/rptlisting.h"
#include "tests/support/world.h"

#include <QAction>
#include <QCoreApplication>
#include <QDate>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QPointer>

#include <gtest/gtest.h>

#include <memory>

namespace {

struct ReportsTest : testing::Test {
    World world;

    ReportsTest()
    {
        world.makeArchive();
        world.store.SelectData.connectionText = world.store.sharedConnectionText();
        world.store.DataEnvironment1.connectionText = world.store.sharedConnectionText();
    }

    void add(const char* artist, const char* song, const char* path = "D:\\a.mp3")
    {
        world.execute(u"INSERT INTO MP3 VALUES ('ROCK_01', '%1', '%2', '%3', 'Album', '1999', ' ')"_qs.arg(
            QString::fromUtf8(path), QString::fromUtf8(artist), QString::fromUtf8(song)));
    }

    std::vector<std::unique_ptr<PreviewForm>> all()
    {
        std::vector<std::unique_ptr<PreviewForm>> reports;
        reports.push_back(std::make_unique<rptListing>(world.context));
        reports.push_back(std::make_unique<rptFullListe>(world.context));
        reports.push_back(std::make_unique<ArtistSong>(world.context));
        return reports;
    }

    // The lines of the file that an export gives.
    QStringList exported(PreviewForm& report, const QString& ending)
    {
        world.dialogs.fileAnswer = u"D:\\out."_qs + ending;
        report.actExport->trigger();
        return QString::fromUtf8(world.files.read(u"D:\\out."_qs + ending)).split(u"\r\n"_qs);
    }
};

} // namespace

TEST_F(ReportsTest, classNameAndCaptionAreTheReports)
{
    const QStringList names{u"rptListing"_qs, u"rptFullListe"_qs, u"ArtistSong"_qs};
    const QStringList captions{u"Songbin"_qs, u"Songbin"_qs, u"Report on Artist & Song"_qs};
    const auto reports = all();
    for (std::size_t i = 0; i < reports.size(); ++i) {
        const auto at = static_cast<qsizetype>(i);
        EXPECT_EQ(reports[i]->objectName(), names[at]);
        EXPECT_EQ(QLatin1String(reports[i]->metaObject()->className()), names[at]);
        EXPECT_EQ(reports[i]->windowTitle(), captions[at]);
    }
}

TEST_F(ReportsTest, anArchiveWithoutRowsIsOnePage)
{
    for (const auto& report : all()) {
        report->showForm();
        EXPECT_TRUE(report->isVisible());
        EXPECT_EQ(report->lblPages->text(), u"of 1");
        EXPECT_FALSE(report->actNext->isEnabled());
    }
    EXPECT_TRUE(world.dialogs.errors.empty());
}

TEST_F(ReportsTest, valuesAreListedInTheOrderOfTheReport)
{
    add("b", "1", "D:\\x.mp3");
    add("A", "2", "D:\\y.mp3");
    add(" ", "3", "D:\\x.mp3");
    const auto reports = all();
    for (const auto& report : reports)
        report->showForm();
    const QStringList grouped{u"fldVolum,fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldComment"_qs,
                              u"ROCK_01,D:\\x.mp3,b,1,Album,1999, "_qs,
                              u"ROCK_01,D:\\x.mp3, ,3,Album,1999, "_qs,
                              u"ROCK_01,D:\\y.mp3,A,2,Album,1999, "_qs, QString()};
    EXPECT_EQ(exported(*reports[0], u"csv"_qs), grouped);
    EXPECT_EQ(exported(*reports[1], u"csv"_qs), grouped);
    EXPECT_EQ(exported(*reports[2], u"csv"_qs).join(u'|'), u"fldArtist,fldSong| ,3|A,2|b,1|");
}

TEST_F(ReportsTest, aReportOfFilesHasAGroupForEachFile)
{
    add("b", "1", "D:\\x.mp3");
    add("A", "2", "D:\\y.mp3");
    add("c", "3", "D:\\x.mp3");
    rptFullListe report(world.context);
    report.showForm();
    const QString page = exported(report, u"html"_qs).join(u'\n');
    EXPECT_EQ(page.count(u"Disk VolumName:"_qs), 2);
    EXPECT_TRUE(page.contains(QLocale().toString(QDate::currentDate(), QLocale::LongFormat)));
    EXPECT_TRUE(page.contains(u"End of report"_qs));
}

TEST_F(ReportsTest, theRowsStayAsTheyWereUntilTheyAreReadAnew)
{
    add("a", "1");
    ArtistSong report(world.context);
    report.showForm();
    add("b", "2");
    EXPECT_EQ(exported(report, u"csv"_qs).size(), 3);
    QFile::remove(QString::fromUtf8(world.directory.at("program/Songbin.mdb")));
    EXPECT_EQ(exported(report, u"csv"_qs).size(), 3);
    report.actRefresh->trigger();
    EXPECT_EQ(world.dialogs.errors.size(), 1U);
    EXPECT_TRUE(report.isVisible());
    EXPECT_EQ(exported(report, u"csv"_qs).size(), 3);
    world.makeArchive();
    for (const char* artist : {"x", "y", "z"})
        add(artist, "new");
    report.actRefresh->trigger();
    EXPECT_EQ(exported(report, u"csv"_qs).join(u'|'), u"fldArtist,fldSong|x,new|y,new|z,new|");
}

TEST_F(ReportsTest, anArchiveThatCannotBeReadOpensNothing)
{
    world.files.replace(world.store.file(), QByteArray(5000, 'x'));
    for (auto make : {+[](ArchiveContext& context) -> PreviewForm* { return new rptListing(context); },
                      +[](ArchiveContext& context) -> PreviewForm* { return new rptFullListe(context); },
                      +[](ArchiveContext& context) -> PreviewForm* { return new ArtistSong(context); }}) {
        const QPointer<PreviewForm> report = make(world.context);
        report->showForm();
        EXPECT_TRUE(world.dialogs.lastError.contains(u"file is not a database"_qs));
        EXPECT_TRUE(!report || (report->isGone() && !report->isVisible()));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(report);
    }
    EXPECT_EQ(world.dialogs.errors.size(), 3U);
}
