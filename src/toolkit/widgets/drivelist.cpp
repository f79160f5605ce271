#include "toolkit/widgets/drivelist.h"

#include "base/runtimeerror.h"
#include "platform/drives.h"
#include "platform/drivetext.h"

#include <QIcon>
#include <QSignalBlocker>

DriveList::DriveList(Drives& drives, QWidget* parent) : QComboBox(parent), m_drives(drives)
{
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(10);
    fill();
    m_accepted = currentIndex();
    connect(this, &QComboBox::currentIndexChanged, this, &DriveList::choose);
}

bool DriveList::isReady(int index) const
{
    return index >= 0 && m_drives.machinePath(itemData(index).toChar() + QStringLiteral(":\\")).has_value();
}

// A drive that is not ready is not taken: whoever reads the list goes on with the one before.
void DriveList::choose(int index)
{
    if (index == m_accepted)
        return;
    if (isReady(index)) {
        m_accepted = index;
        Q_EMIT driveChanged();
        return;
    }
    const QSignalBlocker quiet(this);
    setCurrentIndex(m_accepted);
    QMetaObject::invokeMethod(this, &DriveList::driveRefused, Qt::QueuedConnection);
}

void DriveList::fill()
{
    for (const Drive& drive : m_drives.list())
        addItem(QIcon(driveIconName(drive.kind)), driveText(m_drives, drive), drive.letter);
}

QString DriveList::drive() const
{
    return currentText();
}

int DriveList::indexOfLetter(QChar letter) const
{
    for (int i = 0; i < count(); ++i)
        if (itemData(i).toChar() == letter.toUpper())
            return i;
    return -1;
}

void DriveList::setDrive(const QString& text)
{
    const int index = text.size() >= 2 && text[1] == u':' ? indexOfLetter(text[0]) : -1;
    if (!isReady(index))
        throw RunTimeError(ErrorNumber::DeviceUnavailable);
    setCurrentIndex(index);
}

void DriveList::takeBack(const QString& text)
{
    const QSignalBlocker quiet(this);
    m_accepted = text.isEmpty() ? -1 : indexOfLetter(text[0]);
    setCurrentIndex(m_accepted);
}

void DriveList::showPopup()
{
    const QChar chosen = currentData().toChar();
    {
        const QSignalBlocker quiet(this);
        clear();
        fill();
        m_accepted = indexOfLetter(chosen);
        setCurrentIndex(m_accepted);
    }
    if (m_accepted < 0 && count() > 0) // its disk was taken away
        setCurrentIndex(0);
    QComboBox::showPopup();
}
