#include "toolkit/widgets/recordbar.h"

#include "toolkit/widgets/picturebutton.h"
#include "toolkit/widgets/windowing.h"

#include <QLabel>
#include <QLocale>

#include <algorithm>

namespace {

constexpr int kStatusLessThanWindow = 1500;
constexpr int kNextBehindStatus = 700;
constexpr int kLastBehindNext = 340;
constexpr int kButton = 340;
constexpr int kStatusLeft = 2 * kButton;

constexpr int kRoomRoundText = 8; // pixels
constexpr int kRoomBetweenTexts = 24;

PictureButton* makeButton(const char* name, const QString& icon, const QString& toolTip, QWidget* parent)
{
    auto* button = new PictureButton(QStringLiteral(":/icons/%1.svg").arg(icon), parent);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    return button;
}

QLabel* makeLabel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

QString RecordBar::totalText(int records)
{
    return records == 1 ? tr("1 record") : tr("%1 records").arg(QLocale().toString(records));
}

RecordBar::RecordBar(QWidget* parent)
    : QWidget(parent), cmdFirst(makeButton("cmdFirst", QStringLiteral("first"), tr("First record"), this)),
      cmdPrevious(makeButton("cmdPrevious", QStringLiteral("previous"), tr("Previous record"), this)),
      cmdNext(makeButton("cmdNext", QStringLiteral("next"), tr("Next record"), this)),
      cmdLast(makeButton("cmdLast", QStringLiteral("last"), tr("Last record"), this)),
      lblStatus(makeLabel("lblStatus", this)), lblTotal(makeLabel("lblTotal", this)),
      lblFound(makeLabel("lblFound", this))
{
    QFont strong = lblFound->font();
    strong.setBold(true);
    lblFound->setFont(strong);
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
    placeTexts();
}

void RecordBar::setTotal(int records)
{
    lblTotal->setText(totalText(records));
    placeTexts();
}

void RecordBar::setFound(const QString& text)
{
    m_found = text;
    lblFound->setAccessibleName(text);
    placeTexts();
}

// Places from the right; a text that has no room keeps its beginning, and is whole in its tip.
void RecordBar::placeTexts()
{
    const QRect inside = lblStatus->geometry().adjusted(kRoomRoundText, 1, -kRoomRoundText, -1);
    const int total = std::min(lblTotal->sizeHint().width(), inside.width());
    lblTotal->setGeometry(inside.right() + 1 - total, inside.top(), total, inside.height());
    const int taken = lblStatus->sizeHint().width() + kRoomBetweenTexts;
    const int room = std::max(lblTotal->x() - kRoomBetweenTexts - inside.left() - taken, 0);
    lblFound->setText(lblFound->fontMetrics().elidedText(m_found, Qt::ElideRight, room));
    lblFound->setToolTip(lblFound->text() == m_found ? QString() : m_found);
    const int found = std::min(lblFound->sizeHint().width(), room);
    lblFound->setGeometry(lblTotal->x() - kRoomBetweenTexts - found, inside.top(), found, inside.height());
}
