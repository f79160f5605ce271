#include "base/textrules.h"

#include "base/runtimeerror.h"

#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace textrules {

double val(const QString& text)
{
    static const QRegularExpression number(QStringLiteral(R"(^[+-]?(\d+\.?\d*|\.\d+)([eEdD][+-]?\d+)?)"));
    QString packed;
    for (const QChar c : text)
        if (c != u' ' && c != u'\t' && c != u'\n')
            packed += c;
    const QRegularExpressionMatch match = number.match(packed);
    if (!match.hasMatch())
        return 0;
    QString digits = match.captured();
    digits.replace(QLatin1Char('d'), QLatin1Char('e'), Qt::CaseInsensitive);
    return digits.toDouble();
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
