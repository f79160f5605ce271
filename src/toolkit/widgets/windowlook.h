// Holds the looks that the program's windows have in common: their headings and their rows of buttons.
#pragma once

#include <QList>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace windowlook {

// Makes it bold, and so many times as large as the text.
void makeHeading(QLabel& label, qreal times = 1.4);

// Returns the buttons that a window's work is done with, side by side; those of the right side stand behind
// the room that is left. Without any there the row takes no more room than its buttons.
QHBoxLayout* commandRow(const QList<QPushButton*>& left, const QList<QPushButton*>& right = {});
// Gives one of them its least size.
void makeCommand(QPushButton& button);

// Returns the buttons that a small window is answered with, as small as their captions, at its right end.
QHBoxLayout* answerRow(const QList<QPushButton*>& answers);

} // namespace windowlook
