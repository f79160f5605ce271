// Has the player's window on a temporary platform, with a small skin whose every pixel tells where it is.
#pragma once

#include "player/face/facecanvas.h"
#include "player/playback/playercontext.h"
#include "player/playback/playersettings.h"
#include "player/tonedeck/frmtonedeck.h"
#include "tests/support/fakemedia.h"
#include "tests/support/fakemodulewindow.h"
#include "tests/support/world.h"

#include <QCoreApplication>
#include <QImage>

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <functional>
#include <memory>

// What this program alone has had of the processor: whatever else the machine does counts nothing.
class ProcessorTime {
public:
    double seconds() const { return static_cast<double>(std::clock() - m_begin) / CLOCKS_PER_SEC; }

private:
    std::clock_t m_begin = std::clock();
};

// It counts seconds of the processor, midway: a name of millions of characters takes 0.03 s, and 5 s laid out
// whole.
constexpr double kLayingOutMillions = 2.5;

struct TonedeckTest : testing::Test {
    static constexpr QSize kFace{120, 80};
    static constexpr QSize kParts{200, 100};

    World world;
    PlayerSettings settings;
    FakeMediaMachine media;
    FakeModuleWindow moduleWindow;
    PlayerContext context{
        world.context.platform,   world.fileNumbers, settings, world.codePage, media, moduleWindow, {},
        world.user.data + "/sets"};
    // It stands still unless a test lets time pass, however busy the machine is.
    std::chrono::steady_clock::time_point moment = std::chrono::steady_clock::now();
    std::unique_ptr<frmTonedeck> owned;

    TonedeckTest()
    {
        // Red and green tell the column and the row, blue the picture.
        write(u"face.bmp"_qs, counted(kFace, 10));
        write(u"parts.bmp"_qs, counted(kParts, 200));
        world.program.onYield = [] { QCoreApplication::processEvents(); };
    }
    ~TonedeckTest() override
    {
        owned.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QImage counted(QSize size, int blue)
    {
        QImage image(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                image.setPixel(x, y, qRgb(x, y, blue));
        return image;
    }
    static QRgb facePixel(int x, int y) { return qRgb(x, y, 10); }
    static QRgb partPixel(int x, int y) { return qRgb(x, y, 200); }

    void write(const QString& name, const QImage& image)
    {
        ASSERT_TRUE(image.save(QString::fromLocal8Bit(world.directory.at("program/")) + name));
    }
    // Writes a skin beside the program: the lines of its header and these.
    void writeSkin(const QByteArray& lines, const QByteArray& name = "default.skin",
                   const QByteArray& options = "0,0,0,0,0,0,0,0")
    {
        world.directory.write("program/" + name,
                              "Tonedeck Skin, a test\n120,80\n60,40\n120,30\nface.bmp,parts.bmp\n" + options +
                                  "\n" + lines + "E\n");
    }

    frmTonedeck& window()
    {
        if (!owned) {
            owned = std::make_unique<frmTonedeck>(context);
            owned->moment = [this] { return moment; };
        }
        return *owned;
    }
    frmTonedeck& loaded()
    {
        window().load();
        return window();
    }
    void unload()
    {
        owned.release()->unload(); // deletes itself
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void store(const QString& key, const QString& value)
    {
        world.settings.save(u"tonedeckpro"_qs, u"config"_qs, key, value);
    }
    QString stored(const QString& key)
    {
        return world.settings.get(u"tonedeckpro"_qs, u"config"_qs, key, u"(absent)"_qs);
    }

    void pass(std::chrono::milliseconds time) { moment += time; }
    QRgb pixel(int x, int y) { return window().face().pixel(x, y); }
};
