#include "base/textrules.h"

#include "base/runtimeerror.h"

#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

namespace textrules {

namespace {

// Reads the number that a text begins with; blanks count nowhere, "d" is an exponent like "e".
class LeadingNumber {
public:
    explicit LeadingNumber(QStringView text) : m_text(text) {}

    QByteArray read()
    {
        takeSign();
        const bool whole = takeDigits();
        if (next() == u'.')
            take('.');
        const bool fraction = takeDigits();
        if (!whole && !fraction)
            return {};
        takeExponent();
        return m_number;
    }

private:
    char16_t next()
    {
        while (m_at < m_text.size() &&
               (m_text[m_at] == u' ' || m_text[m_at] == u'\t' || m_text[m_at] == u'\n'))
            ++m_at;
        return m_at < m_text.size() ? m_text[m_at].unicode() : u'\0';
    }
    void take(char c)
    {
        m_number += c;
        ++m_at;
    }
    void takeSign()
    {
        if (const char16_t sign = next(); sign == u'+' || sign == u'-')
            take(static_cast<char>(sign));
    }
    bool takeDigits()
    {
        const qsizetype before = m_number.size();
        for (char16_t c = next(); c >= u'0' && c <= u'9'; c = next())
            take(static_cast<char>(c));
        return m_number.size() > before;
    }
    void takeExponent()
    {
        const QChar mark = next();
        if (mark.toLower() != u'e' && mark.toLower() != u'd')
            return;
        const QByteArray mantissa = m_number;
        take('e');
        takeSign();
        if (!takeDigits())
            m_number = mantissa;
    }

    QStringView m_text;
    qsizetype m_at = 0;
    QByteArray m_number;
};

// The toolkit gives 0 for a number that is too large or too small; only for the latter is that right.
double beyondRange(const QByteArray& number)
{
    std::istringstream stream(number.toStdString());
    stream.imbue(std::locale::classic());
    double value = 0;
    stream >> value;
    return value;
}

} // namespace

double val(QStringView text)
{
    const QByteArray number = LeadingNumber(text).read();
    bool ok = false;
    const double value = number.toDouble(&ok);
    return ok || number.isEmpty() ? value : beyondRange(number);
}

QString withoutBlanks(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.mid(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text.toString();
}

int toInteger(const QString& text)
{
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(number))
        throw RunTimeError(ErrorNumber::TypeMismatch);
    const double rounded = std::nearbyint(number);
    if (rounded < std::numeric_limits<qint16>::min() || rounded > std::numeric_limits<qint16>::max())
        throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<int>(rounded);
}

QString singleText(float value)
{
    return QString::number(static_cast<double>(value), 'G', 7);
}

QString str(double value)
{
    QString digits = QString::number(std::fabs(value), 'G', 15);
    if (digits.startsWith(QStringLiteral("0.")))
        digits.remove(0, 1);
    return (value < 0 ? u'-' : u' ') + digits;
}

QString atLeastTwo(const QString& text)
{
    return text.size() < 2 ? text.rightJustified(2) : text;
}

QStringList lines(const QString& text)
{
    QStringList result;
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = start;
        while (end < text.size() && text[end] != u'\n' && text[end] != u'\r')
            ++end;
        result += text.mid(start, end - start);
        const bool pair = end + 1 < text.size() && text[end] == u'\r' && text[end + 1] == u'\n';
        start = end + (pair ? 2 : 1);
    }
    return result;
}

} // namespace textrules
