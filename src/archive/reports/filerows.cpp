#include "archive/reports/filerows.h"

#include "archive/reports/tablecolumns.h"

#include <array>

namespace {

qsizetype endOfDirectory(QByteArrayView path)
{
    return path.lastIndexOf('\\') + 1;
}

QByteArrayView directoryOf(QByteArrayView path)
{
    return path.first(endOfDirectory(path));
}

// A blank is nothing to click on.
QString shown(const QString& name, const QString& nothing)
{
    return name.trimmed().isEmpty() ? nothing : name;
}

} // namespace

FileRows::FileRows(CommandRows rows) : StoredRows(std::move(rows), tablecolumns::names()) {}

bool FileRows::beginsDisk(int row) const
{
    return row == 0 || cell(row, tablecolumns::kVolum) != cell(row - 1, tablecolumns::kVolum);
}

bool FileRows::beginsBelow(int row, Detail detail) const
{
    if (detail == Detail::File)
        return beginsGroup(row);
    const auto directory = [this](int of) { return directoryOf(cell(of, tablecolumns::kPath).value_or("")); };
    return beginsDisk(row) || (detail == Detail::Directory && directory(row) != directory(row - 1));
}

bool FileRows::isFew(Detail detail) const
{
    int found = 0;
    for (int row = 0; row < count() && found <= kMostBookmarks; ++row)
        found += beginsBelow(row, detail) ? 1 : 0;
    return found <= kMostBookmarks;
}

FileRows::Detail FileRows::finest() const
{
    for (const Detail detail : std::array{Detail::File, Detail::Directory, Detail::Disk})
        if (isFew(detail))
            return detail;
    return Detail::None;
}

QString FileRows::nameBelow(int row, Detail detail) const
{
    const QByteArrayView path = cell(row, tablecolumns::kPath).value_or("");
    const QByteArrayView name =
        detail == Detail::File ? path.sliced(endOfDirectory(path)) : directoryOf(path);
    return shown(QString::fromUtf8(name), QStringLiteral("(no path)"));
}

QStringList FileRows::bookmarks(int row) const
{
    if (!m_detail)
        m_detail = finest();
    const bool beginsInner = *m_detail < Detail::Disk && beginsBelow(row, *m_detail);
    if (*m_detail == Detail::None || (!beginsInner && !beginsDisk(row)))
        return {};
    QStringList begun{QString()};
    if (beginsDisk(row))
        begun.first() = shown(text(row, tablecolumns::kVolum), QStringLiteral("(no disk name)"));
    if (beginsInner)
        begun += nameBelow(row, *m_detail);
    return begun;
}
