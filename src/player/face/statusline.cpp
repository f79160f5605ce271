#include "player/face/statusline.h"

#include "player/face/facetext.h"

#include <QAccessible>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kShownFor = 5000; // milliseconds
constexpr qsizetype kMostCharacters = 300;
constexpr int kMostLines = 3;
constexpr QMargins kInside(8, 4, 8, 4);
constexpr int kOutside = 4; // to the face's edge
constexpr int kFlags = Qt::AlignCenter | Qt::TextWordWrap;

// It has colours of its own, because it lies on any face.
constexpr QColor kGround(24, 26, 30);
constexpr QColor kEdge(150, 156, 166);
constexpr QColor kWords(245, 246, 248);

QRect textRectangle(const QFontMetrics& metrics, int width, const QString& text)
{
    constexpr int kHighest = 1000;
    return metrics.boundingRect(QRect(0, 0, width, kHighest), kFlags, text);
}

// Returns its beginning with dots where the whole does not fit.
QString fitting(const QFontMetrics& metrics, const QString& text, QSize size)
{
    const auto fits = [&](const QString& part) {
        const QRect needed = textRectangle(metrics, size.width(), part);
        return needed.height() <= size.height() && needed.width() <= size.width();
    };
    if (fits(text))
        return text;
    qsizetype shown = 0;
    for (qsizetype step = kMostCharacters; step > 0; step /= 2)
        while (shown + step < text.size() && fits(text.left(shown + step) + u'\u2026'))
            shown += step;
    return text.left(shown) + u'\u2026';
}

} // namespace

QRect lowestBand(const QRegion& shape, int height)
{
    QRegion tops = shape; // the pixels that are the first of so many below each other
    for (int done = 1; done < height;) {
        const int step = std::min(done, height - done);
        tops &= tops.translated(0, -step);
        done += step;
    }
    int widest = 0;
    for (const QRect& run : tops)
        widest = std::max(widest, run.width());
    QRect best;
    for (const QRect& run : tops)
        if (run.width() * 3 >= widest * 2 && (best.isEmpty() || run.bottom() >= best.bottom()))
            best = run;
    return best.isEmpty() ? QRect() : QRect(best.left(), best.bottom(), best.width(), height);
}

StatusLine::StatusLine(QWidget* face, QWidget& name) : QWidget(face), m_name(name)
{
    setObjectName(QStringLiteral("StatusLine"));
    setAttribute(Qt::WA_TransparentForMouseEvents); // what lies below it can be pressed all the same
    hide();
    m_end.setSingleShot(true);
    m_end.setInterval(kShownFor);
    connect(&m_end, &QTimer::timeout, this, &StatusLine::end);
}

void StatusLine::say(const QString& text)
{
    const QString whole = m_first.isEmpty() ? text : m_first + u' ' + text.left(kMostCharacters);
    m_text = whole.left(kMostCharacters).simplified();
    m_end.stop();
    if (m_text.isEmpty())
        return end();
    borrowToolTip();
    setAccessibleName(m_text);
    arrange();
    announce();
}

void StatusLine::sayFirst(const QString& text)
{
    say(text);
    m_first = m_end.isActive() ? QString() : m_text;
}

void StatusLine::setShape(const QRegion& shape)
{
    m_shape = shape;
    if (!m_text.isEmpty())
        arrange();
}

// Returns the size of the words and what is round them, in a band of that width.
QSize StatusLine::sizeIn(int width) const
{
    const int room = std::max(width - kInside.left() - kInside.right() - 2 * kOutside, 1);
    const QSize needed = textRectangle(QFontMetrics(font()), room, m_text).size();
    return QSize(std::min(needed.width(), room), needed.height()).grownBy(kInside);
}

// It takes as few lines as it needs, and no more than there is a place for.
void StatusLine::arrange()
{
    QRect place;
    for (int lines = 1; lines <= kMostLines; ++lines) {
        const int most = lines * QFontMetrics(font()).lineSpacing() + kInside.top() + kInside.bottom();
        const QRect band = lowestBand(m_shape, most + 2 * kOutside);
        if (band.isEmpty())
            break;
        const QSize needed = sizeIn(band.width());
        place = QRect({}, QSize(needed.width(), std::min(needed.height(), most)));
        place.moveCenter(band.center());
        if (needed.height() <= most)
            break;
    }
    setGeometry(place);
    setVisible(!place.isEmpty());
    raise();
    update();
    if (place.isEmpty()) // it is seen in the tool tip alone
        begin();
}

void StatusLine::begin()
{
    m_first.clear();
    if (!m_end.isActive())
        m_end.start();
}

// A reader says a notification that appears. One that is there already appears again.
void StatusLine::announce()
{
    for (const QAccessible::Event what : {QAccessible::NameChanged, QAccessible::ObjectShow}) {
        QAccessibleEvent event(this, what);
        QAccessible::updateAccessibility(&event);
    }
}

void StatusLine::borrowToolTip()
{
    if (m_borrowed.isEmpty() || m_name.toolTip() != m_borrowed)
        m_skinsOwn = m_name.toolTip();
    m_borrowed = shownToolTip(m_text);
    m_name.setToolTip(m_borrowed);
}

// A skin that was loaded meanwhile has given it another.
void StatusLine::giveToolTipBack()
{
    if (!m_borrowed.isEmpty() && m_name.toolTip() == m_borrowed)
        m_name.setToolTip(m_skinsOwn);
    m_borrowed.clear();
}

void StatusLine::end()
{
    m_text.clear();
    giveToolTipBack();
    hide();
}

void StatusLine::paintEvent(QPaintEvent*)
{
    begin();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(kEdge);
    painter.setBrush(kGround);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setPen(kWords);
    const QRect words = rect().marginsRemoved(kInside);
    painter.drawText(words, kFlags, fitting(QFontMetrics(font()), m_text, words.size()));
}
