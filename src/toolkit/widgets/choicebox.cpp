#include "toolkit/widgets/choicebox.h"

#include <QKeyEvent>
#include <QLineEdit>

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent)
{
    setEditable(true); // else it can show nothing but an entry
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    lineEdit()->setReadOnly(true);
    lineEdit()->setFocusPolicy(Qt::NoFocus);
    lineEdit()->setCursor(Qt::ArrowCursor);
    lineEdit()->setContextMenuPolicy(Qt::NoContextMenu);
    lineEdit()->installEventFilter(this);
    setFocusPolicy(Qt::StrongFocus);
}

void ChoiceBox::setText(const QString& text)
{
    setCurrentIndex(-1);
    setEditText(text);
}

// A click on the text opens the list as one on the arrow does. It does so when it is let go, because a list
// that opens below a pressed button closes again with its release.
bool ChoiceBox::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != lineEdit())
        return QComboBox::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        setFocus(Qt::MouseFocusReason);
        return true;
    case QEvent::MouseButtonRelease:
        showPopup();
        return true;
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return true;
    default:
        return QComboBox::eventFilter(watched, event);
    }
}

// Returns the next entry that begins with the letter, behind the current one and round.
int ChoiceBox::entryOf(const QString& letter) const
{
    if (letter.isEmpty() || letter == u" ")
        return -1;
    for (int step = 1; step <= count(); ++step)
        if (const int entry = (currentIndex() + step) % count();
            itemText(entry).startsWith(letter, Qt::CaseInsensitive))
            return entry;
    return -1;
}

void ChoiceBox::keyPressEvent(QKeyEvent* event)
{
    const int found = entryOf(event->text());
    if (event->key() == Qt::Key_Space) {
        showPopup();
    } else if (found >= 0) {
        setCurrentIndex(found);
        Q_EMIT activated(found);
    } else {
        QComboBox::keyPressEvent(event);
    }
}
