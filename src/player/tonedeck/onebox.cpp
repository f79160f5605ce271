#include "player/tonedeck/onebox.h"

#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/program.h"
#include "player/tonedeck/playerwindow.h"

#include <QScopeGuard>

#include <utility>

void OneBox::tell(const QString& text)
{
    m_untold = text;
    if (std::exchange(m_telling, true))
        return;
    const auto end = qScopeGuard([this] { m_telling = false; });
    while (!m_untold.isEmpty() && !m_window.isClosing())
        m_platform.dialogs.message(
            {.text = std::exchange(m_untold, {}), .title = m_platform.program.title()});
}
