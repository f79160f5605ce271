// Gathers what is written, so that a file gets it in large pieces.
#pragma once

#include "platform/files.h"

#include <cstring>

class PieceWriter {
public:
    explicit PieceWriter(FileReplacement& file) : m_file(file), m_piece(kPiece, Qt::Uninitialized) {}

    void add(QByteArrayView bytes)
    {
        if (bytes.size() > kPiece - m_used)
            flush();
        if (bytes.size() > kPiece)
            return writeNow(bytes);
        if (bytes.isEmpty()) // its data may be null
            return;
        std::memcpy(m_piece.data() + m_used, bytes.data(), static_cast<std::size_t>(bytes.size()));
        m_used += bytes.size();
    }
    void add(char byte) { add(QByteArrayView(&byte, 1)); }

    void flush()
    {
        writeNow(QByteArrayView(m_piece).first(m_used));
        m_used = 0;
    }
    qint64 written() const { return m_written + m_used; }

private:
    static constexpr qsizetype kPiece = qsizetype{256} * 1024;

    void writeNow(QByteArrayView bytes)
    {
        m_file.write(bytes);
        m_written += bytes.size();
    }

    FileReplacement& m_file;
    QByteArray m_piece;
    qsizetype m_used = 0;
    qint64 m_written = 0;
};
