// What the player keeps beside the program from one run to the next: the playlist and the automatic list.
#pragma once

#include "player/playlistfile.h"

#include <QStringList>

// "playlist.m3u". The entry with that 1-based number is selected and current again; where there is none,
// nothing is selected and the first one is current.
void readStartList(Playlist& list, int lastTrack, bool friendlyNames, const PlaylistSeams& seams);
bool writeStartList(const Playlist& list, const PlaylistSeams& seams); // as WritePL

// "autolist.txt", an item a line; empty when the option is off or the file cannot be read.
QStringList readAutoList(bool on, const PlaylistSeams& seams);
// Nothing happens when the option is off. False when the file could not be replaced; it is then as it was.
bool writeAutoList(bool on, const QStringList& items, const PlaylistSeams& seams);
