// Takes the face alone, without a player.
#include "player/face/face.h"
#include "player/face/facehost.h"
#include "player/playback/command.h"
#include "tests/support/world.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

struct NotingHost : FaceHost {
    QSize room() const override { return screen; }
    DisplayClock clock() const override { return {.now = QTime(13, 5), .hours24 = true}; }
    bool scrollsName() const override { return false; }
    void skinLoads(bool begins) override { notes += begins ? u"begins"_qs : u"ends"_qs; }
    void faceSized() override { notes += u"sized"_qs; }
    void placeByCode(int position) override { notes += u"place %1"_qs.arg(position); }
    void outlineChanged() override { notes += u"outline"_qs; }
    void Form_Paint() override { notes += u"paint"_qs; }
    void ShowLights() override { notes += u"lights"_qs; }
    void command(int code) override { commands += static_cast<Command>(code); }
    void volumeWished(float value) override { volumes += value; }
    void positionWished(float part) override { positions += part; }

    QSize screen{1000, 800};
    QStringList notes;
    QList<Command> commands;
    QList<float> volumes, positions;
};

// Has a face of 120 by 80 pixels, 60 by 40 when it is folded.
struct FaceAlone : testing::Test {
    FaceAlone()
    {
        target.setWindowSizes({QSize(120, 80), QSize(60, 40), QSize(120, 30)});
        face.setFixedSize(face.controls.scale.window());
        host.notes.clear();
    }
    QStringList told() { return std::exchange(host.notes, {}); }

    World world;
    NotingHost host;
    Face face{host, world.fileNumbers};
    SkinTarget& target = face.skinTarget();
};

} // namespace

TEST_F(FaceAlone, tellsTheCommandsOfItsButtonsAndLabels)
{
    target.set(SkinButton{.number = codeOf(Command::Play), .place = {10, 10, 20, 16}});
    for (const Label label : {Label::Time, Label::Name})
        face.controls.Lbl[label]->setPlace(label == Label::Time ? QRect(40, 0, 20, 10)
                                                                : QRect(40, 20, 20, 10));
    face.show();
    face.controls.Btn[Command::Play]->click();
    for (const Label label : {Label::Time, Label::Name}) {
        face.controls.Lbl[label]->show();
        QTest::mouseClick(face.controls.Lbl[label], Qt::LeftButton, {}, {5, 5});
    }
    EXPECT_EQ(host.commands, (QList<Command>{Command::Play, Command::RemainingTime, Command::TagEditor}));
}

TEST_F(FaceAlone, tellsTheVolumeAndThePositionThatAreWished)
{
    for (const int slider : {kPositionSlider, kVolumeSlider})
        target.set(SkinSlider{.number = slider, .track = {10, 30 + slider, 100, 0}, .thumb = {0, 0, 8, 6}});
    Q_EMIT face.controls.iSlider[kVolumeSlider]->stepped(0.25F);
    EXPECT_EQ(host.volumes, QList<float>{0.25F});
    EXPECT_EQ(host.positions, QList<float>());
    Q_EMIT face.controls.iSlider[kPositionSlider]->stepped(0.5F);
    EXPECT_EQ(host.positions, QList<float>{0.5F});
    EXPECT_EQ(host.volumes, QList<float>{0.25F});
}

TEST_F(FaceAlone, tellsWhatBecomesOfItWhileASkinLoads)
{
    target.beginLoad();
    EXPECT_EQ(told(), QStringList(u"begins"_qs));
    target.setWindowSizes({QSize(100, 50), QSize(60, 40), QSize(120, 30)});
    EXPECT_EQ(told(), QStringList(u"sized"_qs));
    EXPECT_EQ(face.controls.scale.window(), QSize(100, 50));
    target.placeWindow(5);
    target.repaint();
    target.endLoad();
    EXPECT_EQ(told(), (QStringList{u"place 5"_qs, u"paint"_qs, u"lights"_qs, u"ends"_qs}));
}

TEST_F(FaceAlone, isFoldedInTurn)
{
    const QStringList expected{u"sized"_qs, u"outline"_qs, u"paint"_qs};
    for (const QSize size : {QSize(60, 40), QSize(120, 30), QSize(120, 80)}) {
        face.nextSizeMode();
        EXPECT_EQ(face.controls.scale.window(), size);
        EXPECT_EQ(told(), expected);
    }
}

TEST_F(FaceAlone, isMadeSmallerForASmallScreen)
{
    EXPECT_TRUE(face.fits());
    host.screen = {60, 40};
    EXPECT_FALSE(face.fits());
    face.fit();
    EXPECT_TRUE(face.fits());
    EXPECT_EQ(face.controls.scale.window(), QSize(60, 40));
}

TEST_F(FaceAlone, showsTheLightsOfTheFlagsItIsGiven)
{
    face.showLights({.playing = true, .shuffle = true});
    const auto on = [this] {
        QList<int> numbers;
        for (int number = 1; number <= kLights; ++number)
            if (!face.controls.Light[number]->isHidden())
                numbers += number;
        return numbers;
    };
    EXPECT_EQ(on(), (QList<int>{4, 9, 11, 12, 13, 14, 16}));
    face.showLights({});
    EXPECT_EQ(on(), (QList<int>{2, 11, 12, 13, 14, 15, 16}));
}

TEST_F(FaceAlone, saysWhatItsDisplaysShow)
{
    face.SetDD(DisplayItem::Clock, 0.0);
    EXPECT_EQ(face.controls.Dig[DisplayItem::Clock]->accessibleDescription(), QString()) << "no such display";
    target.set(SkinDisplay{.number = 3, .place = {0, 0, 45, 13}, .font = {.cell = {9, 13}, .cells = 8}});
    face.SetDD(DisplayItem::Clock, 0.0);
    EXPECT_EQ(face.controls.Dig[DisplayItem::Clock]->accessibleDescription(), u"13:05"_qs);
}
