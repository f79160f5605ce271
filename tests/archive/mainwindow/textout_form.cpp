#include "archive/mainwindow/textout.h"

#include "system/desktop/qtprinter.h"
#include "tests/support/find.h"
#include "tests/support/world.h"
#include "tests/system/desktop/printedtext.h"
#include "toolkit/richtext/richtextbox.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <gtest/gtest.h>

namespace {

struct TextoutTest : testing::Test {
    World world;
    QPointer<Textout> window;

    ~TextoutTest() override { delete window; }
    void open(const QByteArray& name, const QByteArray& content)
    {
        world.directory.write("program/" + name, content);
        show(QString::fromUtf8(name));
    }
    void show(const QString& name)
    {
        if (!window) {
            window = new Textout(world.context);
            window->load();
        }
        window->guard([&] { window->open(u"P:\\"_qs + name); });
    }
    bool pagesAreToldToWait() { return find<QLabel>(*window, "lblWaitingPages")->isVisible(); }
};

} // namespace

TEST_F(TextoutTest, showsTheFileUnderItsName)
{
    open("uphist.txt", "What is new");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->objectName(), u"Textout"_qs);
    EXPECT_EQ(window->windowTitle(), u"uphist.txt"_qs);
    EXPECT_EQ(find<RichTextBox>(*window, "RTFREG")->toPlainText(), u"What is new"_qs);
    EXPECT_FALSE(window->RTFREG->accessibleName().isEmpty());
    EXPECT_EQ(find<QPushButton>(*window, "cmdPrint")->text(), u"Print"_qs);
    EXPECT_EQ(window->windowModality(), Qt::NonModal);
    EXPECT_FALSE(pagesAreToldToWait());
}

TEST_F(TextoutTest, theTextHasTheKeyboardAndTabLeadsToTheButtons)
{
    open("uphist.txt", "What is new");
    EXPECT_EQ(window->focusWidget(), window->RTFREG);
    QTest::keyClick(window->RTFREG, Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), window->cmdPrint);
    QTest::keyClick(window->cmdPrint, Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), window->cmdOK);
}

TEST_F(TextoutTest, closesByItsButtonAndByEscape)
{
    open("uphist.txt", "x");
    click(*window, "cmdOK");
    EXPECT_TRUE(window->isGone());
    delete window;
    open("uphist.txt", "x");
    QTest::keyClick(window->RTFREG, Qt::Key_Escape);
    EXPECT_TRUE(window->isGone());
}

TEST_F(TextoutTest, openedAgainItShowsTheFileAnew)
{
    open("uphist.txt", "old");
    open("uphist.txt", "new");
    EXPECT_EQ(window->RTFREG->toPlainText(), u"new"_qs);
    open("update.txt", "another");
    EXPECT_EQ(window->windowTitle(), u"update.txt"_qs);
    EXPECT_EQ(window->RTFREG->toPlainText(), u"another"_qs);
    window->showMinimized();
    open("update.txt", "another");
    EXPECT_FALSE(window->isMinimized());
}

TEST_F(TextoutTest, aMissingFileIsTheErrorOfTheSystemAndLeavesNoWindow)
{
    show(u"uphist.txt"_qs);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::FileNotFound)});
    EXPECT_TRUE(window->isGone());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(TextoutTest, aDirectoryInItsPlaceIsAnotherOne)
{
    world.directory.makeDirectory("program/uphist.txt");
    show(u"uphist.txt"_qs);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::PathFileAccess)});
    EXPECT_TRUE(window->isGone());
}

TEST_F(TextoutTest, aMissingFileLeavesTheOpenWindowAsItIs)
{
    open("uphist.txt", "x");
    show(u"update.txt"_qs);
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::FileNotFound)});
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), u"uphist.txt"_qs);
    EXPECT_EQ(window->RTFREG->toPlainText(), u"x"_qs);
}

TEST_F(TextoutTest, namesOfAnyKindAreTitles)
{
    open("a[*]b <i>&amp;.txt", "x");
    EXPECT_EQ(window->windowTitle(), u"a[*][*]b <i>&amp;.txt"_qs); // the toolkit shows the pair as one
    EXPECT_FALSE(window->isWindowModified());
    open("Sj\303\270en \360\237\216\265.rtf", "x");
    EXPECT_EQ(window->windowTitle(), u"Sjøen 🎵.rtf"_qs);
}

TEST_F(TextoutTest, printsThePlainTextAsOneStatementAndLeavesTheDocumentOpen)
{
    open("uphist.txt", "{\\rtf1 {\\b one}\\par two\\line three}");
    click(*window, "cmdPrint");
    EXPECT_EQ(world.printer.printed, QStringList(u"one\ntwo\nthree"_qs));
    EXPECT_EQ(world.printer.ended, 0);
    EXPECT_TRUE(pagesAreToldToWait());
    click(*window, "cmdPrintNow");
    EXPECT_EQ(world.printer.ended, 1);
    EXPECT_FALSE(pagesAreToldToWait());
}

TEST_F(TextoutTest, ctrlPPrintsFromTheText)
{
    open("uphist.txt", "one");
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window->RTFREG, Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return world.printer.printed == QStringList(u"one"_qs); }));
}

TEST_F(TextoutTest, pagesThatWaitAlreadyAreTold)
{
    world.printer.print(u"from elsewhere"_qs);
    open("uphist.txt", "one");
    EXPECT_TRUE(pagesAreToldToWait());
}

TEST_F(TextoutTest, printingTwiceGathersBothTextsInOneDocument)
{
    const QString paper = QString::fromUtf8(world.directory.at("paper.pdf"));
    QtPrinter printer(paper);
    const Platform& real = world.context.platform;
    ArchiveContext context{{real.drives, real.files, real.registry, real.settings, real.launcher, printer,
                            real.dialogs, real.program},
                           world.fileNumbers,
                           world.store,
                           world.shared,
                           world.windows,
                           world.codePage};
    window = new Textout(context);
    window->load();
    open("uphist.txt", "what was\n  and is");
    click(*window, "cmdPrint");
    open("update.txt", "what comes");
    click(*window, "cmdPrint");
    const PrintedText printed(paper);
    EXPECT_TRUE(printed.lines().isEmpty()) << "not yet";
    delete window;
    printer.endDocument();
    EXPECT_EQ(printed.lines(), QStringList({u"what was"_qs, u"  and is"_qs, u"what comes"_qs}));
    EXPECT_EQ(printed.pageCount(), 1);
}
