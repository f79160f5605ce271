#include "archive/mainwindow/tips.h"

#include "base/codepage.h"
#include "base/textrules.h"
#include "platform/files.h"

std::optional<QStringList> readTips(Files& files, const QString& file, const CodePage& codePage)
{
    if (file.isEmpty() || !files.exists(file))
        return {};
    return textrules::lines(textOfBytes(files.read(file), codePage));
}

int tipIndex(double random, int tips)
{
    return static_cast<int>(random * tips + 1);
}
