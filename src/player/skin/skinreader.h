// Reads the fields of a skin's control file, which are parted by commas and line ends (CR LF, LF or CR; a
// last line needs none). Blanks around a field are dropped. One in double quotes keeps its commas and its
// blanks, what stands between its closing quote and the next comma is dropped, and without a closing quote it
// ends with its line. An empty line is one empty field.
//
// A line that is valid UTF-8 is UTF-8, any other is of the code page. A byte order mark is skipped.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

class CodePage;

class SkinReader {
public:
    SkinReader(QByteArray bytes, const CodePage& codePage);
    SkinReader(const SkinReader&) = delete;
    SkinReader& operator=(const SkinReader&) = delete;

    bool atEnd() const { return !m_open && m_next >= m_bytes.size(); }

    // Returns the next field, of the next line when the last one ended its line. Both throw RunTimeError
    // InputPastEnd at the end.
    QString field();
    // Returns 0 for an empty field; throws TypeMismatch for what is no number, Overflow for one that does
    // not fit in 16 bits.
    int number();

    // Returns what stands behind the field last read in its line, as it stands, and nothing when the field
    // ended it.
    QString restOfLine();
    void skipLine() { m_open = false; }

    int line() const { return m_line; } // of the field last read, from 1; 0 before the first

private:
    QByteArrayView take();
    void nextLine();
    QString text(QByteArrayView bytes) const;

    QByteArray m_bytes;
    const CodePage& m_codePage;
    qsizetype m_next = 0;     // where the next line begins
    qsizetype m_lineFeed = 0; // the first from there, or the end; looked for once, not once a line
    QByteArrayView m_rest{};  // of the line, from its next field
    bool m_open = false;      // the line has one more field
    bool m_utf8 = true;
    int m_line = 0;
};
