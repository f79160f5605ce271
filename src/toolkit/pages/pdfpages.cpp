#include "toolkit/pages/pdfpages.h"

#include "base/runtimeerror.h"

#include <QByteArrayView>
#include <QCoreApplication>

namespace {

// Reads on from a place; whatever is not as it is looked for makes it fail for good.
class PdfReader {
public:
    explicit PdfReader(QByteArrayView bytes) : m_rest(bytes) {}

    void skipBlanks()
    {
        while (!m_rest.isEmpty() && (m_rest.front() == ' ' || m_rest.front() == '\n'))
            m_rest = m_rest.sliced(1);
    }
    bool has(QByteArrayView word)
    {
        skipBlanks();
        if (!m_rest.startsWith(word))
            return false;
        m_rest = m_rest.sliced(word.size());
        return true;
    }
    void expect(QByteArrayView word) { m_isGood = has(word) && m_isGood; }
    qint64 number()
    {
        skipBlanks();
        qint64 value = 0;
        qsizetype digits = 0;
        constexpr qsizetype kMost = 15;
        for (; digits < kMost && digits < m_rest.size() && m_rest[digits] >= '0' && m_rest[digits] <= '9';
             ++digits)
            value = value * 10 + (m_rest[digits] - '0');
        m_isGood = m_isGood && digits > 0;
        m_rest = m_rest.sliced(digits);
        return value;
    }
    // Returns the object's number.
    int reference()
    {
        const qint64 object = number();
        expect("0");
        expect("R");
        return static_cast<int>(object);
    }
    QByteArrayView upTo(QByteArrayView word)
    {
        const qsizetype at = m_rest.indexOf(word);
        m_isGood = m_isGood && at >= 0;
        const QByteArrayView before = m_rest.first(std::max<qsizetype>(at, 0));
        m_rest = m_rest.sliced(at < 0 ? m_rest.size() : at + word.size());
        return before;
    }
    bool isGood() const { return m_isGood; }
    bool isAtEnd() const { return m_rest.isEmpty(); }

private:
    QByteArrayView m_rest;
    bool m_isGood = true;
};

class Reading {
public:
    explicit Reading(const PdfEnds& ends) : m_ends(ends) {}

    std::optional<PdfPages> pages()
    {
        const bool isRead = readTrailer() && readCatalog() && readPages();
        return isRead ? std::optional(std::move(m_found)) : std::nullopt;
    }

private:
    static constexpr qint64 kEntry = 20; // bytes of the table for each object

    QByteArrayView from(qint64 place) const
    {
        if (place >= m_ends.tailAt && place - m_ends.tailAt <= m_ends.tail.size())
            return QByteArrayView(m_ends.tail).sliced(place - m_ends.tailAt);
        return place < m_ends.head.size() ? QByteArrayView(m_ends.head).sliced(place) : QByteArrayView();
    }
    QByteArrayView object(int number) const
    {
        PdfReader reader(m_entries.sliced(std::min<qint64>(number * kEntry, m_entries.size())));
        const QByteArrayView bytes = from(reader.number());
        PdfReader begin(bytes);
        begin.expect(QByteArray::number(number));
        begin.expect("0 obj");
        return reader.isGood() && begin.isGood() ? bytes : QByteArrayView();
    }
    bool readTrailer()
    {
        const qsizetype last = m_ends.tail.lastIndexOf("startxref");
        PdfReader end(QByteArrayView(m_ends.tail).sliced(std::max<qsizetype>(last, 0)));
        end.expect("startxref");
        m_found.table = end.number();
        PdfReader table(from(m_found.table));
        table.expect("xref\n0");
        m_found.objects = static_cast<int>(table.number());
        table.skipBlanks();
        m_entries = table.upTo("trailer");
        PdfReader trailer(table.upTo("startxref"));
        trailer.upTo("/Info");
        m_found.info = trailer.reference();
        trailer.expect("/Root");
        m_found.catalog = trailer.reference();
        return end.isGood() && table.isGood() && trailer.isGood();
    }
    bool readCatalog()
    {
        PdfReader reader(object(m_found.catalog));
        reader.upTo("<<");
        m_found.catalogEntries = reader.upTo(">>\nendobj").toByteArray();
        PdfReader entries(m_found.catalogEntries);
        entries.upTo("/Pages");
        m_root = entries.reference();
        return reader.isGood() && entries.isGood();
    }
    bool readPages()
    {
        PdfReader reader(object(m_root));
        reader.upTo("/Kids");
        reader.expect("[");
        while (reader.isGood() && !reader.has("]"))
            m_found.pages.push_back(reader.reference());
        return reader.isGood();
    }

    const PdfEnds& m_ends;
    PdfPages m_found;
    QByteArrayView m_entries;
    int m_root = 0;
};

} // namespace

std::optional<PdfPages> readPdfPages(const PdfEnds& ends)
{
    return Reading(ends).pages();
}

PdfPages pagesOfPdf(const PdfEnds& ends, int count)
{
    std::optional<PdfPages> found = readPdfPages(ends);
    if (found && found->pages.size() == static_cast<std::size_t>(count))
        return *std::move(found);
    throw RunTimeError(ErrorNumber::BadFileMode)
        .withAdvice(QCoreApplication::translate("PdfPages", "No bookmarks can be put into this PDF file: "
                                                            "please tell us, and export another kind of "
                                                            "file meanwhile."));
}
