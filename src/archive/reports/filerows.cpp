#include "archive/reports/filerows.h"

#include "archive/reports/tablecolumns.h"

#include <QCoreApplication>

#include <algorithm>
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
    return Detail::SomeDisks;
}

// They are equally far apart, so that the one before a disk is a good place to go on from.
std::vector<int> FileRows::someDisks() const
{
    std::vector<int> begun;
    for (int row = 0; row < count(); ++row)
        if (beginsDisk(row))
            begun.push_back(row);
    const std::size_t apart = begun.size() / kMostBookmarks + 1;
    std::vector<int> some;
    for (std::size_t i = 0; i < begun.size(); i += apart)
        some.push_back(begun[i]);
    return some;
}

void FileRows::lookOver() const
{
    m_detail = finest();
    if (*m_detail == Detail::SomeDisks)
        m_someDisks = someDisks();
}

bool FileRows::marksDisk(int row) const
{
    return *m_detail == Detail::SomeDisks ? std::ranges::binary_search(m_someDisks, row) : beginsDisk(row);
}

QString FileRows::nameBelow(int row, Detail detail) const
{
    const QByteArrayView path = cell(row, tablecolumns::kPath).value_or("");
    const QByteArrayView name =
        detail == Detail::File ? path.sliced(endOfDirectory(path)) : directoryOf(path);
    return shown(QString::fromUtf8(name), QCoreApplication::translate("FileRows", "(no path)"));
}

QStringList FileRows::bookmarks(int row) const
{
    if (!m_detail)
        lookOver();
    const bool beginsInner = *m_detail < Detail::Disk && beginsBelow(row, *m_detail);
    const bool isDisk = marksDisk(row);
    if (!beginsInner && !isDisk)
        return {};
    QStringList begun{QString()};
    if (isDisk)
        begun.first() =
            shown(text(row, tablecolumns::kVolum), QCoreApplication::translate("FileRows", "(no disk name)"));
    if (beginsInner)
        begun += nameBelow(row, *m_detail);
    return begun;
}
