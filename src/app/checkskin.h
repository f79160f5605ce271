// `Songbin --check-skin FILE` tells what is wrong with a skin, and draws it.
#pragma once

#include <QString>

struct PlayerContext;

// FILE may be a set of pictures as well: an archive, or its main picture. It is worn by the skin for sets
// then, and what it lacks counts as found.
//
// Loads the skin into a window that is never shown. Findings go to standard output, one a line, as
// "FILE:LINE: text"; the picture of the window, clear outside its outline, goes into the current directory as
// "<name>-preview.png". The exit status is 0 when nothing was found, 1 when something was, 2 when there is no
// skin to check or the picture cannot be written.
//
// The context's dialogs are not used: what would be asked is answered by the file's own proposal.
int checkSkin(const PlayerContext& context, const QString& file);
