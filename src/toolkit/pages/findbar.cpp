#include "toolkit/pages/findbar.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int kPauseInTyping = 250; // milliseconds
constexpr int kLongestText = 100;   // what is longer stands in no field

QToolButton* makeButton(const char* name, const char* icon, const QString& text, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setIcon(QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(icon))));
    button->setIconSize({20, 20});
    button->setAutoRaise(true);
    button->setToolTip(text);
    button->setAccessibleName(text);
    return button;
}

} // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent), txtFind(new QLineEdit(this)),
      cmdFindPrevious(makeButton("cmdFindPrevious", "findprevious", tr("Previous hit (Shift+F3)"), this)),
      cmdFindNext(makeButton("cmdFindNext", "findnext", tr("Next hit (F3)"), this)),
      lblFound(new QLabel(this)),
      cmdFindClose(makeButton("cmdFindClose", "cancel", tr("Close (Escape)"), this))
{
    auto* caption = new QLabel(tr("F&ind:"), this);
    caption->setBuddy(txtFind);
    txtFind->setObjectName(QStringLiteral("txtFind"));
    txtFind->setAccessibleName(tr("Text to find"));
    txtFind->setMaxLength(kLongestText);
    txtFind->setClearButtonEnabled(true);
    lblFound->setObjectName(QStringLiteral("lblFound"));
    lblFound->setTextFormat(Qt::PlainText);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 4, 10, 6);
    row->setSpacing(6);
    row->addWidget(caption);
    row->addWidget(txtFind, 2);
    row->addWidget(cmdFindPrevious);
    row->addWidget(cmdFindNext);
    row->addWidget(lblFound, 3);
    row->addWidget(cmdFindClose);
    auto* pause = new QTimer(this);
    pause->setSingleShot(true);
    pause->setInterval(kPauseInTyping);
    connect(txtFind, &QLineEdit::textEdited, pause, qOverload<>(&QTimer::start));
    connect(pause, &QTimer::timeout, this, &FindBar::textChanged);
    connect(cmdFindPrevious, &QToolButton::clicked, this, &FindBar::previous);
    connect(cmdFindNext, &QToolButton::clicked, this, &FindBar::next);
    connect(cmdFindClose, &QToolButton::clicked, this, &QWidget::hide);
}

void FindBar::open()
{
    show();
    txtFind->selectAll();
    txtFind->setFocus(Qt::ShortcutFocusReason);
}

// A button of it that has the focus is pressed.
void FindBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QWidget::keyPressEvent(event);
    if (auto* button = qobject_cast<QToolButton*>(focusWidget()))
        button->click();
    else if (event->modifiers() & Qt::ShiftModifier)
        Q_EMIT previous();
    else
        Q_EMIT next();
}

// Also hidden with its window, which then does not care any more.
void FindBar::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (isHidden())
        Q_EMIT closed();
}
