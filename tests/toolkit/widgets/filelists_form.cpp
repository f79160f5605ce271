#include "toolkit/widgets/directorylist.h"
#include "toolkit/widgets/drivelist.h"

#include "base/runtimeerror.h"
#include "system/drives/systemdrives.h"
#include "system/files/systemfiles.h"
#include "tests/support/temporary.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

struct FileListsTest : testing::Test {
    Temporary directory;
    SystemDrives drives{{.user = {.home = directory.at("home"),
                                  .config = directory.at("config"),
                                  .state = directory.at("state"),
                                  .data = directory.at("data")},
                         .declared = "E=" + directory.at("disk") + ",ROCK_01\nF=" + directory.at("other")}};
    SystemFiles files{drives};

    FileListsTest()
    {
        for (const char* name : {"home", "disk/Music/Rock", "disk/Music/Blues", "disk/Speech", "other"})
            directory.makeDirectory(name);
        directory.write("disk/a.mp3");
    }
    static QStringList entries(const DirectoryList& list)
    {
        QStringList all;
        for (int i = 0; i < list.count(); ++i)
            all += list.item(i)->text();
        return all;
    }
};

} // namespace

TEST_F(FileListsTest, drivesShowTheirVolumeNames)
{
    DriveList list(drives);
    list.setDrive(u"e:\\Music\\*.MP3"_qs);
    EXPECT_EQ(list.drive(), u"E: [ROCK_01]"_qs);
    list.setDrive(u"F:"_qs);
    EXPECT_EQ(list.drive(), u"F:"_qs);
}

TEST_F(FileListsTest, aChosenDriveIsToldOnceAndOnlyWhenItChanges)
{
    DriveList list(drives);
    list.setDrive(u"E:"_qs);
    const QSignalSpy told(&list, &DriveList::driveChanged);
    list.setDrive(u"E:"_qs);
    EXPECT_EQ(told.count(), 0);
    list.setDrive(u"F:"_qs);
    EXPECT_EQ(told.count(), 1);
}

TEST_F(FileListsTest, aDriveThatDoesNotExistIsAnError)
{
    DriveList list(drives);
    list.setDrive(u"E:"_qs);
    EXPECT_THROW(list.setDrive(u"Q:"_qs), RunTimeError);
    EXPECT_THROW(list.setDrive(QString()), RunTimeError);
    EXPECT_EQ(list.drive().left(2), u"E:"_qs);
}

TEST_F(FileListsTest, directoriesShowTheWayAndWhatIsInIt)
{
    DirectoryList list(files);
    list.setPath(u"E:\\Music"_qs);
    EXPECT_EQ(entries(list), QStringList({u"E:\\"_qs, u"Music"_qs, u"Blues"_qs, u"Rock"_qs}));
    EXPECT_EQ(list.currentRow(), 1);
    list.setPath(u"E:\\"_qs);
    EXPECT_EQ(entries(list), QStringList({u"E:\\"_qs, u"Music"_qs, u"Speech"_qs}));
    EXPECT_EQ(list.path(), u"E:\\"_qs);
}

TEST_F(FileListsTest, anEntryAsksToBeChosen)
{
    DirectoryList list(files);
    list.setPath(u"E:\\Music"_qs);
    const QSignalSpy chosen(&list, &DirectoryList::chosen);
    Q_EMIT list.itemActivated(list.item(3));
    Q_EMIT list.itemActivated(list.item(0));
    ASSERT_EQ(chosen.count(), 2);
    EXPECT_EQ(chosen.at(0).at(0).toString(), u"E:\\Music\\Rock"_qs);
    EXPECT_EQ(chosen.at(1).at(0).toString(), u"E:\\"_qs);
}

TEST_F(FileListsTest, aDirectoryThatIsGoneIsAnErrorAndTheOldOneStays)
{
    DirectoryList list(files);
    list.setPath(u"E:\\Music"_qs);
    const QSignalSpy told(&list, &DirectoryList::pathChanged);
    EXPECT_THROW(list.setPath(u"E:\\Gone"_qs), RunTimeError);
    EXPECT_EQ(list.path(), u"E:\\Music"_qs);
    EXPECT_EQ(told.count(), 0);
    list.setPath(u"E:\\Music\\"_qs); // the same one
    EXPECT_EQ(told.count(), 0);
    list.setPath(u"E:\\Speech"_qs);
    EXPECT_EQ(told.count(), 1);
}
