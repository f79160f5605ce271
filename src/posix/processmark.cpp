#include "posix/processmark.h"

#include <QFile>
#include <QList>

#include <unistd.h>

namespace {

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Tells when the process with that number was started, in ticks since the machine's start; it is empty when
// there is none.
QByteArray startOf(const QByteArray& number)
{
    constexpr int kStart = 19; // fields behind the name, which may itself hold blanks and brackets
    const QByteArray line = content(QStringLiteral("/proc/%1/stat").arg(QString::fromLatin1(number)));
    return line.mid(line.lastIndexOf(')') + 2).split(' ').value(kStart);
}

QByteArray markOf(const QByteArray& number)
{
    const QByteArray start = startOf(number);
    const QByteArray machineStart = content(QStringLiteral("/proc/sys/kernel/random/boot_id")).trimmed();
    return start.isEmpty() ? QByteArray() : number + '-' + start + '-' + machineStart;
}

} // namespace

QByteArray processmark::own()
{
    return markOf(QByteArray::number(getpid()));
}

bool processmark::isRunning(const QByteArray& mark)
{
    const QByteArray number = mark.left(mark.indexOf('-'));
    bool isNumber = false;
    return number.toInt(&isNumber) > 0 && isNumber && markOf(number) == mark;
}
