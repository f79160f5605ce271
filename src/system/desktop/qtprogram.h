#pragma once

#include "platform/program.h"

#include <random>

class QtProgram : public Program {
public:
    struct Identity {
        QString title;
        QString version;
        QString executableName;
    };

    QtProgram(QString directory, Identity identity);

    void yield() override;
    void end(int status) override;
    bool ending() const override { return m_ending; }
    int status() const { return m_status; }

    QString directory() const override { return m_directory; }
    QString title() const override { return m_identity.title; }
    QString version() const override { return m_identity.version; }
    QString executableName() const override { return m_identity.executableName; }

    double secondsSinceMidnight() const override;
    void randomize() override;
    double random() override;

    QByteArray ownMark() const override;
    bool isRunning(const QByteArray& mark) const override;

    void setBusyPointer(bool busy) override;
    void beep() override;

private:
    QString m_directory;
    Identity m_identity;
    std::minstd_rand m_generator;
    bool m_ending = false;
    int m_status = 0;
    bool m_busyPointer = false;
};
