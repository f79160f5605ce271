// Number and text conversions as the program's texts and settings expect them.
#pragma once

#include <QString>
#include <QStringList>

namespace textrules {

// The numeric value of the number that the text begins with, blanks skipped; 0 when it begins with none,
// the largest or least double when it lies beyond them.
double val(QStringView text);

// Blanks (U+0020 alone) taken off both ends.
QString withoutBlanks(QStringView text);

// The text as a whole number, a fraction rounded half to even; throws RunTimeError 13 when the whole text is
// no number, 6 when it does not fit in 16 bits.
int toInteger(const QString& text);

// A single-precision number as text: at most seven significant digits, no leading blank.
QString singleText(float value);

// A number as the language's Str gives it: "-" or a leading blank, at most fifteen significant digits, no
// point in whole numbers, no zero before the point (" .5"), exponents as in " 1E+15".
QString str(double value);

// The format "@@": right-aligned in two characters; longer texts stay as they are.
QString atLeastTwo(const QString& text);

// Lines ended by CR LF, LF or CR. A last line without an end counts; nothing after the last end does not.
QStringList lines(const QString& text);

} // namespace textrules
