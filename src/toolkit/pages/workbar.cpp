#include "toolkit/pages/workbar.h"

#include "platform/program.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {

constexpr int kSteps = 1000;

} // namespace

WorkBar::WorkBar(QWidget* parent)
    : QWidget(parent), lblWork(new QLabel(this)), prgWork(new QProgressBar(this)),
      cmdCancel(new QPushButton(QIcon(QStringLiteral(":/icons/cancel.svg")), tr("&Cancel"), this))
{
    lblWork->setObjectName(QStringLiteral("lblWork"));
    lblWork->setTextFormat(Qt::PlainText);
    prgWork->setObjectName(QStringLiteral("prgWork"));
    prgWork->setAccessibleName(tr("Progress"));
    prgWork->setRange(0, kSteps);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setToolTip(tr("End it (Escape)"));
    cmdCancel->setAutoDefault(false);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 6, 10, 2);
    row->setSpacing(10);
    row->addWidget(lblWork);
    row->addWidget(prgWork, 1);
    row->addWidget(cmdCancel);
    connect(cmdCancel, &QPushButton::clicked, this, &WorkBar::cancel);
    hide();
}

void WorkBar::begin(const QString& text)
{
    lblWork->setText(text);
    prgWork->setValue(0);
    m_isWorking = true;
    m_isCancelled = false;
}

// It comes with the first progress: while a question is asked nothing is done yet.
bool WorkBar::goesOn(double share, Program& program)
{
    if (!m_pace.due())
        return !m_isCancelled;
    show();
    prgWork->setValue(static_cast<int>(share * kSteps));
    program.yield();
    return !m_isCancelled;
}

void WorkBar::end()
{
    m_isWorking = false;
    hide();
}
