// Takes any file as a bitmap of a skin: it gives none, or one within the limits of a format that painting
// knows.
#include "player/bitmaps/skinbitmap.h"
#include "tests/fuzz/demand.h"

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // The readers of the toolkit are plug-ins, and tell of each damage.
    static int argumentCount = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    static const QCoreApplication application(argumentCount, arguments);
    static const auto quiet =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static_cast<void>(quiet);

    const auto image =
        skinBitmapOf(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    if (!image)
        return 0;
    demand(image->width() >= 1 && image->width() <= kMostBitmapSide, "a width within the limits");
    demand(image->height() >= 1 && image->height() <= kMostBitmapSide, "a height within the limits");
    demand(qint64{image->width()} * image->height() <= kMostBitmapPixels, "pixels within the limits");
    demand(image->format() == QImage::Format_RGB32 || image->format() == QImage::Format_ARGB32_Premultiplied,
           "a format that painting knows");
    demand(image->devicePixelRatio() == 1, "a pixel ratio of one");
    return 0;
}
