// Takes a data-shaping command apart: "SHAPE {statement} AS children COMPUTE children BY 'column','column'".
#pragma once

#include <QString>
#include <QStringList>

struct ShapedCommand {
    QString statement; // gives the children
    QString children;  // what they are called
    QStringList by;    // a parent is one combination of the values of these columns
};

// Tells whether a command is meant to be one, whole or not.
bool isShapedCommand(const QString& text);

// Throws RunTimeError kStatementError, which says what is wrong, for any other text. The statement between
// the braces is not looked at.
ShapedCommand parseShapedCommand(const QString& text);
