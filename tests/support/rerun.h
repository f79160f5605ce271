// Runs one test of this very program in a process of its own, for what must be settled before an application
// starts: the platform, the printing system, the desktop's directories. Such a test bears "DISABLED_" so that
// it runs only so.
#pragma once

#include <QCoreApplication>
#include <QProcess>

struct Rerun {
    Rerun(const char* test, const QProcessEnvironment& environment)
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("--gtest_also_run_disabled_tests"),
                       QStringLiteral("--gtest_filter=") + QString::fromUtf8(test)});
        if (!process.waitForFinished(60000)) {
            process.kill();
            process.waitForFinished();
        }
        output = process.readAll();
        // A filter that names no test would pass too.
        passed = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
                 output.contains("[  PASSED  ] 1 test.");
    }

    bool passed;
    QByteArray output;
};
