#include "toolkit/richtext/richtextbox.h"

#include "base/dospath.h"
#include "platform/opennumber.h"
#include "toolkit/richtext/textdocument.h"
#include "toolkit/richtext/textfile.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextFrame>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 kLargestFile = 16 << 20;
constexpr qreal kZoomStep = 1.1;
constexpr qreal kLeastZoom = 0.5;
constexpr qreal kMostZoom = 5;
constexpr qreal kLeastMargin = 20;
constexpr int kLongestLine = 82; // characters; from longer ones an eye does not find its way back

RunTimeError tooLong(const QString& path)
{
    return RunTimeError(ErrorNumber::InvalidPropertyValue,
                        QStringLiteral("the text of %1 is too long to be shown").arg(dospath::fileName(path)))
        .withAdvice(QStringLiteral("Open the file with a text editor."));
}

QByteArray contentOf(FileNumbers& files, const QString& path)
{
    const OpenNumber file(files);
    files.openBinary(file.number, path);
    const qint64 length = files.length(file.number);
    if (length > kLargestFile)
        throw tooLong(path);
    return files.get(file.number, 1, static_cast<int>(length));
}

QFont fixedFont(qreal pointSize)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(pointSize);
    return font;
}

} // namespace

RichTextBox::RichTextBox(FileNumbers& files, const CodePage& codePage, QWidget* parent)
    : QTextEdit(parent), m_files(files), m_codePage(codePage)
{
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
}

void RichTextBox::setFileName(const QString& path)
{
    RichText text = richTextOf(contentOf(m_files, path), m_codePage);
    if (!text.isWhole)
        throw tooLong(path);
    m_text = std::move(text);
    m_fileName = path;
    fill();
    moveCursor(QTextCursor::Start);
    Q_EMIT fileNameChanged();
}

void RichTextBox::fill()
{
    const QFont usual = font();
    fillDocument(*document(), m_text, {usual, fixedFont(usual.pointSizeF()), m_zoom});
    setMargins();
}

// A line is no longer than can be read, however wide the window is.
void RichTextBox::setMargins()
{
    const QFontMetricsF metrics(fixedFont(font().pointSizeF() * m_zoom));
    const qreal longest = kLongestLine * metrics.horizontalAdvance(u'0');
    QTextFrameFormat format = document()->rootFrame()->frameFormat();
    const qreal margin = std::max(kLeastMargin, (viewport()->width() - longest) / 2);
    if (format.leftMargin() == margin)
        return;
    format.setMargin(kLeastMargin);
    format.setLeftMargin(margin);
    format.setRightMargin(margin);
    document()->rootFrame()->setFrameFormat(format);
}

void RichTextBox::resizeEvent(QResizeEvent* event)
{
    QTextEdit::resizeEvent(event);
    setMargins();
}

// The desktop's letters may change while the text is shown.
void RichTextBox::changeEvent(QEvent* event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setZoom(m_zoom);
}

void RichTextBox::setZoom(qreal zoom)
{
    m_zoom = std::clamp(zoom, kLeastZoom, kMostZoom);
    QScrollBar* bar = verticalScrollBar();
    const qreal place = bar->maximum() > 0 ? static_cast<qreal>(bar->value()) / bar->maximum() : 0;
    fill();
    bar->setValue(qRound(place * bar->maximum()));
}

void RichTextBox::keyPressEvent(QKeyEvent* event)
{
    const bool isCtrl = event->modifiers() == Qt::ControlModifier;
    if (event->matches(QKeySequence::ZoomIn) || (isCtrl && event->key() == Qt::Key_Equal))
        setZoom(m_zoom * kZoomStep);
    else if (event->matches(QKeySequence::ZoomOut))
        setZoom(m_zoom / kZoomStep);
    else if (isCtrl && event->key() == Qt::Key_0)
        setZoom(1);
    else
        QTextEdit::keyPressEvent(event);
}

void RichTextBox::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier))
        return QTextEdit::wheelEvent(event);
    setZoom(m_zoom * std::pow(kZoomStep, event->angleDelta().y() / 120.0));
    event->accept();
}
