// Puts the rows without a value in some column before the others.
#pragma once

#include "database/cursor/rowstore.h"

#include <vector>

// Takes the rows in a rising order of that column and moves those of nothing but blanks, which some texts and
// locales sort behind others, up to the nulls and the empty ones. The rest of the order stays.
void putBlanksFirst(std::vector<int>& order, const RowStore& rows, int column);
