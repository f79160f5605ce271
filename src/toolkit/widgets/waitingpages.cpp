#include "toolkit/widgets/waitingpages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

WaitingPages::WaitingPages(QWidget* parent)
    : QWidget(parent), lblWaitingPages(new QLabel(tr("The printed pages wait until Songbin ends."), this)),
      cmdPrintNow(new QPushButton(tr("Print &now"), this))
{
    lblWaitingPages->setObjectName(QStringLiteral("lblWaitingPages"));
    cmdPrintNow->setObjectName(QStringLiteral("cmdPrintNow"));
    cmdPrintNow->setToolTip(tr("Send the pages to the printer now"));
    cmdPrintNow->setAutoDefault(false);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(12);
    line->addWidget(lblWaitingPages);
    line->addWidget(cmdPrintNow);
    line->addStretch(1);
    hide();
}
