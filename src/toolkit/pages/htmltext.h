// Writes texts into a page of the web so that they are shown and not obeyed. A line ends where it does on
// paper.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

class PieceWriter;

namespace htmltext {

QByteArray escaped(QByteArrayView text);

// Writes the end of an element's tag and the text in it. A text that may run from right to left is a world of
// its own.
void addContent(PieceWriter& out, QByteArrayView text);

} // namespace htmltext
