#include "toolkit/widgets/windowlook.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr QSize kCommand(104, 34);
constexpr int kBetweenButtons = 8;

QHBoxLayout* buttonRow(const QList<QPushButton*>& left, const QList<QPushButton*>& right)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(kBetweenButtons);
    for (QPushButton* button : left)
        row->addWidget(button);
    if (!right.isEmpty())
        row->addStretch(1);
    for (QPushButton* button : right)
        row->addWidget(button);
    return row;
}

} // namespace

void windowlook::makeHeading(QLabel& label, qreal times)
{
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * times);
    font.setBold(true);
    label.setFont(font);
}

QHBoxLayout* windowlook::commandRow(const QList<QPushButton*>& left, const QList<QPushButton*>& right)
{
    for (QPushButton* button : left + right)
        makeCommand(*button);
    return buttonRow(left, right);
}

// A least size that is set by hand counts instead of the caption's, which has to stay whole.
void windowlook::makeCommand(QPushButton& button)
{
    button.setMinimumSize(kCommand.expandedTo(button.sizeHint()));
}

QHBoxLayout* windowlook::answerRow(const QList<QPushButton*>& answers)
{
    return buttonRow({}, answers);
}
