#include "database/cursor/findcriterion.h"

#include "base/runtimeerror.h"
#include "database/sql/casefold.h"
#include "database/sql/likepattern.h"

#include <QRegularExpression>

namespace {

std::vector<char32_t> foldedOf(QByteArrayView text)
{
    std::vector<char32_t> characters;
    casefold::fold(text, characters);
    return characters;
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
    const QByteArray wanted = match.captured(3).toUtf8();
    if (match.captured(2) == u"=")
        return {match.captured(1),
                [text = foldedOf(wanted)](RowStore::Cell cell) { return cell && foldedOf(*cell) == text; }};
    return {match.captured(1), [pattern = LikePattern(wanted, LikeSyntax::Find)](RowStore::Cell cell) {
                return cell && pattern.matches(*cell);
            }};
}
