// Takes what the toolkit writes of a PDF file, passes it on, and keeps its two ends. An error of the file is
// kept as well, because nothing may be thrown through the toolkit.
#pragma once

#include "toolkit/pages/pdfpages.h"

#include <QIODevice>

#include <exception>

class PieceWriter;

class PdfDevice : public QIODevice {
    Q_OBJECT

public:
    explicit PdfDevice(PieceWriter& out);

    bool isSequential() const override { return true; }
    qint64 writtenBytes() const { return m_written; }

    void lastPageIsWritten(); // what comes now is the tail
    void firstPageBegins();
    const PdfEnds& ends() const { return m_ends; }
    // From now on nothing is passed on.
    void giveUp() { m_isGivenUp = true; }
    // Throws what the file has thrown, and RunTimeError 6 for more than the toolkit can count.
    void check() const;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* bytes, qint64 count) override;

private:
    PieceWriter& m_out;
    PdfEnds m_ends;
    QByteArray* m_kept = &m_ends.head;
    qint64 m_written = 0;
    bool m_isGivenUp = false;
    std::exception_ptr m_error;
};
