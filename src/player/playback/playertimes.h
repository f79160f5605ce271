// Times as the player shows them. Milliseconds in, "minutes:seconds" out, the seconds in two digits.
#pragma once

#include <QString>

// The running time: seconds that are not over do not count. Remaining time has "-" in front.
QString shownTimeText(qint32 milliseconds, bool remaining);
qint32 shownSeconds(qint32 milliseconds);

// A medium's length, to the nearest second, halves to even.
QString lengthText(qint32 milliseconds);
