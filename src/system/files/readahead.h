// Lets the system fetch the ends of files before they are read: a slow disk then serves many at a time.
#pragma once

#include <QByteArray>
#include <QStringList>

class ReadAhead {
public:
    // Fetches the last bytes of files of one directory of this machine. It asks for the first few hundred at
    // most, and for next to nothing when the system holds them already.
    void expectTails(const QByteArray& directory, const QStringList& names, int bytes);

private:
    int m_pause = 0;  // calls to let pass
    int m_inARow = 0; // calls that found everything there
};
