#include "toolkit/widgets/windowlook.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include <gtest/gtest.h>

TEST(windowlook, aHeadingIsBoldAndLargerThanTheText)
{
    const QLabel text;
    QLabel heading;
    QLabel title;
    windowlook::makeHeading(heading);
    windowlook::makeHeading(title, 1.8);
    EXPECT_TRUE(heading.font().bold());
    EXPECT_DOUBLE_EQ(heading.font().pointSizeF(), text.font().pointSizeF() * 1.4);
    EXPECT_DOUBLE_EQ(title.font().pointSizeF(), text.font().pointSizeF() * 1.8);
}

TEST(windowlook, commandsAreLargeAndStandAtBothEnds)
{
    QWidget bar;
    QPushButton play(QStringLiteral("Play"), &bar);
    QPushButton close(QStringLiteral("Close"), &bar);
    bar.setLayout(windowlook::commandRow({&play}, {&close}));
    bar.resize(600, 60);
    bar.layout()->activate();
    EXPECT_EQ(play.size(), QSize(104, 34).expandedTo(play.sizeHint()));
    const QRect inside = bar.layout()->contentsRect();
    EXPECT_EQ(play.geometry().left(), inside.left());
    EXPECT_EQ(close.geometry().right(), inside.right());
}

TEST(windowlook, aLongCaptionOfACommandStaysWhole)
{
    QWidget bar;
    QPushButton button(QString(60, u'm'), &bar);
    bar.setLayout(windowlook::commandRow({&button}));
    EXPECT_GE(bar.layout()->totalMinimumSize().width(), button.sizeHint().width());
}

TEST(windowlook, answersStandAtTheRightEndAsSmallAsTheirCaptions)
{
    QWidget bar;
    QPushButton accept(QStringLiteral("OK"), &bar);
    bar.setLayout(windowlook::answerRow({&accept}));
    bar.resize(600, 60);
    bar.layout()->activate();
    EXPECT_EQ(accept.size(), accept.sizeHint());
    EXPECT_EQ(accept.geometry().right(), bar.layout()->contentsRect().right());
}
