// Reads the fields of each kind of element in the order in which a control file gives them. Throws what the
// reader throws; nothing is checked. The number is the token's and only passed on.
#pragma once

#include "player/skin/skinelements.h"

class SkinReader;

QRect readPlace(SkinReader& reader); // x, y, width, height
SkinButton readButton(SkinReader& reader, int number);
SkinLabel readLabel(SkinReader& reader, int number);
SkinLight readLight(SkinReader& reader, int number); // its shape may be none that there is
SkinSlider readSlider(SkinReader& reader, int number);
SkinDisplay readDisplay(SkinReader& reader, int number);
SkinCover readCover(SkinReader& reader);
SkinPlaylist readPlaylist(SkinReader& reader);
