#include "toolkit/widgets/form.h"

#include "tests/support/fakes.h"
#include "tests/support/find.h"
#include "tests/support/hung.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

struct Seams {
    FakeDialogs dialogs;
    FakeProgram program;
};

class Sample : public Form {
public:
    explicit Sample(Seams& seams) : Form(seams.dialogs, seams.program, "Sample", QStringLiteral("Sample"))
    {
        makeButtons({{cmdOne, "cmdOne", QStringLiteral("&One"), QStringLiteral("tip"), [this] { act(); }, {}},
                     {cmdTwo, "cmdTwo", QStringLiteral("Two"), {}, [this] { unload(); }, {}}});
        setKeys(cmdOne, cmdTwo);
    }

    QPushButton* cmdOne = nullptr;
    QPushButton* cmdTwo = nullptr;
    QStringList events;
    std::function<void()> act = [] {};
    std::function<void()> onLoad = [] {};
    bool mayUnload = true;

    std::function<bool()> onKey;
    using Form::setKeyPreview;

protected:
    bool Form_KeyDown(int, int) override { return onKey && onKey(); }
    void Form_Load() override
    {
        events += QStringLiteral("Load");
        onLoad();
    }
    bool Form_QueryUnload() override { return mayUnload; }
    void Form_Unload() override { events += QStringLiteral("Unload"); }
    void Form_Resize() override
    {
        if (events.isEmpty() || events.last() != u"Resize")
            events += QStringLiteral("Resize");
    }
};

struct FormTest : testing::Test {
    Seams seams;
    QPointer<Sample> form = new Sample(seams);
    ~FormTest() override { delete form; }
    static void runDeletions() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

} // namespace

TEST_F(FormTest, loadsOnceAndThenResizes)
{
    form->load();
    form->load();
    EXPECT_EQ(form->events, QStringList({u"Load"_qs}));
    form->showForm();
    EXPECT_EQ(form->events, QStringList({u"Load"_qs, u"Resize"_qs}));
    EXPECT_TRUE(form->isVisible());
}

TEST_F(FormTest, closingRunsUnloadAndForgetsTheWindow)
{
    int told = 0;
    QObject::connect(form, &Form::unloaded, form, [&] { ++told; });
    form->showForm();
    form->close();
    EXPECT_EQ(form->events.last(), u"Unload"_qs);
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(form->isGone());
    runDeletions();
    EXPECT_TRUE(form.isNull());
}

TEST_F(FormTest, aRefusedUnloadChangesNothing)
{
    form->showForm();
    form->mayUnload = false;
    form->close();
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->closing());
}

TEST_F(FormTest, aCloseInTheMiddleOfAHandlerIsPutOffToItsEnd)
{
    form->showForm();
    form->act = [&] {
        form->close();
        EXPECT_TRUE(form->closing());
        EXPECT_FALSE(form->isVisible());
        EXPECT_FALSE(form->events.contains(u"Unload"_qs));
    };
    click(*form, "cmdOne");
    EXPECT_TRUE(form->events.contains(u"Unload"_qs));
    EXPECT_TRUE(form->isGone());
}

TEST_F(FormTest, aCloseCancelsTheQuestionsOverIt)
{
    form->showForm();
    std::vector<int> answers;
    const auto ask = [&](QWidget* over) {
        QDialog question(over);
        answers.push_back(question.exec());
    };
    form->act = [&] {
        QDialog question(form);
        QTimer::singleShot(0, &question, [&] { ask(&question); });
        QTimer::singleShot(20, form, [&] { form->unload(); });
        answers.push_back(question.exec());
    };
    QElapsedTimer clock;
    clock.start();
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        if (QWidget* left = QApplication::activeModalWidget(); left && clock.elapsed() > kHung)
            left->close();
    });
    watch.start(100);
    click(*form, "cmdOne");
    EXPECT_LT(clock.elapsed(), kHung);
    EXPECT_EQ(answers, std::vector<int>(2, QDialog::Rejected));
    EXPECT_TRUE(form->isGone());
}

TEST_F(FormTest, aCloseCancelsAStrangersQuestionOverIt)
{
    form->showForm();
    QTimer::singleShot(0, form, [&] { form->unload(); });
    QDialog question(form);
    EXPECT_EQ(question.exec(), QDialog::Rejected);
    EXPECT_TRUE(form->isGone());
}

TEST_F(FormTest, unloadedWhileLoadingItIsNeverShown)
{
    form->onLoad = [&] { form->unload(); };
    form->showForm();
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(form->isGone());
}

TEST_F(FormTest, anErrorEndsTheHandlerInTheSystemsBoxAndTheProgramGoesOn)
{
    form->showForm();
    form->act = [] { throw RunTimeError(ErrorNumber::DiskNotReady); };
    click(*form, "cmdOne");
    EXPECT_EQ(seams.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::DiskNotReady)});
    EXPECT_FALSE(seams.program.ending());
}

TEST_F(FormTest, anErrorThatStopsEndsTheProgramWithStatusOne)
{
    form->onLoad = [] { stopOnError([] { throw RunTimeError(ErrorNumber::FileNotFound); }); };
    form->load();
    EXPECT_EQ(seams.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::FileNotFound)});
    EXPECT_EQ(seams.program.status, 1);
}

TEST_F(FormTest, noUnloadCodeRunsOnceTheProgramEnds)
{
    form->showForm();
    form->act = [&] {
        form->close();
        seams.program.end(0);
    };
    click(*form, "cmdOne");
    EXPECT_FALSE(form->events.contains(u"Unload"_qs));
}

TEST_F(FormTest, enterAndEscapePressTheirButtons)
{
    int acted = 0;
    form->act = [&] { ++acted; };
    form->showForm();
    form->setFocus();
    QTest::keyClick(form.data(), Qt::Key_Return);
    EXPECT_EQ(acted, 1);
    QTest::keyClick(form.data(), Qt::Key_Escape);
    EXPECT_TRUE(form->isGone());
}

TEST_F(FormTest, namesAndCaptionsAreThoseOfTheRows)
{
    EXPECT_EQ(form->objectName(), u"Sample"_qs);
    EXPECT_EQ(form->windowTitle(), u"Sample"_qs);
    EXPECT_EQ(form->cmdOne->objectName(), u"cmdOne"_qs);
    EXPECT_EQ(form->cmdOne->text(), u"&One"_qs);
    EXPECT_EQ(form->cmdOne->toolTip(), u"tip"_qs);
}

TEST_F(FormTest, aKeyWhoseHandlerFailsIsToldOnceAndGoesNoFurther)
{
    auto* frame = new QWidget(form->centralWidget());
    auto* box = new QLineEdit(frame);
    form->setKeyPreview();
    form->onKey = []() -> bool { throw RunTimeError(ErrorNumber::DiskNotReady); };
    form->showForm();
    QTest::keyClick(new QWidget(frame), Qt::Key_Down); // which takes no key, nor does what is round it
    EXPECT_EQ(seams.dialogs.errors, std::vector<int>{numberOf(ErrorNumber::DiskNotReady)});
    QTest::keyClick(box, Qt::Key_X);
    EXPECT_EQ(box->text(), QString());
    form->onKey = [] { return false; };
    QTest::keyClick(box, Qt::Key_X);
    EXPECT_EQ(box->text(), u"x"_qs);
}
