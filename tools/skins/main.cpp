// Draws the skins that are shipped beside the program: make_skins DIRECTORY.
#include "bitmaps.h"
#include "classic.h"
#include "controlfile.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

bool save(const QString& path, const QByteArray& text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush();
}

bool make(const Design& design, const QString& directory)
{
    const Bitmaps bitmaps = drawBitmaps(design);
    const QString name = directory + u'/' + design.file;
    return bitmaps.face.save(name + u"-face.png"_qs, "PNG") &&
           bitmaps.parts.save(name + u"-parts.png"_qs, "PNG") &&
           save(name + u".skin"_qs, controlFile(design, bitmaps));
}

bool makeAll(const QString& directory)
{
    bool done = QDir().mkpath(directory);
    for (const Design& design :
         {defaultDesign(), compactDesign(), lightDesign(), darkDesign(), largeDesign()})
        done = make(design, directory) && done;
    done = save(directory + u"/classic.skin"_qs, classicControlFile()) && done;
    return QDir().mkpath(directory + u"/classic"_qs) && saveClassicSet(directory + u"/classic"_qs) && done;
}

} // namespace

// No application object: without a screen and without fonts the pictures are the same on every machine.
int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_skins DIRECTORY\n");
        return 2;
    }
    if (makeAll(QString::fromLocal8Bit(argv[1])))
        return 0;
    std::fprintf(stderr, "make_skins: cannot write all files to %s\n", argv[1]);
    return 1;
}
