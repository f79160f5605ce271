// Tells a program that runs from one that does not any more, also when its number was given out again and
// after the machine was started anew.
#pragma once

#include <QByteArray>

namespace processmark {

QByteArray own();                       // without blanks
bool isRunning(const QByteArray& mark); // false for a text that is none

} // namespace processmark
