#include "toolkit/widgets/heldkeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

constexpr quint32 kScanCode = 36;

struct HeldKeysTest : testing::Test {
    HeldKeysTest()
    {
        ignoreHeldKeys();
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&button);
        layout->addWidget(&box);
        QObject::connect(&button, &QPushButton::clicked, [this] { ++clicks; });
        QObject::connect(&box, &QLineEdit::returnPressed, [this] { ++returns; });
        button.setAutoDefault(true); // Enter presses it in dialogs; here Space does
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void send(QWidget& to, QEvent::Type type, int key, quint64 time, bool marked = false)
    {
        QKeyEvent event(type, key, Qt::NoModifier, kScanCode, 0, 0, key == Qt::Key_Space ? u" "_qs : u"\r"_qs,
                        marked);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(&to, &event);
    }

    // As the server sends it: each repeat is a release and a press at one moment.
    void hold(QWidget& to, int key, bool marked)
    {
        send(to, QEvent::KeyPress, key, 1000);
        for (quint64 time = 1500; time < 2000; time += 30) {
            send(to, QEvent::KeyRelease, key, time, marked);
            send(to, QEvent::KeyPress, key, time, marked);
        }
        send(to, QEvent::KeyRelease, key, 2000);
    }

    QWidget window;
    QPushButton button{u"Delete"_qs};
    QLineEdit box;
    int clicks = 0;
    int returns = 0;
};

} // namespace

TEST_F(HeldKeysTest, aHeldKeyPressesAButtonOnce)
{
    button.setFocus();
    hold(button, Qt::Key_Space, false);
    EXPECT_EQ(clicks, 1);
    hold(button, Qt::Key_Space, true);
    EXPECT_EQ(clicks, 2);
}

TEST_F(HeldKeysTest, aHeldEnterAnswersABoxOnce)
{
    box.setFocus();
    hold(box, Qt::Key_Return, false);
    EXPECT_EQ(returns, 1);
}

TEST_F(HeldKeysTest, anotherPressCountsAgain)
{
    box.setFocus();
    for (quint64 time = 1000; time < 2000; time += 100) {
        send(box, QEvent::KeyPress, Qt::Key_Return, time);
        send(box, QEvent::KeyRelease, Qt::Key_Return, time + 50);
    }
    EXPECT_EQ(returns, 10);
}

TEST_F(HeldKeysTest, textIsRepeated)
{
    box.setFocus();
    hold(box, Qt::Key_Space, true);
    EXPECT_GT(box.text().size(), 10);
}
