#include "toolkit/widgets/directorylist.h"

#include "base/dospath.h"
#include "platform/files.h"

#include <QKeyEvent>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

constexpr int kDepthRole = Qt::UserRole + 1;
constexpr int kIndentPerLevel = 16; // pixels

class IndentingDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem indented = option;
        indented.rect.setLeft(option.rect.left() + index.data(kDepthRole).toInt() * kIndentPerLevel);
        QStyledItemDelegate::paint(painter, indented, index);
    }
};

QString withoutTrailingBackslash(const QString& path)
{
    return path.size() > 3 && path.endsWith(u'\\') ? path.chopped(1) : path;
}

} // namespace

DirectoryList::DirectoryList(Files& files, QWidget* parent)
    : QListWidget(parent), m_files(files), m_closed(QStringLiteral(":/icons/folder.svg")),
      m_open(QStringLiteral(":/icons/folder-open.svg"))
{
    setItemDelegate(new IndentingDelegate(this));
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemActivated, this,
            [this](const QListWidgetItem* item) { Q_EMIT chosen(item->data(Qt::UserRole).toString()); });
}

// Enter belongs to the list alone: passed on, it would press the window's own button too.
void DirectoryList::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentItem())
        Q_EMIT itemActivated(currentItem());
    else if (!enter)
        QListWidget::keyPressEvent(event);
}

void DirectoryList::setPath(const QString& path)
{
    const QString wanted = withoutTrailingBackslash(path);
    QStringList subdirectories;
    for (const DirEntry& entry : m_files.list(wanted))
        if (entry.attributes & kDirectory)
            subdirectories += entry.name;
    // What desktops hide is seldom music, but an artist's name may begin with a dot.
    std::stable_partition(subdirectories.begin(), subdirectories.end(),
                          [](const QString& name) { return !name.startsWith(u'.'); });
    const bool changed = wanted != m_path;
    m_path = wanted;
    fill(subdirectories);
    if (changed)
        Q_EMIT pathChanged();
}

void DirectoryList::fill(const QStringList& subdirectories)
{
    clear();
    const QStringList parts = m_path.split(u'\\', Qt::SkipEmptyParts);
    QString way;
    int depth = 0;
    for (const QString& part : parts) {
        way = depth == 0 ? part + u'\\' : dospath::withTrailingBackslash(way) + part;
        addEntry(depth == 0 ? way : part, way, depth, true);
        ++depth;
    }
    setCurrentRow(depth - 1);
    for (const QString& name : subdirectories)
        addEntry(name, dospath::withTrailingBackslash(m_path) + name, depth, false);
}

void DirectoryList::addEntry(const QString& name, const QString& path, int depth, bool open)
{
    QString shown = name;
    for (QChar& c : shown)
        if (c < u' ')
            c = u' ';
    auto* item = new QListWidgetItem(open ? m_open : m_closed, shown, this);
    item->setData(Qt::UserRole, path);
    item->setData(kDepthRole, depth);
}
