// make_skins DIRECTORY: draws the skins that are shipped beside the program.
#include "bitmaps.h"
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
    const bool done = bitmaps.face.save(name + u"-face.png"_qs, "PNG") &&
                      bitmaps.parts.save(name + u"-parts.png"_qs, "PNG") &&
                      save(name + u".skin"_qs, controlFile(design, bitmaps));
    if (!done)
        std::fprintf(stderr, "make_skins: cannot write %s\n", qPrintable(name));
    return done;
}

} // namespace

int main(int argc, char* argv[])
{
    // No application object: without a screen and without fonts the pictures are the same on every machine.
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "usage: make_skins DIRECTORY\n");
        return 2;
    }
    const QString directory = QString::fromLocal8Bit(argv[1]);
    bool done = true;
    for (const Design& design :
         {defaultDesign(), compactDesign(), lightDesign(), darkDesign(), largeDesign()})
        done = make(design, directory) && done;
    return done ? 0 : 1;
}
