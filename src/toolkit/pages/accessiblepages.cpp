#include "toolkit/pages/accessiblepages.h"

#include "toolkit/pages/pageview.h"
#include "toolkit/pages/reportlayout.h"

#include <QAccessibleWidget>

#include <algorithm>

namespace {

// Returns the page's lines; fields that stand side by side are separated by tabs.
QString textOf(const std::vector<PageItem>& items)
{
    QString text;
    double line = -1;
    for (const PageItem& item : items) {
        if (item.isRule || item.text.isEmpty())
            continue;
        if (!text.isEmpty())
            text += item.place.top() > line ? u'\n' : u'\t';
        line = item.place.top();
        text += item.text;
    }
    return text;
}

// Is a text without a cursor and without a selection.
class AccessiblePages : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit AccessiblePages(PageView* view) : QAccessibleWidget(view, QAccessible::Document), m_view(*view)
    {
    }

    QString pageText() const { return m_view.layout() ? textOf(m_view.items(m_view.page())) : QString(); }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? pageText() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.multiLine = true;
        return state;
    }

    QString text(int start, int end) const override { return pageText().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(pageText().size()); }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    QString attributes(int, int* start, int* end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    void scrollToSubstring(int, int) override {}

private:
    PageView& m_view;
};

QAccessibleInterface* accessibleFor(const QString&, QObject* object)
{
    auto* view = qobject_cast<PageView*>(object);
    return view ? new AccessiblePages(view) : nullptr;
}

} // namespace

void makePagesAccessible()
{
    QAccessible::installFactory(accessibleFor); // once for all
}
