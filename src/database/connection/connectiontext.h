// The text by which a connection is opened has "key=value" pairs separated by semicolons. Keys ignore case
// and blanks round them; a value may stand in single or double quotes, its own quote doubled. The last of
// equal keys counts.
#pragma once

#include <QString>

struct ConnectionText {
    QString dataSource; // a path of the program
};

// Provider must be Microsoft.Jet.OLEDB.4.0 and Data Source must not be empty; other keys are ignored. Throws
// RunTimeError kConnectionError otherwise, and for a text that is no list of pairs.
ConnectionText parseConnectionText(const QString& text);
