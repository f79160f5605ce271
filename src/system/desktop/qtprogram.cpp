#include "system/desktop/qtprogram.h"

#include "posix/processmark.h"

#include <QApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QTime>

#include <chrono>

QtProgram::QtProgram(QString directory, Identity identity)
    : m_directory(std::move(directory)), m_identity(std::move(identity))
{
}

void QtProgram::yield()
{
    QCoreApplication::processEvents();
}

void QtProgram::end(int status)
{
    if (!m_ending)
        m_status = status;
    m_ending = true;
    // It is not quit(), which would send every window a close event and so run its unload code.
    QCoreApplication::exit(m_status);
}

double QtProgram::secondsSinceMidnight() const
{
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

void QtProgram::randomize()
{
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    m_generator.seed(static_cast<std::minstd_rand::result_type>(ticks));
    m_generator.discard(8);
}

double QtProgram::random()
{
    return std::uniform_real_distribution<double>(0.0, 1.0)(m_generator);
}

QByteArray QtProgram::ownMark() const
{
    return processmark::own();
}

bool QtProgram::isRunning(const QByteArray& mark) const
{
    return processmark::isRunning(mark);
}

void QtProgram::setBusyPointer(bool busy)
{
    if (busy == m_busyPointer)
        return;
    m_busyPointer = busy;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void QtProgram::beep()
{
    QApplication::beep();
}
