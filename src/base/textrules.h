// Converts numbers and texts as the program's texts and settings expect it.
#pragma once

#include <QString>
#include <QStringList>

namespace textrules {

// Returns the numeric value of the number that the text begins with, blanks skipped; 0 when it begins with
// none, the largest or least double when it lies beyond them.
double val(QStringView text);

// Takes blanks (U+0020 alone) off both ends.
QString withoutBlanks(QStringView text);

// Returns the text as a whole number, a fraction rounded half to even; throws RunTimeError TypeMismatch
// when the whole text is no number, Overflow when it does not fit in 16 bits.
int toInteger(const QString& text);

// Writes a single-precision number with at most seven significant digits and no leading blank.
QString singleText(float value);

// Writes a number as the language's Str gave it: "-" or a leading blank, at most fifteen significant digits,
// no point in whole numbers, no zero before the point (" .5"), exponents as in " 1E+15".
QString str(double value);

// Is the format "@@", right-aligned in two characters; longer texts stay as they are.
QString atLeastTwo(const QString& text);

// Parts lines, which end with CR LF, LF or CR. A last line without an end counts; nothing after the last end
// does not.
QStringList lines(const QString& text);

} // namespace textrules
