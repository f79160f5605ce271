#include "toolkit/grids/headinglabels.h"

#include <QLabel>
#include <QPainter>
#include <QScrollBar>

namespace {

constexpr int kIndent = 6;

} // namespace

HeadingLabels::HeadingLabels(const std::vector<Heading>& headings, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setSectionsClickable(false);
    setMinimumHeight(fontMetrics().height() + 12);
    for (const Heading& heading : headings) {
        auto* label = new QLabel(heading.caption, viewport());
        label->setObjectName(QLatin1String(heading.name));
        label->setIndent(kIndent);
        label->setAttribute(Qt::WA_TransparentForMouseEvents); // the header below drags the borders
        QFont bold = label->font();
        bold.setBold(true);
        label->setFont(bold);
        m_labels.push_back(label);
    }
    connect(this, &QHeaderView::sectionResized, this, &HeadingLabels::place);
    connect(this, &QHeaderView::sectionCountChanged, this, &HeadingLabels::place);
}

QSize HeadingLabels::sectionSizeFromContents(int column) const
{
    return label(column)->sizeHint() + QSize(kIndent, 0);
}

void HeadingLabels::paintSection(QPainter* painter, const QRect& rect, int) const
{
    painter->fillRect(rect, palette().button());
    painter->setPen(palette().color(QPalette::Mid));
    painter->drawLine(rect.topRight(), rect.bottomRight());
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
}

void HeadingLabels::updateGeometries()
{
    QHeaderView::updateGeometries();
    place();
}

void HeadingLabels::resizeEvent(QResizeEvent* event)
{
    QHeaderView::resizeEvent(event);
    place();
}

void HeadingLabels::place()
{
    for (int column = 0; column < static_cast<int>(m_labels.size()); ++column)
        label(column)->setGeometry(sectionViewportPosition(column), 0, sectionSize(column) - 1, height() - 1);
}
