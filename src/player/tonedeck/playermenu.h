// Fills the player's menu with every command, by what it is about.
#pragma once

class QMenu;
struct Parts;

// It is filled anew each time: which commands are on, and which there are, changes.
void fillPlayerMenu(QMenu& menu, const Parts& parts);
