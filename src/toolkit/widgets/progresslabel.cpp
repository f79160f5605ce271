#include "toolkit/widgets/progresslabel.h"

namespace {

constexpr int kLongestShown = 500; // characters; a label lays out all of its text

} // namespace

ProgressLabel::ProgressLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ProgressLabel::showCaption()
{
    QString shown = m_caption.left(kLongestShown);
    for (QChar& c : shown)
        if (c < u' ') // a name may hold line ends
            c = u' ';
    if (shown != text())
        setText(shown);
}

QSize ProgressLabel::sizeHint() const
{
    return minimumSizeHint();
}

QSize ProgressLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 10, fontMetrics().height() + 4};
}
