#include "platform/modulewindow.h"

bool bringToFront(const QString&)
{
    return false;
}

void typeBlank() {}
