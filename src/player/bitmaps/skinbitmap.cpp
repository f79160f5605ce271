#include "player/bitmaps/skinbitmap.h"

#include "base/runtimeerror.h"
#include "platform/filenumbers.h"
#include "player/bitmaps/barepictures.h"
#include "player/bitmaps/bmpbitmap.h"
#include "player/bitmaps/gifbitmap.h"

#include <QBuffer>
#include <QImageReader>

namespace {

// Asks the toolkit's reader for one format alone: it would also take drawings and what else it has readers
// for.
std::optional<QImage> readBare(std::optional<BarePicture> bare, const QByteArray& format)
{
    if (!bare)
        return {};
    QBuffer buffer(&bare->content);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    QImage image = reader.read();
    if (image.size() != bare->size) // null too
        return {};
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    return image.isNull() ? std::nullopt : std::optional(std::move(image));
}

QByteArray contentOf(FileNumbers& numbers, const QString& path)
{
    const int number = numbers.freeFile();
    QByteArray content;
    resumeNext(
        [&] {
            numbers.openBinary(number, path);
            if (const qint64 length = numbers.length(number); length <= kMostBitmapBytes)
                content = numbers.get(number, 1, static_cast<int>(length));
        },
        [&] { numbers.close(number); });
    return content;
}

} // namespace

std::optional<QImage> skinBitmapOf(const QByteArray& content)
{
    if (content.size() > kMostBitmapBytes)
        return {};
    if (content.startsWith("BM"))
        return bmpBitmap(content);
    if (content.startsWith("GIF87a") || content.startsWith("GIF89a"))
        return gifBitmap(content);
    if (content.startsWith("\xff\xd8"))
        return readBare(bareJpeg(content), "jpeg");
    if (content.startsWith("\x89PNG\r\n\x1a\n"))
        return readBare(barePng(content), "png");
    return {};
}

std::optional<QImage> loadSkinBitmap(FileNumbers& numbers, const QString& path)
{
    std::optional<QImage> image;
    resumeNext([&] { image = skinBitmapOf(contentOf(numbers, path)); });
    return image;
}
