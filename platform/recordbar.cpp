#include "platform/recordbar.h"

#include "platform/picturebutton.h"
#include "platform/windowing.h"

#include <QLabel>

#include <algorithm>

namespace {

constexpr int kStatusLessThanWindow = 1500;
constexpr int kNextBehindStatus = 700;
constexpr int kLastBehindNext = 340;
constexpr int kButton = 340;
constexpr int kStatusLeft = 2 * kButton;

PictureButton* makeButton(const char* name, const QString& icon, const QString& toolTip, QWidget* parent)
{
    auto* button = new PictureButton(QStringLiteral(":/icons/%1.svg").arg(icon), parent);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    return button;
}

} // namespace

RecordBar::RecordBar(QWidget* parent)
    : QWidget(parent), cmdFirst(makeButton("cmdFirst", QStringLiteral("first"), tr("First record"), this)),
      cmdPrevious(makeButton("cmdPrevious", QStringLiteral("previous"), tr("Previous record"), this)),
      cmdNext(makeButton("cmdNext", QStringLiteral("next"), tr("Next record"), this)),
      cmdLast(makeButton("cmdLast", QStringLiteral("last"), tr("Last record"), this)),
      lblStatus(new QLabel(this))
{
    lblStatus->setObjectName(QStringLiteral("lblStatus"));
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setFrameShape(QFrame::StyledPanel);
    lblStatus->setFrameShadow(QFrame::Sunken);
    lblStatus->setIndent(6);
    setFixedHeight(std::max(fromTwips(kButton), fontMetrics().height() + 8) + 6);
}

void RecordBar::setButtonsEnabled(bool enabled)
{
    for (PictureButton* button : {cmdFirst, cmdPrevious, cmdNext, cmdLast})
        button->setEnabled(enabled);
}

void RecordBar::placeIn(int windowWidth)
{
    const int button = fromTwips(kButton);
    const int top = 3;
    const int inner = height() - 2 * top;
    const int buttonTop = top + (inner - button) / 2;
    lblStatus->setGeometry(fromTwips(kStatusLeft) + 1, top,
                           std::max(windowWidth - fromTwips(kStatusLessThanWindow), 0), inner);
    cmdFirst->setGeometry(0, buttonTop, button, button);
    cmdPrevious->setGeometry(button, buttonTop, button, button);
    cmdNext->setGeometry(lblStatus->width() + fromTwips(kNextBehindStatus), buttonTop, button, button);
    cmdLast->setGeometry(cmdNext->x() + fromTwips(kLastBehindNext), buttonTop, button, button);
}
