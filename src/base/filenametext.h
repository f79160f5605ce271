// Carries file names of this machine, which are bytes, as text without loss.
//
// A byte that is no UTF-8 becomes U+EF00 + byte; a "\", ":", "*" or "?" inside a name becomes U+F000 +
// character; real characters of those two ranges are written byte by byte in the first form, so that every
// name comes back.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

class CodePage;

namespace filenametext {

QString toText(QByteArrayView name);
bool append(QString& text, QByteArrayView name); // the name as text; tells whether it is UTF-8
QByteArray toBytes(QStringView text);

// Makes a name readable for people: what stands for a character of the name is that character again, and what
// stands for a byte is the character of the code page. It may be no name any more.
QString readable(const QString& text, const CodePage& codePage);

} // namespace filenametext
