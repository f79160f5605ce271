#include "shell/archivestore.h"

#include "base/runtimeerror.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

TEST(ArchiveStore, firstRunTellsTheUserOnceAndCopiesTheTemplate)
{
    World world;
    world.directory.write("program/Songbin.dat", "template");
    world.store.createOnFirstRun(world.dialogs);
    EXPECT_EQ(world.dialogs.said(0),
              u"For your information|This is the first time you run Songbin, database bill be generated."_qs);
    EXPECT_EQ(world.dialogs.messages.at(0).icon, MessageIcon::Information);
    EXPECT_EQ(world.directory.read("program/Songbin.mdb"), "template");
    EXPECT_EQ(world.directory.read("program/Songbin.dat"), "template");

    world.store.createOnFirstRun(world.dialogs);
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
}

TEST(ArchiveStore, anEmptyOrDamagedArchiveIsNotReplaced)
{
    World world;
    world.directory.write("program/Songbin.dat", "template");
    world.directory.write("program/Songbin.mdb");
    world.store.createOnFirstRun(world.dialogs);
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_EQ(world.directory.read("program/Songbin.mdb"), "");
}

TEST(ArchiveStore, anArchiveIsFoundWithoutRegardToCase)
{
    World world;
    world.directory.write("program/Songbin.dat", "template");
    world.directory.write("program/SONGBIN.MDB", "mine");
    world.store.createOnFirstRun(world.dialogs);
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb"));
}

TEST(ArchiveStore, aMissingTemplateIsFileNotFoundAfterTheMessage)
{
    World world;
    try {
        world.store.createOnFirstRun(world.dialogs);
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 53);
    }
    EXPECT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_FALSE(world.directory.exists("program/Songbin.mdb"));
}

TEST(ArchiveStore, connectionTextsNameTheFileInTheProgramDirectory)
{
    World world;
    EXPECT_EQ(world.store.sharedConnectionText(),
              u"Provider=Microsoft.Jet.OLEDB.4.0;Persist Security Info=False;Data Source=P:\\Songbin.mdb"_qs);
    EXPECT_EQ(world.store.ownConnectionText(), u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=P:\\Songbin.mdb;"_qs);
}

TEST(ArchiveStore, theEnvironmentsAreNamedAsDesigned)
{
    World world;
    EXPECT_EQ(world.store.SelectData.connectionName, u"Songbin_Hovedtabell"_qs);
    EXPECT_EQ(world.store.DataEnvironment1.connectionName, u"Songbin_Report"_qs);
    EXPECT_TRUE(world.store.DataEnvironment1.connectionText.startsWith(u"PROVIDER=MSDataShape;"));
}
