#include "system/media/silentmedia.h"

// On a closed device, which this one stays, all other commands do nothing.
void SilentMediaElement::send(const QString& command)
{
    const bool opens = command.compare(u"open", Qt::CaseInsensitive) == 0 && m_deviceType != u"Delay";
    m_error = opens ? MediaError{MediaError::kNoDriver, m_reason} : MediaError{};
}
