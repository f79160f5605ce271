#include "player/skin/skinelements.h"

QString TipText(const QString& text)
{
    return text.startsWith(QLatin1Char('~')) ? QString() : text;
}
