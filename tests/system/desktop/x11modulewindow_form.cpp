// Runs on a desktop that is no X server.
#include "system/desktop/x11modulewindow.h"

#include <gtest/gtest.h>

TEST(X11ModuleWindow, isNotThereForAnApplicationWithoutX)
{
    X11ModuleWindow modules;
    EXPECT_FALSE(modules.bringToFront(u"MOD"_qs));
    modules.typeBlank({77});
}
