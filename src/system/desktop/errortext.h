// Makes what a person reads in the box of an error that nobody trapped.
#pragma once

#include "base/runtimeerror.h"

namespace errortext {

// Says what can be done about an error of that number, in one sentence; it is empty for a number that the
// program does not raise.
QString advice(int number);

// Tells the run time's own errors with their number, and those of the archive in words alone, because their
// numbers say nothing to anybody. Then comes the advice, the error's own before the usual one.
QString ofBox(const RunTimeError& error);

} // namespace errortext
