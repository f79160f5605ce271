#include "archive/reports/artistrows.h"

#include "database/connection/archivecollation.h"

#include <QCoreApplication>

namespace {

QString textOf(char32_t character)
{
    return QString::fromUcs4(&character, 1);
}

bool standsAmong(const QString& letter, const QString& base, const QCollator& collator)
{
    constexpr QChar kHighest(0xFFFF); // sorts behind every character in every locale
    return collator.compare(letter, base + kHighest) <= 0;
}

// Most neighbours begin with the same letter of ASCII: they need no look at the locale.
bool beginAlike(const RowStore::Cell& a, const RowStore::Cell& b)
{
    if (!a || !b || a->isEmpty() || b->isEmpty())
        return false;
    const auto lower = [](const RowStore::Cell& cell) { return QChar::toLower(uint(uchar(cell->front()))); };
    return lower(a) >= 'a' && lower(a) <= 'z' && lower(a) == lower(b);
}

} // namespace

QString indexLetter(const QString& artist, const QCollator& collator)
{
    const QString name = artist.trimmed();
    if (name.isEmpty())
        return QCoreApplication::translate("ArtistRows", "(no artist)");
    const char32_t first = name.toUcs4().first();
    if (QChar::isDigit(first))
        return QStringLiteral("0-9");
    if (!QChar::isLetter(first))
        return QStringLiteral("#");
    const QString letter = textOf(QChar::toUpper(first));
    const QString base = textOf(letter.normalized(QString::NormalizationForm_D).toUcs4().first());
    return standsAmong(letter, base, collator) ? base : letter;
}

ArtistRows::ArtistRows(CommandRows rows)
    : StoredRows(std::move(rows), {QStringLiteral("fldArtist"), QStringLiteral("fldSong")}),
      m_collator(ArchiveOrder::userCollator())
{
}

QStringList ArtistRows::bookmarks(int row) const
{
    if (row > 0 && beginAlike(cell(row - 1, 0), cell(row, 0)))
        return {};
    const QString letter = indexLetter(text(row, 0), m_collator);
    const bool goesOn = row > 0 && letter == indexLetter(text(row - 1, 0), m_collator);
    return goesOn ? QStringList() : QStringList{letter};
}
