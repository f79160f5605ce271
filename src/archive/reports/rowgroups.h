// Puts rows into groups: those whose values in some columns are the same, byte for byte, a null being a value
// of its own.
#pragma once

#include "database/cursor/rowstore.h"

#include <vector>

// Arranges the rows group by group, in the order in which each group's first row stands there; within a group
// the order stays. Tells of each row whether a group begins with it.
std::vector<bool> groupRows(RowStore& rows, const std::vector<int>& columns);
