#include "skin/facetext.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace {

constexpr int kMostPoints = 400;

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
}

void FaceLabel::setCaption(const QString& caption)
{
    if (caption == text())
        return;
    setText(caption);
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

// No more than there may be room for: a name can be millions of characters long.
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
    const QFontMetrics metrics(font());
    const int lines = height() / std::max(metrics.lineSpacing(), 1);
    if (lines >= 2)
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, visibleText(lines + 1));
    else
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                         metrics.elidedText(visibleText(1), Qt::ElideRight, width()));
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
