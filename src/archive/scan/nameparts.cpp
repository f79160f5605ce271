#include "archive/scan/nameparts.h"

NameParts partsOfName(const QString& fileName)
{
    const qsizetype dash = fileName.indexOf(u'-');
    if (dash < 0)
        return {fileName, fileName};
    return {fileName.left(dash).replace(u'_', u' '), fileName.mid(dash + 1).replace(u'_', u' ')};
}
