// An error of the run time has a number, which the whole field of old desktop programs knew by heart, and a
// text.
#pragma once

#include "base/errornumbers.h"

#include <QString>

#include <exception>

class RunTimeError : public std::exception {
public:
    RunTimeError(int number, QString text);
    // Takes the usual text of that number.
    explicit RunTimeError(ErrorNumber number);
    RunTimeError(ErrorNumber number, const QString& detail);

    int number() const { return m_number; }
    const QString& text() const { return m_text; }
    // Says in a sentence what a person can do about this error; it is empty where nothing better than the
    // usual is known.
    const QString& advice() const { return m_advice; }
    RunTimeError withAdvice(QString sentence) const;
    const char* what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_text;
    QString m_advice;
    QByteArray m_what;
};

// The program has no trap for such an error and stops after it with status 1.
class StoppingError : public RunTimeError {
public:
    explicit StoppingError(const RunTimeError& cause) : RunTimeError(cause) {}
};

// Runs the steps in order and goes on with the next when one raises a RunTimeError.
template <typename... Steps>
void resumeNext(Steps&&... steps)
{
    const auto tryOne = [](auto&& step) {
        try {
            step();
        } catch (const RunTimeError&) { // ignored by request of the caller
        }
    };
    (tryOne(steps), ...);
}

// Runs the step; an error in it is one that stops the program.
template <typename Step>
void stopOnError(Step&& step)
{
    try {
        step();
    } catch (const RunTimeError& error) {
        throw StoppingError(error);
    }
}
