// The player's menu: every command, by what it is about.
#pragma once

class QMenu;
class frmTonedeck;

// Anew: which commands are on, and which there are, changes.
void fillPlayerMenu(QMenu& menu, frmTonedeck& player);
