#include "toolkit/pages/toolstrip.h"

#include <QAction>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QToolButton>

#include <algorithm>

namespace {

constexpr int kIcon = 24;

} // namespace

ToolStrip::ToolStrip(QWidget* parent) : QWidget(parent), m_row(new QHBoxLayout(this))
{
    m_row->setContentsMargins(6, 4, 6, 4);
    m_row->setSpacing(2);
    m_row->setSizeConstraint(QLayout::SetNoConstraint);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QToolButton* ToolStrip::makeButton(QAction* action)
{
    auto* button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    button->setIconSize({kIcon, kIcon});
    button->setFocusPolicy(Qt::TabFocus);
    m_row->addWidget(button);
    return button;
}

void ToolStrip::addButton(QAction* action)
{
    makeButton(action);
}

void ToolStrip::addButtonWithText(QAction* action)
{
    m_worded += makeButton(action);
    m_worded.back()->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

void ToolStrip::addControl(QWidget* control)
{
    m_row->addWidget(control);
}

void ToolStrip::addGap()
{
    auto* line = new QFrame(this);
    line->setFrameStyle(QFrame::VLine | QFrame::Plain);
    line->setForegroundRole(QPalette::Mid);
    m_row->addSpacing(4);
    m_row->addWidget(line);
    m_row->addSpacing(4);
}

void ToolStrip::addSpring()
{
    m_row->addStretch(1);
}

// Texts beside icons take as much more as their buttons then want.
int ToolStrip::widthWith(Qt::ToolButtonStyle style) const
{
    int width = m_row->sizeHint().width();
    for (QToolButton* button : m_worded) {
        const Qt::ToolButtonStyle now = button->toolButtonStyle();
        width -= button->sizeHint().width();
        button->setToolButtonStyle(style);
        width += button->sizeHint().width();
        button->setToolButtonStyle(now);
    }
    return width;
}

QSize ToolStrip::sizeHint() const
{
    return {widthWith(Qt::ToolButtonTextBesideIcon), m_row->sizeHint().height()};
}

QSize ToolStrip::minimumSizeHint() const
{
    return {widthWith(Qt::ToolButtonIconOnly), m_row->sizeHint().height()};
}

void ToolStrip::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
}

void ToolStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const bool isWide = width() >= sizeHint().width();
    for (QToolButton* button : m_worded)
        button->setToolButtonStyle(isWide ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
}
