#include "toolkit/pages/pdfoutline.h"

#include "toolkit/pages/exportprogress.h"
#include "toolkit/pages/piecewriter.h"
#include "toolkit/pages/showncharacter.h"

namespace {

// Are the neighbours of a bookmark, by their places in the list; -1 stands for none.
struct Kin {
    int parent = -1;
    int previous = -1;
    int next = -1;
    int first = -1;
    int last = -1;
    int children = 0;
};

// The last one of the list stands for the outline itself.
std::vector<Kin> kinOf(const std::vector<PdfBookmark>& bookmarks)
{
    const int root = static_cast<int>(bookmarks.size());
    std::vector<Kin> kin(bookmarks.size() + 1);
    const auto of = [&](int place) -> Kin& { return kin[static_cast<std::size_t>(place)]; };
    std::vector<int> open{root}; // the outline, and the bookmark of each level that another may be put into
    for (int place = 0; place < root; ++place) {
        const int level = bookmarks[static_cast<std::size_t>(place)].level;
        open.resize(std::min(open.size(), static_cast<std::size_t>(level) + 1));
        Kin& parent = of(open.back());
        of(place).parent = open.back();
        of(place).previous = parent.last;
        (parent.last < 0 ? parent.first : of(parent.last).next) = place;
        parent.last = place;
        ++parent.children;
        open.push_back(place);
    }
    return kin;
}

// A reader of the file shows control characters in ways of its own, and obeys those that turn a text round.
QChar shownUnit(QChar unit)
{
    if (showncharacter::turnsText(unit.unicode()))
        return QChar::ReplacementCharacter;
    const bool isBlank = unit.unicode() < u' ' || showncharacter::isBlank(unit.unicode());
    return isBlank ? QChar(u' ') : unit;
}

QString shownTitle(const QString& title)
{
    constexpr qsizetype kLongest = 200;
    QString shown = title.left(kLongest);
    if (!shown.isEmpty() && shown.back().isHighSurrogate())
        shown.chop(1);
    for (QChar& unit : shown)
        unit = shownUnit(unit);
    return shown.size() < title.size() ? shown + QChar(0x2026) : shown;
}

QByteArray pdfText(const QString& text)
{
    QByteArray hex = "<FEFF";
    for (const QChar unit : text)
        hex += QByteArray::number(unit.unicode() | 0x10000, 16).sliced(1);
    return hex + '>';
}

class OutlineWriter {
public:
    OutlineWriter(const PdfPages& file, const std::vector<PdfBookmark>& bookmarks, PieceWriter& out)
        : m_file(file), m_bookmarks(bookmarks), m_kin(kinOf(bookmarks)), m_out(out)
    {
    }

    bool write(const BookmarkTitle& title, ExportProgress& progress)
    {
        m_places.reserve(m_kin.size());
        for (std::size_t i = 0; i < m_bookmarks.size(); ++i) {
            if (!progress.goesOn(1))
                return false;
            writeBookmark(static_cast<int>(i), title(m_bookmarks[i]));
        }
        writeRoot();
        writeCatalog();
        writeTable();
        m_out.flush();
        return true;
    }

private:
    int objectOf(int place) const { return m_file.objects + place; }
    int root() const { return static_cast<int>(m_bookmarks.size()); }
    void add(const char* name, int place)
    {
        if (place >= 0)
            m_out.add(name + QByteArray::number(objectOf(place)) + " 0 R");
    }
    void begin(int place)
    {
        m_places.push_back(m_out.written());
        m_out.add(QByteArray::number(objectOf(place)) + " 0 obj\n<<");
    }
    void addChildren(const Kin& kin, int count)
    {
        add("/First ", kin.first);
        add("/Last ", kin.last);
        if (kin.first >= 0)
            m_out.add("/Count " + QByteArray::number(count));
        m_out.add(">>\nendobj\n");
    }
    void writeBookmark(int place, const QString& title)
    {
        const PdfBookmark& bookmark = m_bookmarks[static_cast<std::size_t>(place)];
        const Kin& kin = m_kin[static_cast<std::size_t>(place)];
        const auto page = m_file.pages[static_cast<std::size_t>(bookmark.page)];
        begin(place);
        m_out.add("/Title " + pdfText(shownTitle(title)) + "/Dest[" + QByteArray::number(page) +
                  " 0 R/XYZ null " + QByteArray::number(double(bookmark.top), 'f', 1) + " null]");
        add("/Parent ", kin.parent);
        add("/Prev ", kin.previous);
        add("/Next ", kin.next);
        addChildren(kin, -kin.children); // closed, as the sign tells
    }
    void writeRoot()
    {
        begin(root());
        m_out.add("/Type/Outlines");
        addChildren(m_kin.back(), m_kin.back().children);
    }
    void writeCatalog()
    {
        m_catalog = m_out.written();
        m_out.add(QByteArray::number(m_file.catalog) + " 0 obj\n<<" + m_file.catalogEntries);
        add("/Outlines ", root());
        m_out.add("/PageMode/UseOutlines/ViewerPreferences<</DisplayDocTitle true>>>>\nendobj\n");
    }
    void addPlace(qint64 place)
    {
        m_out.add(QByteArray::number(place).rightJustified(10, '0') + " 00000 n \n");
    }
    void writeTable()
    {
        const qint64 table = m_out.written();
        m_out.add("xref\n" + QByteArray::number(m_file.catalog) + " 1\n");
        addPlace(m_catalog);
        m_out.add(QByteArray::number(m_file.objects) + ' ' + QByteArray::number(m_kin.size()) + '\n');
        for (const qint64 place : m_places)
            addPlace(place);
        m_out.add("trailer\n<</Size " + QByteArray::number(objectOf(root()) + 1) + "/Info " +
                  QByteArray::number(m_file.info) + " 0 R/Root " + QByteArray::number(m_file.catalog) +
                  " 0 R/Prev " + QByteArray::number(m_file.table) + ">>\nstartxref\n" +
                  QByteArray::number(table) + "\n%%EOF\n");
    }

    const PdfPages& m_file;
    const std::vector<PdfBookmark>& m_bookmarks;
    std::vector<Kin> m_kin;
    PieceWriter& m_out;
    std::vector<qint64> m_places; // in the file, of the bookmarks and the outline
    qint64 m_catalog = 0;
};

} // namespace

bool writeOutline(const PdfPages& file, const std::vector<PdfBookmark>& bookmarks, const BookmarkTitle& title,
                  PieceWriter& out, ExportProgress& progress)
{
    return OutlineWriter(file, bookmarks, out).write(title, progress);
}
