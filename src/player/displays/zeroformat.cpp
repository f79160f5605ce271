#include "player/displays/zeroformat.h"

#include <cmath>

namespace {

constexpr int kSignificant = 15;

struct Decimal {
    QByteArray digits; // kSignificant of them
    int point;         // digits before it; may be negative
};

Decimal decimalOf(double value)
{
    const QByteArray text = QByteArray::number(value, 'e', kSignificant - 1); // d.ddde+dd
    const qsizetype mark = text.indexOf('e');
    return {text.left(1) + text.mid(2, mark - 2), text.mid(mark + 1).toInt() + 1};
}

void addOne(QByteArray& digits)
{
    for (qsizetype at = digits.size(); at-- > 0;) {
        if (digits[at] != '9') {
            ++digits[at];
            return;
        }
        digits[at] = '0';
    }
    digits.prepend('1');
}

// Returns the digits of the value times ten to the power of fractionDigits, rounded to a whole number.
QByteArray scaledDigits(double value, int fractionDigits)
{
    Decimal decimal = decimalOf(value);
    const int kept = decimal.point + fractionDigits;
    if (kept < 0)
        return {};
    if (kept >= kSignificant)
        return decimal.digits + QByteArray(kept - kSignificant, '0');
    const bool up = decimal.digits[kept] >= '5';
    decimal.digits.truncate(kept);
    if (up)
        addOne(decimal.digits);
    return decimal.digits;
}

} // namespace

QString zeroFormat(double value, int wholeDigits, int fractionDigits)
{
    QByteArray digits = scaledDigits(std::fabs(value), fractionDigits);
    const bool zero = digits.count('0') == digits.size();
    digits = digits.rightJustified(wholeDigits + fractionDigits, '0');
    if (fractionDigits > 0)
        digits.insert(digits.size() - fractionDigits, '.');
    if (value < 0 && !zero)
        digits.prepend('-');
    return QString::fromLatin1(digits);
}
