// Does work in parts, each in a thread of its own.
#pragma once

#include <functional>

// Parts are counted from 0; the first one is done in this thread, and so is each for which the system has no
// further thread. All have ended on return. What a part throws is thrown then, of several one.
void doInParts(int parts, const std::function<void(int part)>& work);
