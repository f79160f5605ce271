// Has the engine over real devices: a list of short media on drive D:, a timer as the player's window has it,
// and a tape.
#pragma once

#include "player/playback/playbackengine.h"
#include "player/playback/playersettings.h"
#include "system/media/gstmediaelement.h"
#include "tests/player/playback/notingview.h"
#include "tests/player/playback/tape.h"
#include "tests/support/world.h"

#include <gtest/gtest.h>

#include <QTimer>

#include <functional>

class TickingFace : public NotingFace {
public:
    TickingFace();
    void enableTimer1(bool on) override;
    bool yield() override;

    QTimer timer1;
};

// How late a tick may come beside what else this machine does; the rest of the time until the next entry is
// heard goes into its opening.
constexpr double kLatest = 150;

struct PlaybackTest : testing::Test {
    PlaybackTest();
    ~PlaybackTest() override;

    // Puts a file onto drive D: and into the list.
    void add(const QString& name, const QByteArray& content);
    // Adds entries with sound of their own, named by their numbers: "1.wav".
    void addCounters(int entries, int milliseconds);

    // Runs the event loop, with its ticks, until it holds; returns false when it takes longer.
    bool goesOnUntil(const std::function<bool()>& holds, int atMost);
    void goOn(int milliseconds);
    bool hears(int entry, int atMost = 1000); // from where it is now
    bool comesTo(qint32 position, int atMost);
    bool stops(int atMost); // not playing
    bool isSilent();        // nothing comes any more
    double timeOf(const std::function<void()>& work);

    World world;
    Tape tape;
    PlayerSettings settings;
    Playlist list;
    TickingFace face;
    GstMediaElement devices[2]{GstMediaElement(world.drives), GstMediaElement(world.drives)};
    PlaybackEngine engine{
        list,
        face,
        {world.context.platform, world.fileNumbers, world.codePage, settings, {&devices[0], &devices[1]}}};
};

// Tells whether it was heard once, from its first frame to its last, none lost and none twice.
testing::AssertionResult isWhole(const std::vector<Stretch>& runs, int milliseconds);

void PrintTo(const Stretch& run, std::ostream* out);
