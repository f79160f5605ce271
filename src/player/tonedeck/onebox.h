// Errors are told one at a time: the desktop's keys get through to a window that tells something, and each of
// them may be answered with another error.
#pragma once

#include <QString>

class PlayerWindow;
struct Platform;

class OneBox {
public:
    OneBox(const Platform& platform, const PlayerWindow& window) : m_platform(platform), m_window(window) {}

    // While a box is open nothing more is shown; of the texts that come meanwhile the last one is told then.
    void tell(const QString& text);

private:
    const Platform& m_platform;
    const PlayerWindow& m_window;
    QString m_untold{};     // for the next box
    bool m_telling = false; // a box is open
};
