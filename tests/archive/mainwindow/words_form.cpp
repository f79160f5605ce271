// Looks for words of the archive's windows that no translation would reach.
#include "archive/browse/frmeditor.h"
#include "archive/browse/searchform.h"
#include "archive/browse/utvalg.h"
#include "archive/mainwindow/frmabout.h"
#include "archive/mainwindow/frmmain.h"
#include "archive/mainwindow/frmoptions.h"
#include "archive/mainwindow/frmtip.h"
#include "archive/scan/frmeditcell.h"
#include "archive/scan/frmresult.h"
#include "archive/scan/frmsearch.h"
#include "tests/support/find.h"
#include "tests/support/world.h"

#include <QApplication>
#include <QLabel>
#include <QTranslator>

#include <algorithm>

#include <gtest/gtest.h>

namespace {

const QChar kMark = u'‡';

// Puts the mark before whatever is to be translated.
class MarkingTranslator : public QTranslator {
public:
    QString translate(const char*, const char* text, const char*, int) const override
    {
        return kMark + QString::fromUtf8(text);
    }
    bool isEmpty() const override { return false; }
};

struct Words : testing::Test {
    Words()
    {
        world.makeArchive();
        world.execute(u"INSERT INTO MP3 VALUES ('V','D:\\a.mp3','A','song','L','1999',' ')"_qs);
        qApp->installTranslator(&translator);
    }
    ~Words() override { qApp->removeTranslator(&translator); }

    // Returns the words of a window that have no mark, each with its control.
    std::string untranslatedOf(QWidget& window)
    {
        QStringList found;
        const auto look = [&](const QString& text, const QObject& at) {
            const bool isWord = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
            if (isWord && !text.startsWith(kMark) && !names.contains(text))
                found += at.objectName() + u": "_qs + text;
        };
        look(window.windowTitle(), window);
        for (const auto* widget : window.findChildren<QWidget*>()) {
            look(widget->toolTip(), *widget);
            look(widget->accessibleName(), *widget);
        }
        for (const auto* button : window.findChildren<QAbstractButton*>())
            look(button->text(), *button);
        for (const auto* label : window.findChildren<QLabel*>())
            look(label->text(), *label);
        for (const auto* action : window.findChildren<QAction*>())
            look(action->text(), *action);
        return found.join(u'\n').toStdString();
    }

    World world;
    MarkingTranslator translator;
    QStringList names{world.program.title(), world.windows.homePageAddress()};
};

} // namespace

TEST_F(Words, ofTheMainWindowAndItsBoxes)
{
    frmMain main(world.context);
    main.showForm();
    EXPECT_EQ(untranslatedOf(main), "");
    frmOptions options(world.context);
    options.showForm();
    EXPECT_EQ(untranslatedOf(options), "");
    frmAbout about(world.context);
    about.showForm();
    EXPECT_EQ(untranslatedOf(about), "");
    frmTip tip(world.context);
    tip.showForm();
    EXPECT_EQ(untranslatedOf(tip), "");
}

TEST_F(Words, ofTheScan)
{
    frmSearch search(world.context, [] {});
    search.showForm();
    EXPECT_EQ(untranslatedOf(search), "");
    frmResult result(world.context, [&]() -> ScanSetup& { return search; }, {.open = [] {}, .close = [] {}});
    EXPECT_EQ(untranslatedOf(result), "");
    frmEditCell cell(world.dialogs, world.program, [] { return nullptr; });
    cell.showForm();
    EXPECT_EQ(untranslatedOf(cell), "");
}

TEST_F(Words, ofTheSearchAndItsResult)
{
    SearchForm search(world.context, [] {});
    search.showForm();
    EXPECT_EQ(untranslatedOf(search), "");
    Utvalg result(
        world.context,
        {.search = [&]() -> SearchCriteria& { return search; }, .closeSearch = [] {}, .SpillMusikk = [] {}});
    result.showForm();
    EXPECT_EQ(untranslatedOf(result), "");
}

TEST_F(Words, ofTheRecordEditor)
{
    frmEditor editor(world.context);
    editor.showForm();
    world.dialogs.inputAnswer = u"1234"_qs;
    for (const char* button : {"cmdAdd", "cmdCancel", "cmdEdit", "cmdCancel", "cmdFindRec", "cmdFindSong"}) {
        click(editor, button);
        EXPECT_EQ(untranslatedOf(editor), "") << button;
    }
    for (const QString& question : world.dialogs.asked)
        EXPECT_EQ(question.count(kMark), 2) << question.toStdString();
    EXPECT_EQ(world.dialogs.asked.size(), 2);
}
