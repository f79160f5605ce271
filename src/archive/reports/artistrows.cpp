#include "archive/reports/artistrows.h"

#include "database/connection/archivecollation.h"

namespace {

// Letters with an accent stand among those without, unless the locale has them for letters of their own
// behind the others.
QString baseOf(const QString& letter)
{
    constexpr QChar kHighest(0xFFFF);
    const QString base = letter.normalized(QString::NormalizationForm_D).first(1);
    static const QCollator collator = ArchiveOrder::userCollator();
    return base != letter && collator.compare(letter, base + kHighest) > 0 ? letter : base;
}

} // namespace

ArtistRows::ArtistRows(CommandRows rows, const QStringList& columns, int artist)
    : StoredRows(std::move(rows), columns), m_artist(artist)
{
}

QString ArtistRows::letterOf(int row) const
{
    const QString name = text(row, m_artist).trimmed();
    if (name.isEmpty())
        return QStringLiteral("(no artist)");
    const char32_t first = name.toUcs4().first();
    if (QChar::isDigit(first))
        return QStringLiteral("0-9");
    if (!QChar::isLetter(first))
        return QStringLiteral("#");
    const char32_t upper = QChar::toUpper(first);
    return baseOf(QString::fromUcs4(&upper, 1));
}

QStringList ArtistRows::bookmarks(int row) const
{
    const QString letter = letterOf(row);
    return {row > 0 && letter == letterOf(row - 1) ? QString() : letter};
}
