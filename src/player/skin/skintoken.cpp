#include "player/skin/skintoken.h"

#include <algorithm>
#include <limits>

int SkinToken::number() const
{
    const auto end = m_text.cend();
    auto at =
        std::find_if(m_text.cbegin() + (m_text.isEmpty() ? 0 : 1), end, [](QChar c) { return c != u' '; });
    const bool negative = at != end && *at == u'-';
    if (negative || (at != end && *at == u'+'))
        ++at;
    qint64 value = 0;
    for (; at != end && *at >= u'0' && *at <= u'9'; ++at)
        if (value <= std::numeric_limits<int>::max()) // further digits make it no smaller
            value = value * 10 + (at->unicode() - u'0');
    return static_cast<int>(std::clamp<qint64>(negative ? -value : value, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}
