#include "skin/facetext.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextDocument>

#include <algorithm>

namespace {

constexpr int kMostPoints = 400;

} // namespace

QString shownToolTip(const QString& text)
{
    const QString shown = text.left(kMostOfToolTip);
    return Qt::mightBeRichText(shown) ? QStringLiteral("<span>%1</span>").arg(shown.toHtmlEscaped()) : shown;
}

QFont skinFont(const QString& name, int points)
{
    QFont font(name);
    font.setPixelSize(std::max(1, std::min(points, kMostPoints) * 96 / 72));
    font.setBold(false);
    return font;
}

HotArea::HotArea(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
}

void HotArea::paintEvent(QPaintEvent*) {}

FaceLabel::FaceLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void FaceLabel::setLook(const QColor& colour, const QString& font, int points)
{
    m_colour = colour;
    setFont(skinFont(font, points));
    update();
}

void FaceLabel::setCaption(const QString& caption)
{
    if (caption == text())
        return;
    setText(caption);
}

void FaceLabel::paintEvent(QPaintEvent*)
{
    if (text().isEmpty())
        return;
    QPainter painter(this);
    painter.setPen(m_colour);
    const QFontMetrics metrics(font());
    if (height() >= 2 * metrics.lineSpacing())
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, text());
    else
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                         metrics.elidedText(text(), Qt::ElideRight, width()));
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
