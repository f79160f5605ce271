#include "platform/findcriterion.h"

#include "base/runtimeerror.h"
#include "platform/recordset.h"
#include "platform/sqlitestatement.h"

#include <QRegularExpression>

namespace {

bool fitsPattern(const QString& text, const QStringList& pieces)
{
    qsizetype at = 0;
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        const bool first = i == 0;
        const bool last = i + 1 == pieces.size();
        qsizetype found = text.indexOf(pieces[i], at);
        if (first && !text.startsWith(pieces[i]))
            return false;
        if (last && !first)
            found = text.endsWith(pieces[i]) ? text.size() - pieces[i].size() : -1;
        if (found < at || (first && last && text != pieces[i]))
            return false;
        at = (first ? 0 : found) + pieces[i].size();
    }
    return true;
}

} // namespace

FindCriterion parseFindCriterion(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A\\s*([A-Za-z_]\\w*)\\s*(=|\\blike\\b)\\s*'([^']*)'\\s*\\z"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        throw RunTimeError(kBadCriterion, QStringLiteral("This cannot be looked for: ") + text);
    const QString wanted = match.captured(3).toCaseFolded();
    const QStringList pieces = match.captured(2) == u"=" ? QStringList(wanted) : wanted.split(u'*');
    return {match.captured(1), [pieces](RowStore::Cell cell) {
                return cell && fitsPattern(textOfBytes(*cell).toCaseFolded(), pieces);
            }};
}
