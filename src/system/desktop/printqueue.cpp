#include "system/desktop/printqueue.h"

#include "base/runtimeerror.h"

#include <QProcess>
#include <QRegularExpression>

namespace {

constexpr int kPause = 40; // milliseconds

// The value of an option may hold blanks and quotes.
QString quoted(QString value)
{
    value.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    return u'"' + value + u'"';
}

// What the command says begins with its own name.
RunTimeError refusal(QProcess& process)
{
    static const QRegularExpression name(QStringLiteral("^\\S*lp: (Error - )?"));
    const QString said = QString::fromLocal8Bit(process.readAllStandardError()).remove(name).trimmed();
    return said.isEmpty() ? RunTimeError(ErrorNumber::PrinterError)
                          : RunTimeError(ErrorNumber::PrinterError, said);
}

} // namespace

QStringList printqueue::command(const PrintChoice& choice, const QString& file)
{
    const QString option = QStringLiteral("-o");
    QStringList words{QStringLiteral("-d"),           choice.printer,       QStringLiteral("-n"),
                      QString::number(choice.copies), QStringLiteral("-t"), choice.title};
    words << option << QStringLiteral("media=") + choice.layout.pageSize().key();
    if (choice.layout.orientation() == QPageLayout::Landscape)
        words << option << QStringLiteral("landscape");
    if (choice.copies > 1 && choice.isCollated)
        words << option << QStringLiteral("Collate=True");
    for (qsizetype i = 0; i + 1 < choice.options.size(); i += 2)
        words << option << choice.options[i] + u'=' + quoted(choice.options[i + 1]);
    return words << QStringLiteral("--") << file;
}

bool printqueue::submit(const PrintChoice& choice, const QString& file, const std::function<bool()>& goesOn)
{
    QProcess process;
    process.start(QStringLiteral("lp"), command(choice, file));
    while (!process.waitForFinished(kPause)) {
        if (process.state() == QProcess::NotRunning) // it never started
            throw refusal(process);
        if (goesOn())
            continue;
        process.kill();
        process.waitForFinished();
        return false;
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw refusal(process);
    return true;
}
