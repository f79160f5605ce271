#include "tests/toolkit/pages/previewtest.h"

#include "platform/printedpages.h"
#include "toolkit/pages/reportlayout.h"

#include <QFile>

namespace {

// It takes a while, and asks how long.
struct SlowPrinter : FakePrinter {
    std::function<void()> onPage;

    PrintEnd printPages(PrintedPages& pages, const std::function<bool(int, int)>& progress) override
    {
        return FakePrinter::printPages(pages, [&](int done, int all) {
            QTest::qSleep(40); // the bar is painted 30 times a second
            const bool goesOn = progress(done, all);
            if (onPage)
                onPage();
            return goesOn;
        });
    }
};

struct BrokenPrinter : FakePrinter {
    PrintEnd printPages(PrintedPages&, const std::function<bool(int, int)>&) override
    {
        throw RunTimeError(ErrorNumber::PrinterError);
    }
};

struct PreviewWork : PreviewTest {
    SlowPrinter printer;

    PreviewWork()
    {
        world.program.onYield = [] { QCoreApplication::processEvents(); };
    }
    TestPreview* openWith(Printer& wanted, int count)
    {
        const PreviewSeams others{world.dialogs, world.program, world.files, wanted};
        addNumbered(count);
        form = new TestPreview(others, design, [this] { return std::make_unique<TestRows>(rows); });
        form->showForm();
        QCoreApplication::processEvents();
        return form;
    }
    QByteArray exported(const char* name) const
    {
        QFile file(QString::fromUtf8(world.directory.at(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
    QStringList onDisk() const
    {
        return QDir(QString::fromUtf8(world.directory.at("disk"))).entryList(QDir::Files);
    }
    void answerAtProgress(const std::function<void()>& act)
    {
        world.program.onYield = [this, act] {
            QCoreApplication::processEvents();
            if (form && form->workBar->isVisible())
                act();
        };
    }
};

} // namespace

TEST_F(PreviewWork, ctrlPPrintsAllPagesUnderTheReportsTitle)
{
    openWith(printer, 200);
    key(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(printer.titles.join(u' '), u"Songs");
    EXPECT_EQ(printer.pagesPrinted, pages());
    EXPECT_TRUE(status().endsWith(u" · Printed")) << status().toStdString();
    EXPECT_FALSE(form->workBar->isVisible());
    EXPECT_TRUE(form->actPrint->isEnabled());
}

TEST_F(PreviewWork, progressIsSeenWhileItPrintsAndNothingElseBegins)
{
    openWith(printer, 300);
    int seen = 0;
    printer.onPage = [&] {
        seen = std::max(seen, form->workBar->prgWork->value());
        EXPECT_TRUE(form->workBar->isVisible());
        EXPECT_EQ(form->workBar->lblWork->text(), u"Printing");
        EXPECT_FALSE(form->actPrint->isEnabled());
        EXPECT_FALSE(form->actExport->isEnabled());
        EXPECT_FALSE(form->actRefresh->isEnabled());
        EXPECT_TRUE(form->actFind->isEnabled());
    };
    form->actPrint->trigger();
    EXPECT_GT(seen, 0);
}

TEST_F(PreviewWork, cancelEndsThePrinting)
{
    openWith(printer, 300);
    printer.onPage = [&] { click(*form, "cmdCancel"); };
    form->actPrint->trigger();
    EXPECT_LT(printer.pagesPrinted, pages());
    EXPECT_TRUE(status().endsWith(u"Printing was cancelled"));
}

TEST_F(PreviewWork, escapeEndsThePrintingAndNotTheWindow)
{
    openWith(printer, 300);
    printer.onPage = [&] { key(Qt::Key_Escape); };
    form->actPrint->trigger();
    EXPECT_LT(printer.pagesPrinted, pages());
    EXPECT_FALSE(isGone());
}

TEST_F(PreviewWork, aPrintDialogThatIsCancelledSaysNothing)
{
    struct Nobody : FakePrinter {
        PrintEnd printPages(PrintedPages&, const std::function<bool(int, int)>&) override
        {
            return PrintEnd::Cancelled;
        }
    } nobody;
    openWith(nobody, 10);
    form->actPrint->trigger();
    EXPECT_EQ(status(), u"Page 1 of 1 · 10 records");
}

TEST_F(PreviewWork, thePreviewStandsOnThePaperThatWasPrinted)
{
    openWith(printer, 800);
    form->pageView->goToPage(9);
    const int row = form->pageView->layout()->firstRowOf(9);
    printer.sheet = {{400, 300}, {20, 20, 20, 20}};
    form->actPrint->trigger();
    EXPECT_EQ(form->pageView->layout()->paper(), printer.sheet);
    EXPECT_EQ(page(), form->pageView->layout()->pageOf(row));
    EXPECT_EQ(form->lblPages->text(), u"of "_qs + QLocale().toString(pages()));
    form->actRefresh->trigger();
    world.printer.sheet = {};
    EXPECT_EQ(form->pageView->layout()->paper().size, QSizeF(400, 300)) << "a refresh is no new paper";
}

TEST_F(PreviewWork, aPrinterThatRefusesIsShownInTheSystemsBox)
{
    BrokenPrinter broken;
    openWith(broken, 10);
    form->actPrint->trigger();
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{482});
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->workBar->isVisible());
    EXPECT_TRUE(form->actPrint->isEnabled());
}

TEST_F(PreviewWork, closingWhileItPrintsEndsItAndTheWindow)
{
    openWith(printer, 3000);
    printer.onPage = [&] {
        if (form->isVisible())
            form->close();
    };
    form->actPrint->trigger();
    EXPECT_LT(printer.pagesPrinted, 3);
    EXPECT_TRUE(isGone());
    EXPECT_TRUE(world.dialogs.errors.empty());
}

TEST_F(PreviewWork, theExportAsksWithTheReportsTitleAndThreeTypes)
{
    openWith(printer, 10);
    form->actExport->trigger();
    EXPECT_EQ(world.dialogs.asked.join(u'/'),
              u"save|Export|Songs.pdf|C:\\|CommonDialog1|PDF documents (*.pdf)|*.pdf|Web pages (*.html)|"
              "*.html;*.htm|Comma-separated values (*.csv)|*.csv");
    EXPECT_EQ(status(), u"Page 1 of 1 · 10 records");
}

TEST_F(PreviewWork, theExportAsksWithTheReportsOwnNameWhereItHasOne)
{
    design.exportName = u"List of songs"_qs;
    openWith(printer, 10);
    form->actExport->trigger();
    EXPECT_TRUE(world.dialogs.asked.constFirst().startsWith(u"save|Export|List of songs.pdf|"_qs));
}

TEST_F(PreviewWork, whatFailsDoesNotSayTheFormerSuccess)
{
    BrokenPrinter broken;
    openWith(broken, 10);
    const QString plain = status();
    const auto exportTo = [this](const QString& path) {
        world.dialogs.fileAnswer = path;
        form->actExport->trigger();
    };
    exportTo(u"D:\\a.csv"_qs);
    EXPECT_TRUE(status().endsWith(u"Exported to D:\\a.csv"));
    exportTo(u"D:\\nowhere\\a.csv"_qs);
    EXPECT_EQ(status(), plain);
    exportTo(u"D:\\a.csv"_qs);
    form->actPrint->trigger();
    EXPECT_EQ(status(), plain);
    EXPECT_EQ(world.dialogs.errors, (std::vector<int>{76, 482}));
}

TEST_F(PreviewWork, theNamesEndingTellsTheTypeElseTheFilter)
{
    openWith(printer, 10);
    const auto kindOf = [this](const QString& name, int entry) {
        world.dialogs.fileAnswer = u"D:\\"_qs + name;
        world.dialogs.entryAnswer = entry;
        form->actExport->trigger();
        EXPECT_TRUE(status().endsWith(u" · Exported to D:\\"_qs + name)) << status().toStdString();
        const QByteArray content = exported(("disk/" + name.toUtf8()).constData());
        return content.startsWith("%PDF-") ? 'p' : content.startsWith("<!DOCTYPE") ? 'h' : 'c';
    };
    EXPECT_EQ(kindOf(u"a.pdf"_qs, 2), 'p');
    EXPECT_EQ(kindOf(u"a.HTM"_qs, 0), 'h');
    EXPECT_EQ(kindOf(u"a.html"_qs, 2), 'h');
    EXPECT_EQ(kindOf(u"a.Csv"_qs, 0), 'c');
    EXPECT_EQ(kindOf(u"list.txt"_qs, 2), 'c');
    EXPECT_EQ(kindOf(u"list.web"_qs, 1), 'h');
    EXPECT_EQ(kindOf(u"list"_qs, 0), 'p');
}

TEST_F(PreviewWork, whatIsThereAndIsNoExportStays)
{
    openWith(printer, 10);
    world.directory.write("disk/Songbin.mdb", "records");
    world.dialogs.fileAnswer = u"D:\\Songbin.mdb"_qs;
    form->actExport->trigger();
    EXPECT_EQ(exported("disk/Songbin.mdb"), "records");
    EXPECT_EQ(world.dialogs.said(-1),
              u"Export|D:\\Songbin.mdb is there already and is no export, so that none takes its place.\n\n"
              "Choose another name, or one that ends with .pdf, .html or .csv.");
    EXPECT_EQ(status(), u"Page 1 of 1 · 10 records");
}

TEST_F(PreviewWork, aCancelledExportLeavesTheOldFileAndNoOther)
{
    openWith(printer, 20000);
    world.directory.write("disk/a.pdf", "old");
    world.dialogs.fileAnswer = u"D:\\a.pdf"_qs;
    answerAtProgress([this] { click(*form, "cmdCancel"); });
    form->actExport->trigger();
    EXPECT_EQ(exported("disk/a.pdf"), "old");
    EXPECT_EQ(onDisk(), QStringList{u"a.pdf"_qs});
    EXPECT_TRUE(status().endsWith(u"The export was cancelled")) << status().toStdString();
}

TEST_F(PreviewWork, closingWhileItExportsEndsItAndTheWindow)
{
    openWith(printer, 20000);
    world.directory.write("disk/a.html", "old");
    world.dialogs.fileAnswer = u"D:\\a.html"_qs;
    answerAtProgress([this] { form->close(); });
    form->actExport->trigger();
    EXPECT_TRUE(isGone());
    EXPECT_EQ(exported("disk/a.html"), "old");
    EXPECT_EQ(onDisk(), QStringList{u"a.html"_qs});
}

TEST_F(PreviewWork, anExportThatFailsIsShownInTheSystemsBox)
{
    openWith(printer, 10);
    world.dialogs.fileAnswer = u"D:\\nowhere\\a.pdf"_qs;
    form->actExport->trigger();
    EXPECT_EQ(world.dialogs.errors, std::vector<int>{76});
    EXPECT_EQ(status(), u"Page 1 of 1 · 10 records");
    EXPECT_TRUE(form->actExport->isEnabled());
}
