// What all windows have in common: captions fit in any font, Escape closes them, answers stand in the
// desktop's order.
#include "app/defaultinstances.h"

#include "archive/browse/searchform.h"
#include "archive/scan/frmsearch.h"
#include "player/playback/playersettings.h"
#include "tests/support/fakemedia.h"
#include "tests/support/fakemodulewindow.h"
#include "tests/support/find.h"
#include "tests/support/world.h"
#include "toolkit/grids/datagrid.h"
#include "toolkit/grids/flexgrid.h"
#include "toolkit/widgets/drivelist.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

class OrderStyle : public QProxyStyle {
public:
    explicit OrderStyle(int order) : m_order(order) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        return hint == SH_DialogButtonLayout ? m_order : QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    int m_order;
};

struct WindowLooks : testing::Test {
    World world;
    PlayerSettings playerOptions;
    FakeMediaMachine media;
    FakeModuleWindow moduleWindow;
    std::unique_ptr<DefaultInstances> windows;
    QFont usual = QApplication::font();

    WindowLooks()
    {
        world.makeArchive();
        world.directory.write("program/TIPOFDAY.TXT", "a tip");
        world.directory.write("disk/A - B.mp3");
        world.execute(u"INSERT INTO MP3 VALUES ('V','D:\\a.mp3','Artist','Song','Album','2000','')"_qs);
        world.program.onYield = [] { QCoreApplication::processEvents(); };
        make();
    }
    ~WindowLooks() override
    {
        windows.reset();
        runDeletions();
        QApplication::setFont(usual);
    }

    void make()
    {
        windows.reset();
        runDeletions();
        windows = std::make_unique<DefaultInstances>(
            world.context.platform, world.fileNumbers, world.store, world.shared,
            PlayerContext{world.context.platform, world.fileNumbers, playerOptions, world.codePage, media,
                          moduleWindow});
    }
    static void runDeletions() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    static QWidget* shown(const char* name)
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String(name) && window->isVisible())
                return window;
        ADD_FAILURE() << name << " is not there";
        return nullptr;
    }
    // Makes every window of the archive, each with all that it may show.
    void showAll()
    {
        for (const WindowId id : {WindowId::frmMain, WindowId::frmTip, WindowId::frmOptions,
                                  WindowId::frmAbout, WindowId::frmEditor})
            windows->show(id);
        world.dialogs.inputAnswer = u"nobody"_qs;
        click(*shown("frmEditor"), "cmdFindRec");
        world.directory.write("program/uphist.txt", "what was");
        windows->showText(u"P:\\uphist.txt"_qs);
        click(*shown("Textout"), "cmdPrint");
        windows->show(WindowId::frmSearch);
        auto& search = static_cast<frmSearch&>(*shown("frmSearch"));
        search.Drive1->setCurrentIndex(search.Drive1->findText(u"D:"_qs, Qt::MatchStartsWith));
        click(search, "cmdScan");
        click(*shown("frmResult"), "cmd_Print");
        Q_EMIT find<FlexGrid>(*shown("frmResult"), "MSFlexGrid1")->cellActivated();
        windows->show(WindowId::SearchForm);
        click(*shown("SearchForm"), "cmdSearch");
        for (const char* form : {"frmSearch", "SearchForm"}) {
            auto* type = find<QComboBox>(*shown(form), "Combo1");
            type->setCurrentIndex(type->count() - 1);
            Q_EMIT type->activated(type->count() - 1);
        }
        QTest::qWait(20);
    }
    static bool isWhole(const QLabel& label)
    {
        if (label.wordWrap())
            return label.heightForWidth(label.width()) <= label.height();
        return label.sizeHint().width() <= label.width() && label.sizeHint().height() <= label.height() + 1;
    }
    static bool isWhole(const QAbstractButton& button)
    {
        if (qobject_cast<const QToolButton*>(&button))
            return button.fontMetrics().horizontalAdvance(button.text()) + 8 <= button.width();
        return button.sizeHint().width() <= button.width() && button.sizeHint().height() <= button.height();
    }
    template <typename Control>
    static void expectWhole(const QWidget& window)
    {
        for (const auto* control : window.findChildren<Control*>()) {
            const bool fits = !control->isVisible() || control->text().isEmpty() || isWhole(*control);
            EXPECT_TRUE(fits) << window.objectName().toStdString() << ' '
                              << control->objectName().toStdString() << " \"" << control->text().toStdString()
                              << "\" at " << control->font().pointSizeF();
        }
    }
};

const QStringList kWindows = {u"frmMain"_qs,     u"frmTip"_qs,     u"frmOptions"_qs, u"frmAbout"_qs,
                              u"frmEditor"_qs,   u"Textout"_qs,    u"frmSearch"_qs,  u"frmResult"_qs,
                              u"frmEditCell"_qs, u"SearchForm"_qs, u"Utvalg"_qs};

} // namespace

TEST_F(WindowLooks, captionsFitInSmallAndInLargeLetters)
{
    for (const int points : {9, 14}) {
        QFont font = usual;
        font.setPointSize(points);
        QApplication::setFont(font);
        make();
        showAll();
        for (const QString& name : kWindows) {
            const QWidget& window = *shown(name.toUtf8());
            expectWhole<QAbstractButton>(window);
            expectWhole<QLabel>(window);
        }
    }
}

TEST_F(WindowLooks, escapeClosesEachButTheMainWindow)
{
    showAll();
    QStringList order = kWindows.mid(1); // the one on top first
    std::reverse(order.begin(), order.end());
    for (const QString& name : order) {
        if (name == u"SearchForm") // went with its result
            continue;
        QWidget* window = shown(name.toUtf8());
        QWidget* inside = window->focusWidget() ? window->focusWidget() : window;
        QTest::keyClick(inside, Qt::Key_Escape);
        EXPECT_FALSE(window->isVisible()) << name.toStdString();
    }
    QTest::keyClick(shown("frmMain"), Qt::Key_Escape);
    EXPECT_TRUE(shown("frmMain"));
}

TEST_F(WindowLooks, answersStandInTheDesktopsOrder)
{
    const QString before = QApplication::style()->objectName();
    const std::vector<std::array<const char*, 3>> pairs = {{"frmOptions", "cmdOK", "cmdCancel"},
                                                           {"frmEditCell", "CmdEdit", "cmdAvbryt"},
                                                           {"frmResult", "cmdUpdate", "cmdCancel"},
                                                           {"SearchForm", "cmdSearch", "cmdCancel"}};
    for (const auto& [order, acceptFirst] : {std::pair(0, true), std::pair(2, true), std::pair(3, false)}) {
        QApplication::setStyle(new OrderStyle(order));
        make();
        showAll();
        for (const auto& [window, accept, reject] : pairs)
            EXPECT_EQ(find<QPushButton>(*shown(window), accept)->x() <
                          find<QPushButton>(*shown(window), reject)->x(),
                      acceptFirst)
                << window << ' ' << order;
    }
    QApplication::setStyle(before);
}

TEST_F(WindowLooks, gridsLookAlike)
{
    showAll();
    auto* result = find<FlexGrid>(*shown("frmResult"), "MSFlexGrid1");
    auto* found = find<DataGrid>(*shown("Utvalg"), "grdDataGrid");
    EXPECT_EQ(result->horizontalHeader()->height(), found->horizontalHeader()->height());
    EXPECT_EQ(result->rowHeight(0), found->rowHeight(0));
    const auto headings = [](const QTableView& grid) {
        return grid.horizontalHeader()->findChildren<QLabel*>();
    };
    ASSERT_EQ(headings(*found).size(), 7);
    EXPECT_EQ(headings(*found)[0]->text(), u"Artist"_qs);
    EXPECT_EQ(headings(*found)[0]->font(), headings(*result)[0]->font());
    EXPECT_EQ(result->alternatingRowColors(), found->alternatingRowColors());
}
