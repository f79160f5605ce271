#include "system/desktop/qtprinter.h"

#include "base/runtimeerror.h"
#include "base/textrules.h"
#include "system/desktop/pagelines.h"
#include "system/desktop/printerturn.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QTextLayout>

#include <cmath>

namespace {

constexpr qreal kFontSize = 10;               // points
constexpr QMarginsF kMargins(15, 15, 15, 15); // millimetres

// The font is unhinted and unkerned, so that a line is as long as its characters are wide.
QFont pageFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(kFontSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    return font;
}

} // namespace

class QtPrinter::Document {
public:
    Document(const QString& pdfFile, Orientation orientation);
    ~Document() { m_painter.end(); }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    void turnTo(Orientation orientation);
    void addText(const QString& text);

private:
    static void refuse() { throw RunTimeError(ErrorNumber::PrinterError); }
    void openPrinter(const QString& pdfFile);
    void setOrientation(Orientation orientation);
    void measurePage();
    void beginPage();
    void addPlainLine(const QString& line);
    void addAnyLine(const QString& line);
    qreal placeFor(qreal height); // its upper edge

    QPrinter m_printer{QPrinter::HighResolution};
    QPainter m_painter;
    QFont m_font = pageFont();
    Orientation m_orientation = Orientation::Portrait;
    QSizeF m_page;
    qreal m_lineHeight = 0;
    qreal m_ascent = 0;
    qreal m_used = 0;
    int m_columns = 0;
};

QtPrinter::Document::Document(const QString& pdfFile, Orientation orientation)
{
    setOrientation(orientation);
    openPrinter(pdfFile);
    m_painter.setFont(m_font);
    measurePage();
}

void QtPrinter::Document::setOrientation(Orientation orientation)
{
    m_orientation = orientation;
    const bool isWide = orientation == Orientation::Landscape;
    m_printer.setPageOrientation(isWide ? QPageLayout::Landscape : QPageLayout::Portrait);
}

void QtPrinter::Document::measurePage()
{
    const QFontMetricsF metrics(m_font, &m_printer);
    m_page = m_printer.pageRect(QPrinter::DevicePixel).size();
    m_lineHeight = metrics.lineSpacing();
    m_ascent = metrics.ascent();
    m_columns = static_cast<int>(std::floor(m_page.width() / metrics.horizontalAdvance(u'0')));
    if (m_columns < 1 || m_lineHeight > m_page.height())
        refuse();
}

// The page in work keeps its orientation: the printer takes another up with the next page.
void QtPrinter::Document::turnTo(Orientation orientation)
{
    if (orientation == m_orientation)
        return;
    setOrientation(orientation);
    beginPage();
    measurePage();
}

void QtPrinter::Document::beginPage()
{
    if (!m_printer.newPage())
        refuse();
    m_used = 0;
}

void QtPrinter::Document::openPrinter(const QString& pdfFile)
{
    if (!pdfFile.isEmpty()) {
        m_printer.setOutputFormat(QPrinter::PdfFormat);
        m_printer.setOutputFileName(pdfFile);
    }
    m_printer.setDocName(QCoreApplication::applicationName());
    m_printer.setPageMargins(kMargins, QPageLayout::Millimeter);
    if (!m_painter.begin(&m_printer)) // the only sign of there being no printer
        refuse();
}

qreal QtPrinter::Document::placeFor(qreal height)
{
    if (m_used > 0 && m_used + height > m_page.height())
        beginPage();
    const qreal top = m_used;
    m_used += height;
    return top;
}

void QtPrinter::Document::addText(const QString& text)
{
    QStringList lines = textrules::lines(text);
    if (lines.isEmpty())
        lines += QString();
    for (const QString& line : pagelines::withoutTabs(lines, m_columns))
        pagelines::isPlain(line) ? addPlainLine(line) : addAnyLine(line);
}

void QtPrinter::Document::addPlainLine(const QString& line)
{
    for (const QString& piece : pagelines::broken(line, m_columns))
        m_painter.drawText(QPointF(0, placeFor(m_lineHeight) + m_ascent), piece);
}

// Characters that another font lends are of any width and height.
void QtPrinter::Document::addAnyLine(const QString& line)
{
    QTextLayout layout(line, m_font, &m_printer);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    while (true) {
        QTextLine piece = layout.createLine();
        if (!piece.isValid())
            break;
        piece.setLineWidth(m_page.width());
    }
    layout.endLayout();
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine piece = layout.lineAt(i);
        piece.draw(&m_painter, QPointF(0, placeFor(std::max(piece.height(), m_lineHeight))));
    }
}

QtPrinter::QtPrinter(QString pdfFile) : m_pdfFile(std::move(pdfFile)) {}

QtPrinter::~QtPrinter()
{
    // Destroying it without the application would crash, and with a printing system that does not answer it
    // would take for ever; held here, a leak checker sees that it is meant.
    [[maybe_unused]] static Document* volatile abandoned = nullptr;
    resumeNext([this] { endDocument(); });
    if (m_document)
        abandoned = m_document.release();
}

void QtPrinter::print(const QString& text)
{
    const PrinterTurn turn(PrinterTurn::kPatience);
    try {
        if (!m_document)
            m_document = std::make_unique<Document>(m_pdfFile, m_orientation);
        m_document->turnTo(m_orientation);
        m_document->addText(text);
    } catch (const RunTimeError&) {
        m_document.reset();
        throw;
    }
}

void QtPrinter::endDocument()
{
    if (!m_document || QCoreApplication::instance() == nullptr)
        return;
    const PrinterTurn turn(PrinterTurn::kPatience);
    m_document.reset();
}

// The open document writes its file until it is ended.
QString QtPrinter::fileBeside()
{
    if (m_pdfFile.isEmpty() || !m_document)
        return m_pdfFile;
    const QFileInfo file(m_pdfFile);
    const QString ending = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
    QString name;
    do
        name = file.path() + u'/' + file.completeBaseName() + u'-' + QString::number(++m_beside + 1) + ending;
    while (QFileInfo::exists(name) ||
           QFileInfo(name).isSymLink()); // nobody named it, so it must be a new one
    return name;
}

void QtPrinter::printAtOnce(const QStringList& lines)
{
    if (lines.isEmpty())
        return;
    const PrinterTurn turn(PrinterTurn::kPatience);
    Document document(fileBeside(), m_orientation);
    for (const QString& line : lines)
        document.addText(line);
}
