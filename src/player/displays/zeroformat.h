// Writes numbers in formats of zeros, as "00" and "000.0".
#pragma once

#include <QString>

// Gives at least so many digits before the point, and just so many after it. Of the number's first fifteen
// digits, a half is rounded away from zero; "-" only before what is not zero. The value must be finite.
QString zeroFormat(double value, int wholeDigits, int fractionDigits = 0);
