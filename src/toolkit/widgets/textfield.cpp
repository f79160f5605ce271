#include "toolkit/widgets/textfield.h"

#include <QMouseEvent>

#include <limits>

TextField::TextField(QWidget* parent) : QLineEdit(parent)
{
    setMaxLength(std::numeric_limits<int>::max()); // the toolkit would cut a long value off
}

void TextField::mouseDoubleClickEvent(QMouseEvent* event)
{
    QLineEdit::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT doubleClicked();
}
