// Measures the player's face: loading skins, outlines, one display's change, a full repaint at three times
// the size.
#include "bench/support/bench_world.h"
#include "bench/support/measure.h"
#include "player/face/facecanvas.h"
#include "player/playback/playersettings.h"
#include "player/skin/outline.h"
#include "player/tonedeck/frmtonedeck.h"
#include "system/media/silentmedia.h"
#include "tests/support/fakemodulewindow.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>

#include <cmath>
#include <cstdio>
#include <fstream>

namespace {

constexpr int kRounds = 7;
constexpr int kManyLines = 10'000;

// Paints what waits to be painted, now: by itself the window would wait for the screen.
void paint(QWidget& window)
{
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&window, &request);
}

// Ends the program when a round did not paint as often as it was to.
class Paints : public QObject {
public:
    explicit Paints(QWidget* watched) { watched->installEventFilter(this); }

    void expect(int times)
    {
        if (m_count != times)
            endWith("painted " + std::to_string(m_count) + " times");
        m_count = 0;
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int m_count = 0;
};

// Returns the lines of a skin that an artist's tool made: all elements once, an outline of thousands of
// points, comments.
void writeManyLines(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    QByteArray text = "Tonedeck Skin, many lines\n520,416\n520,416\n520,416\nmany.png,many.png\n"
                      "1,0,0,0,0,0,0,0\n";
    for (int n = 1; n <= 50; ++n)
        text += "B" + QByteArray::number(n) + ",10,10,20,20,30,40,K,\"A tool tip, with a comma\"" +
                (n >= 49 ? ",other.skin\n" : "\n");
    for (int n = 1; n <= 20; ++n)
        text += "L" + QByteArray::number(n) + ",10,10,90,20,200,210,220,9,Sans Serif,Label\n";
    for (int n = 1; n <= 6; ++n)
        text += "D" + QByteArray::number(n) + ",10,40,0,0,9,13,4,0,1,3,Display\n";
    const int points = kManyLines - static_cast<int>(text.count('\n')) - 1002;
    text += "N" + QByteArray::number(points) + "\n";
    for (int i = 0; i < points; ++i) {
        const double angle = 2 * M_PI * i / points;
        text += "P" + QByteArray::number(static_cast<int>(260 + 259 * std::cos(angle))) + "," +
                QByteArray::number(static_cast<int>(208 + 207 * std::sin(angle))) + "\n";
    }
    for (int i = 0; i < 1000; ++i)
        text += "; a comment, as artists write them between their lines\n";
    file.write(text + "E\n");
    QImage dot(1, 1, QImage::Format_RGB32);
    dot.fill(Qt::black);
    dot.save(QFileInfo(path).path() + QStringLiteral("/many.png"));
}

// Draws a star with round rays, as tracing a picture gives it.
std::vector<QPoint> star(int points)
{
    std::vector<QPoint> polygon;
    for (int i = 0; i < points; ++i) {
        const double angle = 2 * M_PI * i / points;
        const double radius = 800 + 160 * std::sin(40 * angle);
        polygon.emplace_back(static_cast<int>(1024 + radius * std::cos(angle)),
                             static_cast<int>(1024 + radius * std::sin(angle)));
    }
    return polygon;
}

void outlines()
{
    const std::vector<QPoint> polygon = star(10'000);
    const QPolygon same(QList<QPoint>(polygon.begin(), polygon.end()));
    const auto ours = [&] {
        if (outlineRectangles({polygon}, {2048, 2048}).empty())
            std::exit(1);
    };
    const auto rival = [&] {
        if (QRegion(same, Qt::OddEvenFill).isEmpty())
            std::exit(1);
    };
    report("the rectangles of an outline of 10,000 points", "QRegion of the same polygon",
           best(
               kRounds, [&] { return milliseconds(ours); }, [&] { return milliseconds(rival); }));
}

double readLines(const QString& path)
{
    return milliseconds([&path] {
        std::ifstream file(path.toStdString());
        std::string line;
        std::size_t sum = 0;
        while (std::getline(file, line))
            sum += line.size();
        if (sum == 0)
            std::exit(1);
    });
}

QStringList bitmapsOf(const QString& skin)
{
    QFile file(skin);
    file.open(QIODevice::ReadOnly);
    const QList<QByteArray> lines = file.readAll().split('\n');
    QStringList paths;
    for (const QByteArray& name : lines.value(4).trimmed().split(','))
        paths += QFileInfo(skin).path() + u'/' + QString::fromUtf8(name.trimmed());
    return paths;
}

QString largestSkin(const QString& directory)
{
    QString largest;
    qint64 most = 0;
    for (const QFileInfo& skin : QDir(directory).entryInfoList({QStringLiteral("*.skin")})) {
        qint64 pixels = 0;
        for (const QString& bitmap : bitmapsOf(skin.filePath()))
            if (const QImage image(bitmap); !image.isNull())
                pixels += qint64(image.width()) * image.height();
        if (pixels > most) {
            most = pixels;
            largest = skin.filePath();
        }
    }
    return largest;
}

struct OnePixmap : QWidget {
    QPixmap pixmap;

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, pixmap); }
};

struct Bench {
    BenchWorld world;
    PlayerSettings settings{};
    SilentMediaMachine media{QStringLiteral("nothing is played here")};
    FakeModuleWindow moduleWindow{};
    PlayerContext context{
        world.context.platform, world.fileNumbers, settings, world.codePage, media, moduleWindow};
    frmTonedeck window{context};

    explicit Bench(const std::string& work, const std::string& skins) : world(work, skins) {}

    void load(const QString& path) { window.LoadSkin(path, true); }

    void loading(const QString& skin)
    {
        const QString name = QStringLiteral("D:\\") + QFileInfo(skin).fileName();
        report(QStringLiteral("load the largest shipped skin (%1)")
                   .arg(QFileInfo(skin).fileName())
                   .toStdString(),
               "loading its bitmaps with QImage alone",
               best(
                   kRounds, [&] { return milliseconds([&] { load(name); }); },
                   [&] {
                       return milliseconds([&] {
                           for (const QString& bitmap : bitmapsOf(skin))
                               if (QImage(bitmap).isNull())
                                   std::exit(1);
                       });
                   }));
    }

    void manyLines(const QString& file)
    {
        const QString name = QStringLiteral("D:\\") + QFileInfo(file).fileName();
        report(
            "load a skin of 10,000 lines", "reading its lines with std::getline",
            best(
                kRounds, [&] { return milliseconds([&] { load(name); }); }, [&] { return readLines(file); }));
    }

    void painting()
    {
        window.show();
        QCoreApplication::processEvents();
        QWidget& face = *window.centralWidget();
        Paints paints(&face);
        int second = 0;
        const auto change = [&] {
            return rounds(window, paints,
                          [&] { window.SetDD(DisplayItem::Time, static_cast<double>(++second)); });
        };
        const auto full = [&] { return rounds(window, paints, [&] { face.update(); }); };
        report("one change of the time display, painted, at 3x scale, 500 times",
               "a full repaint of the window", best(kRounds, change, full));

        OnePixmap rival;
        rival.setAttribute(Qt::WA_OpaquePaintEvent);
        rival.setFixedSize(window.size());
        rival.setMask(window.mask());
        const qreal scale = rival.devicePixelRatioF();
        rival.pixmap = QPixmap::fromImage(window.face().scaled(window.face().size() * scale));
        rival.pixmap.setDevicePixelRatio(scale);
        rival.show();
        QCoreApplication::processEvents();
        Paints rivals(&rival);
        report("a full repaint of the window at 3x scale, 500 times", "drawing one pixmap of that size",
               best(kRounds, full, [&] { return rounds(rival, rivals, [&] { rival.update(); }); }));
    }

    double rounds(QWidget& top, Paints& paints, const std::function<void()>& step)
    {
        constexpr int kTimes = 500;
        const double time = milliseconds([&] {
            for (int i = 0; i < kTimes; ++i) {
                step();
                paint(top);
            }
        });
        paints.expect(kTimes);
        return time;
    }
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_SCALE_FACTOR", "3");
    QApplication application(argc, argv);
    const std::string work = argc > 1 ? argv[1] : "build/bench";
    const QString skins =
        QFileInfo(QCoreApplication::applicationDirPath() + QStringLiteral("/../Songbin")).canonicalFilePath();
    const QString many = skins + QStringLiteral("/many.skin");
    const QString largest = largestSkin(skins);
    Bench bench(work, skins.toStdString());
    bench.loading(largest);
    writeManyLines(many);
    bench.manyLines(many);
    outlines();
    QFile::remove(many);
    QFile::remove(skins + QStringLiteral("/many.png"));
    bench.load(QStringLiteral("D:\\default.skin"));
    bench.painting();
    return 0;
}
