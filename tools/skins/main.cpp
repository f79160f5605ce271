// make_skins DIRECTORY: draws the skins that are shipped beside the program.
// make_skins --classic-set bmp|png DIRECTORY: only the pictures that classic.skin wears.
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

bool makeClassicSet(const QString& directory, const QString& format)
{
    return QDir().mkpath(directory) && saveClassicSet(directory, format);
}

bool makeAll(const QString& directory)
{
    bool done = QDir().mkpath(directory);
    for (const Design& design :
         {defaultDesign(), compactDesign(), lightDesign(), darkDesign(), largeDesign()})
        done = make(design, directory) && done;
    done = save(directory + u"/classic.skin"_qs, classicControlFile()) && done;
    return makeClassicSet(directory + u"/classic"_qs, u"bmp"_qs) && done;
}

} // namespace

// No application object: without a screen and without fonts the pictures are the same on every machine.
int main(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const bool set = arguments.size() == 3 && arguments[0] == u"--classic-set" &&
                     (arguments[1] == u"bmp" || arguments[1] == u"png");
    if (!set && arguments.size() != 1) {
        std::fprintf(stderr, "usage: make_skins [--classic-set bmp|png] DIRECTORY\n");
        return 2;
    }
    const QString directory = arguments.constLast();
    if (set ? makeClassicSet(directory, arguments[1]) : makeAll(directory))
        return 0;
    std::fprintf(stderr, "make_skins: cannot write all files to %s\n", qPrintable(directory));
    return 1;
}
