#include "player/face/facetext.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace {

constexpr int kMostPoints = 400;
constexpr qsizetype kMostShown = 1000; // characters of one line; a name may have millions
constexpr int kScrollTick = 40;        // milliseconds
constexpr int kRest = 50;              // ticks before it begins
const QString kBetween = QStringLiteral("   \u2022   ");

} // namespace

QString shownToolTip(const QString& text)
{
    const QString shown = text.left(kMostOfToolTip);
    return Qt::mightBeRichText(shown) ? QStringLiteral("<span>%1</span>").arg(shown.toHtmlEscaped()) : shown;
}

QFont skinFont(const QString& name, int points, qreal factor)
{
    const int pixels = std::min(points, kMostPoints) * 96 / 72;
    QFont font(name);
    font.setPixelSize(std::max(1, static_cast<int>(pixels * factor)));
    font.setBold(false);
    return font;
}

FaceLabel::FaceLabel(QWidget* parent) : QLabel(parent), OnFace(static_cast<QWidget&>(*this))
{
    setTextFormat(Qt::PlainText);
    setMouseTracking(true);
}

void FaceLabel::setLook(const QColor& colour, const QString& font, int points)
{
    m_colour = colour;
    m_font = font;
    m_points = points;
    setFont(skinFont(m_font, m_points, factor()));
    update();
}

void FaceLabel::takePlace()
{
    setFont(skinFont(m_font, m_points, factor()));
    OnFace::takePlace();
    followWidth();
}

void FaceLabel::setCaption(const QString& caption)
{
    if (caption == text())
        return;
    setText(caption);
    m_shift = -kRest;
    followWidth();
}

void FaceLabel::setScrolls(bool on)
{
    if (m_scrolls == on)
        return;
    m_scrolls = on;
    m_shift = -kRest;
    followWidth();
}

// A line break in a name is a blank.
QString FaceLabel::line() const
{
    return text().left(kMostShown).replace(u'\n', u' ');
}

bool FaceLabel::isCut() const
{
    return !hasLines() && (text().size() > kMostShown || fontMetrics().horizontalAdvance(line()) > width());
}

QString FaceLabel::tipShown() const
{
    if (!isCut())
        return toolTip();
    const QString whole = shownToolTip(text());
    return toolTip().isEmpty() || Qt::mightBeRichText(whole + toolTip()) ? whole : whole + u'\n' + toolTip();
}

void FaceLabel::followWidth()
{
    if (!m_scrolls || !isCut()) {
        m_timer.stop();
        m_shift = -kRest;
    } else if (!m_timer.isActive()) {
        m_timer.start(kScrollTick, this);
    }
    update();
}

void FaceLabel::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        return QLabel::timerEvent(event);
    if (++m_shift >= fontMetrics().horizontalAdvance(line() + kBetween))
        m_shift = -kRest;
    if (m_shift >= 0 && isVisible())
        update();
}

bool FaceLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tipShown(), this);
    return true;
}

void FaceLabel::setOpaque(bool on)
{
    m_opaque = on;
    update();
}

void FaceLabel::mousePressEvent(QMouseEvent* event)
{
    m_pressed = m_clickable && event->button() == Qt::LeftButton;
    event->setAccepted(m_pressed);
}

void FaceLabel::mouseReleaseEvent(QMouseEvent* event)
{
    const bool wasPressed = std::exchange(m_pressed, false);
    event->setAccepted(wasPressed);
    if (wasPressed && rect().contains(event->position().toPoint()))
        Q_EMIT clicked();
}

// It returns no more than there may be room for: a name can be millions of characters long.
QString FaceLabel::visibleText(int lines) const
{
    constexpr int kCharactersOfAPixel = 4; // with what stands above and below letters
    return text().left(qsizetype(kCharactersOfAPixel) * std::max(width(), 1) * lines);
}

void FaceLabel::paintEvent(QPaintEvent*)
{
    if (text().isEmpty() && !m_opaque)
        return;
    QPainter painter(this);
    if (m_opaque)
        painter.fillRect(rect(), QColor(m_colour.lightness() < 128 ? Qt::white : Qt::darkGray));
    painter.setPen(m_colour);
    const int lines = height() / std::max(fontMetrics().lineSpacing(), 1);
    if (hasLines())
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, visibleText(lines + 1));
    else
        paintLine(painter);
}

void FaceLabel::paintLine(QPainter& painter) const
{
    constexpr int kHow = Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine;
    if (!m_timer.isActive() || m_shift < 0) {
        painter.drawText(rect(), kHow, fontMetrics().elidedText(line(), Qt::ElideRight, width()));
        return;
    }
    const QString shown = line() + kBetween;
    const int length = fontMetrics().horizontalAdvance(shown);
    for (int left = -m_shift; left < width(); left += length)
        painter.drawText(QRect(left, 0, length, height()), kHow, shown);
}

void CoverBox::setPicture(const QImage& picture)
{
    m_picture = picture;
    update();
}

void CoverBox::paintEvent(QPaintEvent*)
{
    if (m_picture.isNull())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QSize size = m_picture.size().scaled(this->size(), Qt::KeepAspectRatio);
    painter.drawImage(QRect({(width() - size.width()) / 2, (height() - size.height()) / 2}, size), m_picture);
}
