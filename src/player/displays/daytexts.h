// Writes the date as the player's labels show it.
#pragma once

#include <QChar>
#include <QDate>
#include <QString>

struct DayTexts {
    QString date; // "Saturday November  21, 2026": numbers keep the place of their sign
    QString day;  // "Sat"
    QChar letter; // "UMTWRFS", from Sunday on: a day's letter in the weekly schedule
};

DayTexts dayTexts(QDate date);
