#include "tests/player/playback/enginetest.h"

#include <chrono>
#include <thread>

TEST_F(EngineTest, playsNothingOfAnEmptyList)
{
    face.timer = true;
    engine.PlayIt();
    EXPECT_TRUE(face.timer);
    EXPECT_TRUE(devices[0].notes.isEmpty());
}

TEST_F(EngineTest, opensAndPlaysTheCurrentEntry)
{
    entries({u"a.wav"_qs, u"b.wav"_qs});
    list.setCurTrack(2);
    engine.PlayIt();
    EXPECT_EQ(devices[0].notes, (QStringList{u"close"_qs, u"open"_qs, u"from 0"_qs, u"play"_qs}));
    EXPECT_EQ(devices[0].deviceType, u"ActiveMovie"_qs);
    EXPECT_EQ(devices[0].fileName, u"D:\\b.wav"_qs);
    EXPECT_EQ(devices[0].timeFormat, u"milliseconds"_qs);
    EXPECT_TRUE(devices[0].wait);
    EXPECT_EQ(face.name, u"b.wav"_qs);
    EXPECT_EQ(face.number, 2);
    EXPECT_EQ(face.length, u"1:00"_qs);
    EXPECT_EQ(list.selected(), 1);
    EXPECT_TRUE(engine.IsPlaying());
    EXPECT_FALSE(engine.IsPaused());
    EXPECT_TRUE(face.timer);
    EXPECT_EQ(face.lights, 1);
    EXPECT_EQ(face.offered, 1);
}

TEST_F(EngineTest, playsATrackOfADiscFromItsBeginningToItsEnd)
{
    entries({u"Track05.cda"_qs});
    engine.PlayIt();
    EXPECT_EQ(devices[0].notes, (QStringList{u"close"_qs, u"open"_qs, u"track 5"_qs, u"from 0"_qs,
                                             u"to 59999"_qs, u"play"_qs}));
    EXPECT_EQ(devices[0].deviceType, u"cdaudio"_qs);
    EXPECT_EQ(devices[0].fileName, QString());
}

TEST_F(EngineTest, readsFactsAndTagOfMpegAudioAlone)
{
    settings.UseTagCover = 1;
    entries({u"a.mp3"_qs, u"b.wav"_qs});
    engine.PlayIt();
    EXPECT_EQ(face.facts.size(), 3);
    EXPECT_EQ(face.covers, QStringList{u"tag D:\\"_qs});
    engine.NextTrack();
    EXPECT_TRUE(face.facts.isEmpty());
    EXPECT_EQ(face.covers.size(), 1);
}

TEST_F(EngineTest, looksForNoCoverByTheTagUnlessAsked)
{
    entries({u"a.mp3"_qs});
    engine.PlayIt();
    EXPECT_TRUE(face.covers.isEmpty());
}

TEST_F(EngineTest, showsAPictureForFiveSeconds)
{
    entries({u"a.jpg"_qs, u"b.wav"_qs});
    engine.PlayIt();
    EXPECT_EQ(face.covers, QStringList{u"D:\\a.jpg"_qs});
    EXPECT_EQ(face.length, u"0:05"_qs);
    EXPECT_EQ(devices[0].taken(), QStringList{u"close"_qs});
    for (int tick = 0; tick < 49; ++tick)
        engine.Timer1_Timer();
    EXPECT_EQ(list.CurTrack(), 1);
    EXPECT_EQ(engine.PlayPosMs(), 4900);
    engine.PauseIt();
    engine.Timer1_Timer();
    EXPECT_EQ(engine.PlayPosMs(), 4900) << "a pause stops the count";
    engine.PauseIt();
    engine.Timer1_Timer();
    EXPECT_EQ(list.CurTrack(), 2);
    EXPECT_EQ(devices[0].deviceType, u"ActiveMovie"_qs);
}

TEST_F(EngineTest, haltsOnWhatIsNotPlayed)
{
    entries({u"a.txt"_qs});
    face.timer = true;
    engine.PlayIt();
    EXPECT_FALSE(face.timer);
    EXPECT_EQ(face.name, QString());
    EXPECT_TRUE(face.errors.isEmpty());
}

TEST_F(EngineTest, marksAFileThatIsNotThere)
{
    list.add(u"gone"_qs, u"D:\\gone.mp3"_qs);
    face.timer = true;
    engine.PlayIt();
    EXPECT_EQ(list.entries()[0].name, u"gone [FILE NOT FOUND]"_qs);
    EXPECT_EQ(list.entries()[0].path, QString());
    EXPECT_EQ(engine.DeviceType(), QString());
    EXPECT_FALSE(face.timer);
    EXPECT_FALSE(engine.IsPlaying());
    engine.PlayIt();
    EXPECT_EQ(list.entries()[0].name, u"gone [FILE NOT FOUND]"_qs) << "once only";
}

TEST_F(EngineTest, tellsOnceThatNobodyHearsIt)
{
    entries({u"a.mp3"_qs, u"b.mp3"_qs, u"c.gif"_qs});
    devices[0].silent = true;
    engine.PlayIt();
    ASSERT_EQ(face.said.size(), 1);
    tickAt(100);
    engine.NextTrack();
    engine.NextTrack(); // a picture is not heard anyhow
    EXPECT_EQ(face.said.size(), 1);
    engine.PrevTrack();
    devices[0].silent = false;
    tickAt(200);
    tickAt(300);
    ASSERT_EQ(face.said.size(), 2);
    EXPECT_EQ(face.said[1], u"There is a sound device again."_qs);
    devices[0].silent = true;
    tickAt(400);
    EXPECT_EQ(face.said.size(), 3);
}

TEST_F(EngineTest, paintsWhileADeviceIsWaitedFor)
{
    for (const NotingDevice& device : devices) {
        ASSERT_TRUE(device.meanwhile);
        device.meanwhile();
    }
    EXPECT_EQ(face.painted, 2);
    EXPECT_EQ(face.yields, 0) << "no event is handled in the midst of a command";
}

TEST_F(EngineTest, tellsWhatItWaitsForWhenAMediumIsSlow)
{
    entries({u"fast.wav"_qs, u"slow.wav"_qs});
    std::chrono::milliseconds wait(0);
    devices[0].onSend = [&](const QString& command) {
        std::this_thread::sleep_for(command == u"open" ? wait : std::chrono::milliseconds(0));
        devices[0].meanwhile();
        devices[0].meanwhile();
    };
    engine.PlayIt();
    EXPECT_EQ(face.said, QStringList());
    wait = std::chrono::milliseconds(750);
    engine.NextTrack();
    EXPECT_EQ(face.said, (QStringList{u"Opening slow.wav takes a moment."_qs, QString()})) << "while it does";
    wait = std::chrono::milliseconds(0);
    engine.StopIt();
    engine.NextTrack();
    EXPECT_EQ(face.said.size(), 2);
}

TEST_F(EngineTest, asksForTheDiskOfAnEntryWhoseDriveIsNotThere)
{
    list.add(u"gone"_qs, u"D:\\gone.mp3"_qs);
    list.add(u"elsewhere"_qs, u"q:\\Album\\elsewhere.mp3"_qs);
    engine.PlayIt();
    EXPECT_EQ(face.said, QStringList()) << "its disk is there";
    engine.NextTrack();
    EXPECT_EQ(face.said,
              QStringList(u"Drive Q: is empty. Put its disk in, then add elsewhere.mp3 again."_qs));
    EXPECT_EQ(list.entries()[1].name, u"elsewhere [FILE NOT FOUND]"_qs);
    engine.PlayIt();
    EXPECT_EQ(face.said.size(), 1) << "the entry has no path any more";
    EXPECT_EQ(face.errors, QStringList());
}

TEST_F(EngineTest, reportsTheErrorsOfADevice)
{
    entries({u"a.wav"_qs});
    const QString begin = u"MCI Device: ActiveMovie\r\rthe device's own words\r\r"_qs;
    const std::pair<int, QString> cases[] = {
        {MediaError::kNoDriver, u"MCI driver is NOT installed.\rSee Tonedeck documentation!"_qs},
        {MediaError::kDamaged,
         u"Unknown file format, corrupt file, or un-supported variation of known format."_qs},
        {MediaError::kNoFile, u"Unhandled Tonedeck error"_qs},
        {MediaError::kOther, u"Unhandled Tonedeck error"_qs}};
    for (const auto& [number, text] : cases) {
        face.errors.clear();
        face.timer = true;
        devices[0].errorNumber = number;
        engine.PlayIt();
        EXPECT_EQ(face.errors, QStringList{begin + text});
        EXPECT_EQ(engine.DeviceType(), QString());
        EXPECT_FALSE(face.timer);
    }
    EXPECT_FALSE(devices[0].notes.contains(u"play"_qs));
}

TEST_F(EngineTest, wrapsBeforeTheFirstAndStopsBehindTheLast)
{
    entries({u"a.wav"_qs, u"b.wav"_qs});
    engine.PrevTrack();
    EXPECT_EQ(list.CurTrack(), 2);
    EXPECT_TRUE(engine.IsPlaying());
    devices[0].taken();
    engine.NextTrack();
    EXPECT_EQ(list.CurTrack(), 1);
    EXPECT_FALSE(engine.IsPlaying());
    EXPECT_EQ(devices[0].notes, (QStringList{u"from 0"_qs, u"seek"_qs, u"stop"_qs}));
    EXPECT_EQ(devices[1].notes, devices[0].notes);
}

TEST_F(EngineTest, goesOnAtTheEnd)
{
    entries({u"a.wav"_qs, u"b.wav"_qs});
    engine.PlayIt();
    tickAt(59'999);
    EXPECT_EQ(list.CurTrack(), 1);
    tickAt(60'000);
    EXPECT_EQ(list.CurTrack(), 2);
    EXPECT_EQ(engine.DevIndex(), 0);
}

TEST_F(EngineTest, startsTheNextOneOnTheOtherDeviceWithAnOverlap)
{
    settings.OverlapMs = 3000;
    entries({u"a.wav"_qs, u"b.wav"_qs});
    engine.PlayIt();
    devices[0].taken();
    tickAt(57'000);
    EXPECT_EQ(list.CurTrack(), 2);
    EXPECT_EQ(engine.DevIndex(), 1);
    EXPECT_TRUE(devices[0].notes.isEmpty()) << "its tail is heard";
    EXPECT_EQ(devices[1].taken(), (QStringList{u"close"_qs, u"open"_qs, u"from 0"_qs, u"play"_qs}));
    engine.StopIt();
    EXPECT_EQ(devices[0].notes, (QStringList{u"from 0"_qs, u"seek"_qs, u"stop"_qs})) << "both fall silent";
    EXPECT_EQ(devices[1].notes, devices[0].notes);
}

TEST_F(EngineTest, repeatsShufflesAndStopsAfterATrack)
{
    entries({u"a.wav"_qs, u"b.wav"_qs, u"c.wav"_qs});
    engine.PlayIt();
    engine.RepeatMode = true;
    tickAt(60'000);
    EXPECT_EQ(list.CurTrack(), 1);
    engine.RepeatMode = false;
    engine.ShuffleMode = true;
    world.program.nextRandom = 0.6; // 2.8
    tickAt(60'000);
    EXPECT_EQ(list.CurTrack(), 3);
    EXPECT_EQ(world.program.seeded, 1);
    world.program.nextRandom = 0.99; // one behind the last
    tickAt(60'000);
    EXPECT_EQ(list.CurTrack(), 1);
    EXPECT_FALSE(engine.IsPlaying());
    engine.ShuffleMode = false;
    engine.StopAfterTrack = true;
    engine.PlayIt();
    devices[0].taken();
    tickAt(60'000);
    EXPECT_EQ(list.CurTrack(), 2);
    EXPECT_FALSE(engine.IsPlaying());
    EXPECT_EQ(devices[0].taken(),
              (QStringList{u"close"_qs, u"open"_qs, u"from 0"_qs, u"from 0"_qs, u"seek"_qs, u"stop"_qs}))
        << "cued, not played";
    engine.PlayIt();
    EXPECT_EQ(devices[0].notes.last(), u"play"_qs);
}

TEST_F(EngineTest, pausesByAStopWithoutSeekAndGoesOnByAPlainPlay)
{
    entries({u"a.wav"_qs});
    engine.PlayIt();
    devices[0].taken();
    engine.PauseIt();
    EXPECT_TRUE(engine.IsPaused());
    engine.PlayPause();
    EXPECT_FALSE(engine.IsPaused());
    EXPECT_EQ(devices[0].notes, (QStringList{u"stop"_qs, u"play"_qs}));
    face.stopped = true;
    engine.PauseIt();
    EXPECT_FALSE(engine.IsPaused()) << "nothing to pause";
    EXPECT_EQ(devices[0].notes.size(), 2);
}

TEST_F(EngineTest, jumpsTenSecondsBackAndForward)
{
    entries({u"a.wav"_qs});
    engine.PlayIt();
    tickAt(5000);
    devices[0].taken();
    engine.Reverse();
    EXPECT_EQ(devices[0].taken(), (QStringList{u"stop"_qs, u"from 0"_qs, u"Play"_qs}));
    tickAt(55'000);
    engine.Forward();
    EXPECT_EQ(devices[0].taken(), (QStringList{u"stop"_qs, u"from 59000"_qs, u"Play"_qs}));
    tickAt(20'000);
    engine.Forward();
    EXPECT_EQ(devices[0].taken(), (QStringList{u"stop"_qs, u"from 30000"_qs, u"Play"_qs}));
}

TEST_F(EngineTest, showsTheTimeOnlyWhenItChanges)
{
    entries({u"a.wav"_qs});
    engine.PlayIt();
    tickAt(100);
    tickAt(200);
    tickAt(1000);
    EXPECT_EQ(face.times, (QStringList{u"0:00"_qs, u"0:01"_qs}));
    EXPECT_FLOAT_EQ(face.position, 1000.0F / 60'000);
    engine.ShowRemaining = true;
    tickAt(1000);
    EXPECT_EQ(face.times.last(), u"-0:59"_qs);
    face.follows = false;
    tickAt(30'000);
    EXPECT_FLOAT_EQ(face.position, 1000.0F / 60'000) << "the user holds the slider";
}

TEST_F(EngineTest, followsNothingWhileItDoesNotPlay)
{
    entries({u"a.wav"_qs});
    engine.Timer1_Timer();
    EXPECT_EQ(face.yields, 1);
    EXPECT_TRUE(face.times.isEmpty());
    devices[0].lengthMs = 0;
    engine.PlayIt();
    tickAt(5000);
    EXPECT_TRUE(face.times.isEmpty()) << "of no length";
}

TEST_F(EngineTest, ticksNoMoreOnceItsWindowIsClosed)
{
    entries({u"a.wav"_qs, u"b.wav"_qs});
    engine.PlayIt();
    face.isClosed = true;
    tickAt(60'000);
    EXPECT_EQ(list.CurTrack(), 1);
    EXPECT_TRUE(face.times.isEmpty());
}

TEST_F(EngineTest, tellsThatItHalted)
{
    entries({u"a.wav"_qs, u"b.txt"_qs, u"c.wav"_qs, u"d.wav"_qs, u"e.jpg"_qs});
    list.add(u"gone"_qs, u"D:\\gone.mp3"_qs);
    EXPECT_FALSE(engine.halted()) << "nothing was begun";
    engine.PlayIt();
    EXPECT_FALSE(engine.halted());
    engine.NextTrack();
    EXPECT_TRUE(engine.halted()) << "a text";
    engine.NextTrack();
    EXPECT_FALSE(engine.halted());
    devices[0].errorNumber = MediaError::kDamaged;
    engine.NextTrack();
    EXPECT_TRUE(engine.halted()) << "an error";
    engine.NextTrack();
    EXPECT_FALSE(engine.halted()) << "a picture";
    engine.NextTrack();
    EXPECT_TRUE(engine.halted()) << "not there";
    engine.StopIt();
    EXPECT_FALSE(engine.halted()) << "it does not play";
}

TEST_F(EngineTest, showsItsLightsAlsoWhenItHalts)
{
    entries({u"a.txt"_qs, u"b.wav"_qs});
    list.add(u"gone"_qs, u"D:\\gone.mp3"_qs);
    engine.PlayIt();
    EXPECT_EQ(face.lights, 1) << "a text";
    devices[0].errorNumber = MediaError::kDamaged;
    face.whileReading = [&] { EXPECT_EQ(face.lights, 2) << "an error, before the user has read it"; };
    engine.NextTrack();
    engine.NextTrack();
    EXPECT_EQ(face.lights, 3) << "not there";
}

TEST_F(EngineTest, countsNothingWhileItIsHaltedWhoeverHasTheTimerOn)
{
    entries({u"a.wav"_qs, u"b.txt"_qs});
    engine.PlayIt();
    tickAt(59'950);
    engine.NextTrack();
    tickAt(59'950);
    tickAt(59'950);
    EXPECT_EQ(list.CurTrack(), 2);
    EXPECT_EQ(engine.PlayPosMs(), 59'950);
}

TEST_F(EngineTest, leavesAnEntryAloneThatIsStartedWhileAnErrorIsRead)
{
    entries({u"a.wav"_qs, u"b.wav"_qs, u"c.jpg"_qs, u"d.wav"_qs});
    engine.StopAfterTrack = true;
    engine.PlayIt();
    devices[0].errorNumber = MediaError::kDamaged;
    face.whileReading = [&] {
        devices[0].errorNumber = 0;
        engine.NextTrack();
        EXPECT_EQ(engine.DeviceType(), u"Delay"_qs);
        devices[0].taken();
        engine.NextTrack();
        EXPECT_TRUE(devices[0].taken().contains(u"play"_qs)) << "it is not one that is cued";
        engine.PrevTrack();
    };
    tickAt(60'000);
    EXPECT_EQ(engine.DeviceType(), u"Delay"_qs);
}

TEST_F(EngineTest, stopsAtTheEndWhenItsListWasEmptied)
{
    entries({u"a.wav"_qs});
    engine.PlayIt();
    list.PlClear();
    tickAt(59'000);
    EXPECT_TRUE(engine.IsPlaying());
    tickAt(60'000);
    EXPECT_FALSE(engine.IsPlaying());
    EXPECT_EQ(list.CurTrack(), 1);
}

TEST_F(EngineTest, repeatsBetweenAAndB)
{
    entries({u"a.wav"_qs});
    engine.PlayIt();
    tickAt(5000);
    engine.pressAB();
    tickAt(9000);
    engine.pressAB();
    devices[0].taken();
    tickAt(9000);
    EXPECT_EQ(devices[0].taken(), (QStringList{u"stop"_qs, u"from 5000"_qs, u"Play"_qs}));
    engine.pressAB();
    tickAt(9000);
    EXPECT_TRUE(devices[0].notes.isEmpty()) << "both points are cleared";
    face.buttonB = true;
    engine.pressAB();
    tickAt(12'000);
    engine.setLoopEnd();
    EXPECT_EQ(engine.loop(), (LoopPoints{9000, 12'000}));
    engine.PlayIt();
    EXPECT_EQ(engine.loop(), LoopPoints{}) << "of one entry only";
}

TEST_F(EngineTest, handsAModuleOverAndNeverWaitsForEver)
{
    entries({u"a.mod"_qs});
    devices[0].positionMs = 5;
    engine.PlayIt();
    EXPECT_EQ(face.handedOver, 1);
    EXPECT_EQ(devices[0].deviceType, u"M4W_MCI"_qs);
    devices[0].positionMs = 0; // a device that does not move
    const auto begin = std::chrono::steady_clock::now();
    engine.PlayIt();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    EXPECT_EQ(face.handedOver, 2);
    EXPECT_TRUE(engine.IsPlaying());
}

TEST_F(EngineTest, endsAnIntroAfterTenSeconds)
{
    entries({u"a.wav"_qs, u"b.wav"_qs});
    engine.IntroMode = true;
    engine.PlayIt();
    tickAt(10'000);
    EXPECT_EQ(list.CurTrack(), 1);
    tickAt(10'001);
    EXPECT_EQ(list.CurTrack(), 2);
}

TEST_F(EngineTest, refusesAnEntryNumberBeyondItsRange)
{
    entries({u"a.wav"_qs});
    list.setCurTrack(32767);
    EXPECT_THROW(engine.NextTrack(), RunTimeError);
}

TEST_F(EngineTest, endsAtTheLastEntryOfAFullList)
{
    entries({u"a.wav"_qs});
    const PlaylistEntry entry = list.entries()[0];
    {
        const Playlist::Batch batch(list);
        while (list.add(entry.name, entry.path))
            continue;
    }
    EXPECT_EQ(list.count(), 32'766);
    list.setCurTrack(32'766);
    engine.PlayIt();
    tickAt(60'000);
    EXPECT_FALSE(engine.IsPlaying());
}
