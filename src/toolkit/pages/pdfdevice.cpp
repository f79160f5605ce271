#include "toolkit/pages/pdfdevice.h"

#include "base/runtimeerror.h"
#include "toolkit/pages/piecewriter.h"

#include <limits>

PdfDevice::PdfDevice(PieceWriter& out) : m_out(out)
{
    open(WriteOnly | Unbuffered);
}

void PdfDevice::firstPageBegins()
{
    m_kept = nullptr;
}

void PdfDevice::lastPageIsWritten()
{
    m_kept = &m_ends.tail;
    m_ends.tailAt = m_written;
}

void PdfDevice::check() const
{
    if (m_error)
        std::rethrow_exception(m_error);
    if (m_written > std::numeric_limits<int>::max()) // its table of places would be wrong
        throw RunTimeError(ErrorNumber::Overflow)
            .withAdvice(
                QStringLiteral("A PDF file has no room for so many pages: export values (CSV) instead."));
}

qint64 PdfDevice::writeData(const char* bytes, qint64 count)
{
    m_written += count;
    if (m_isGivenUp || m_error)
        return count;
    try {
        if (m_kept)
            m_kept->append(bytes, count);
        m_out.add(QByteArrayView(bytes, count));
    } catch (...) {
        m_error = std::current_exception();
    }
    return count;
}
