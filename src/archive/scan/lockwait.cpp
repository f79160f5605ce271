#include "archive/scan/lockwait.h"

#include "archive/scan/importview.h"
#include "platform/program.h"

namespace {

using namespace std::chrono_literals;

constexpr auto kInAll = 10s;
constexpr auto kEnding = 1s;    // what waits for the program's end is a session's end, too
constexpr auto kUntold = 300ms; // what others do in passing is not worth a word

QString waitingText(std::chrono::steady_clock::duration left)
{
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(left).count();
    return QStringLiteral("Another program is using the archive: waiting for it, at most %1 more.")
        .arg(seconds == 1 ? QStringLiteral("one second") : QStringLiteral("%1 seconds").arg(seconds));
}

} // namespace

bool LockWait::goOn(Clock::time_point begin)
{
    m_waited = true;
    const Clock::duration waited = Clock::now() - begin;
    const Clock::duration left = kInAll - m_before - waited;
    if (left <= 0s || (m_program.ending() && waited > kEnding)) {
        m_before = kInAll;
        show({});
        return false;
    }
    if (m_program.ending())
        return true;
    if (waited >= kUntold)
        show(waitingText(left));
    m_program.yield();
    return true;
}

void LockWait::end(Clock::time_point begin)
{
    if (m_waited)
        m_before += Clock::now() - begin;
    m_waited = false;
    show({});
}

void LockWait::show(const QString& text)
{
    if (text == m_shown)
        return;
    m_shown = text;
    m_view.setWaiting(text);
}
