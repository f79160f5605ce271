#include "system/desktop/drivefiledialog.h"

#include "platform/drives.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>

namespace {

bool beginsWithDrive(const QString& text)
{
    return text.size() > 2 && text[0].isLetter() && text[1] == u':' && (text[2] == u'\\' || text[2] == u'/');
}

} // namespace

DriveFileDialog::DriveFileDialog(Drives& drives, QWidget* parent) : QFileDialog(parent), m_drives(drives)
{
    setOption(DontUseNativeDialog);
    m_name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    m_button = findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Open);
    m_button->installEventFilter(this);
    connect(m_name, &QLineEdit::textChanged, this, &DriveFileDialog::allowTyped);
}

bool DriveFileDialog::opensFile() const
{
    return acceptMode() == AcceptOpen && fileMode() == ExistingFile;
}

// The toolkit lets only those names be opened that it has listed.
void DriveFileDialog::allowTyped()
{
    if (opensFile() && !m_name->text().isEmpty())
        m_button->setEnabled(true);
}

bool DriveFileDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_button && event->type() == QEvent::EnabledChange && !m_button->isEnabled())
        allowTyped();
    return QFileDialog::eventFilter(watched, event);
}

// A name of this machine goes before one of the program, because here a backslash may be part of a name. The
// file of an equal name is the one that would be replaced, so the toolkit has to ask about that one.
QString DriveFileDialog::meant(const QString& typed) const
{
    const bool isPath = beginsWithDrive(typed);
    const bool isEqualSought = opensFile() || (acceptMode() == AcceptSave && !typed.contains(u'\\'));
    if (QFileInfo::exists(directory().filePath(typed)) || (!isPath && !isEqualSought))
        return typed;
    const QString here = m_drives.drivePath(QFile::encodeName(directory().absolutePath()));
    const std::optional<QByteArray> path = m_drives.machinePath(isPath ? typed : here + u'\\' + typed);
    const QString name = QFile::decodeName(path.value_or(QByteArray()));
    return path && (isPath || QFileInfo::exists(name)) ? name : typed;
}

void DriveFileDialog::accept()
{
    const QString typed = m_name->text();
    if (const QString name = meant(typed); name != typed)
        m_name->setText(name);
    QFileDialog::accept();
}
