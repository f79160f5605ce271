// Puts into a field's text what its placeholders stand for.
#pragma once

#include <QString>

struct FieldValues {
    QString date;  // %D
    QString title; // %i
    QString page;  // %p
    QString pages; // %P
};

// A percent sign before anything else stands for itself.
QString fieldText(const QString& text, const FieldValues& values);
