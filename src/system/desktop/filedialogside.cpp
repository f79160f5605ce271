#include "system/desktop/filedialogside.h"

#include "platform/drives.h"
#include "platform/drivetext.h"

#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QListView>
#include <QSplitter>
#include <QTreeView>

#include <algorithm>

namespace {

constexpr int kUrlRole = Qt::UserRole + 1; // of the toolkit's model of the side
constexpr int kLetters = 84;               // wide and
constexpr int kLines = 26;                 // high: eight files or more, with their dates

template <typename T>
T& part(const QFileDialog& dialog, const char* name)
{
    return *dialog.findChild<T*>(QLatin1String(name));
}

} // namespace

FileDialogSide::FileDialogSide(QFileDialog& dialog, Drives& drives)
    : m_dialog(dialog), m_columns(*part<QTreeView>(dialog, "treeView").header()),
      m_sideBefore(dialog.sidebarUrls()), m_columnsBefore(m_columns.saveState()),
      m_splitBefore(part<QSplitter>(dialog, "splitter").saveState())
{
    const QFontMetrics metrics = dialog.fontMetrics();
    dialog.resize(QSize(metrics.horizontalAdvance(u'n') * kLetters, metrics.height() * kLines));
    findDrives(drives);
    showDrives();
    showColumns();
}

FileDialogSide::~FileDialogSide()
{
    part<QListView>(m_dialog, "sidebar").model()->disconnect(this);
    m_dialog.setSidebarUrls(m_sideBefore);
    m_columns.restoreState(m_columnsBefore);
    part<QSplitter>(m_dialog, "splitter").restoreState(m_splitBefore);
}

// A name that is no valid text cannot be handed to the toolkit.
void FileDialogSide::findDrives(Drives& drives)
{
    for (const Drive& drive : drives.list()) {
        const std::optional<QByteArray> path = drives.machinePath(drive.letter + QStringLiteral(":\\"));
        const QString directory = QFile::decodeName(path.value_or(QByteArray()));
        if (path && QFile::encodeName(directory) == *path)
            m_shortcuts += {QUrl::fromLocalFile(QDir::cleanPath(directory)), driveText(drives, drive),
                            QIcon(driveIconName(drive.kind))};
    }
}

void FileDialogSide::showDrives()
{
    auto& side = part<QListView>(m_dialog, "sidebar");
    QList<QUrl> directories;
    for (const Shortcut& shortcut : m_shortcuts)
        directories += shortcut.directory;
    m_dialog.setSidebarUrls(directories);
    // The toolkit writes the directory's own name whenever it hears of the directory.
    connect(side.model(), &QAbstractItemModel::dataChanged, this, &FileDialogSide::nameDrives);
    nameDrives();
    const int width = side.sizeHintForColumn(0) + 2 * side.frameWidth() + side.fontMetrics().height();
    part<QSplitter>(m_dialog, "splitter").setSizes({width, std::max(m_dialog.width() - width, 0)});
}

void FileDialogSide::nameDrives()
{
    if (m_naming)
        return;
    m_naming = true;
    QAbstractItemModel& side = *part<QListView>(m_dialog, "sidebar").model();
    for (int row = 0; row < side.rowCount(); ++row) {
        const QModelIndex entry = side.index(row, 0);
        const auto shortcut =
            std::ranges::find(m_shortcuts, entry.data(kUrlRole).toUrl(), &Shortcut::directory);
        if (shortcut == m_shortcuts.end())
            continue;
        side.setData(entry, shortcut->text);
        side.setData(entry, shortcut->icon, Qt::DecorationRole);
    }
    m_naming = false;
}

void FileDialogSide::showColumns()
{
    m_columns.setStretchLastSection(false);
    for (int column = 0; column < m_columns.count(); ++column)
        m_columns.setSectionResizeMode(column,
                                       column == 0 ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
}
