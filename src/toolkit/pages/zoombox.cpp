#include "toolkit/pages/zoombox.h"

#include "toolkit/pages/pageview.h"

#include <QLineEdit>
#include <QLocale>

#include <array>

namespace {

constexpr std::array kPercents{25, 50, 75, 100, 125, 150, 200, 300, 400};

QString percentText(int percent)
{
    return QLocale().toString(percent) + u'%';
}

// Takes "150", "150%" and "150 %"; it is 0 for what is no number.
double percentOf(QString text)
{
    return QLocale().toDouble(text.remove(u'%').trimmed());
}

} // namespace

ZoomBox::ZoomBox(PageView& view, QWidget* parent) : QComboBox(parent), m_view(view)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    addItems({tr("Fit Width"), tr("Fit Page")});
    for (const int percent : kPercents)
        addItem(percentText(percent));
    setMaxVisibleItems(count());
    connect(this, &QComboBox::textActivated, this, &ZoomBox::take);
    connect(lineEdit(), &QLineEdit::returnPressed, this, [this] { take(currentText()); });
    connect(lineEdit(), &QLineEdit::editingFinished, this, &ZoomBox::showZoom);
    connect(&view, &PageView::zoomChanged, this, &ZoomBox::showZoom);
    showZoom();
}

// What is no number leaves the zoom as it is, and shows it again.
void ZoomBox::take(const QString& text)
{
    if (text == itemText(0))
        m_view.setFit(PageView::Fit::Width);
    else if (text == itemText(1))
        m_view.setFit(PageView::Fit::Page);
    else if (const double percent = percentOf(text); percent > 0)
        m_view.setZoom(percent / 100);
    showZoom();
    m_view.setFocus();
}

void ZoomBox::showZoom()
{
    const int entry = m_view.fit() == PageView::Fit::None ? -1 : m_view.fit() == PageView::Fit::Width ? 0 : 1;
    setCurrentIndex(entry);
    setEditText(entry < 0 ? percentText(qRound(m_view.zoom() * 100)) : itemText(entry));
}
