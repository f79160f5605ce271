// Writes times as the player shows them, of milliseconds as "minutes:seconds", the seconds in two digits.
#pragma once

#include <QString>

// They give the running time: seconds that are not over do not count. Remaining time has "-" in front.
QString shownTimeText(qint32 milliseconds, bool remaining);
qint32 shownSeconds(qint32 milliseconds);

// Gives a medium's length, to the nearest second, halves to even.
QString lengthText(qint32 milliseconds);
