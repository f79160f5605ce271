// Makes the desktop's player controls over its session bus, by the MPRIS 2 interfaces: panels, media keys and
// remote controls find the player there.
#pragma once

#include "platform/desktopcontrols.h"

// Never waits for the bus, and does nothing while there is none. What the desktop asks is answered at once
// and reaches the player later, so the player may destroy the controls in any of its functions but `report`.
// The player must outlive them.
std::unique_ptr<DesktopControls> makeMprisControls(ControlledPlayer& player);
