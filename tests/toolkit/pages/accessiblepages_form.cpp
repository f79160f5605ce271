// What a screen reader is told of a preview window.
#include "tests/toolkit/pages/previewtest.h"

#include <QAccessible>

namespace {

struct AccessiblePages : PreviewTest {
    QAccessibleInterface& view() const { return *QAccessible::queryAccessibleInterface(form->pageView); }
};

} // namespace

TEST_F(AccessiblePages, thePageIsADocumentWhoseTextCanBeRead)
{
    rows = {{"Beat Boys", "one"}, {"x", "two"}};
    open();
    EXPECT_EQ(view().role(), QAccessible::Document);
    EXPECT_EQ(view().text(QAccessible::Name), u"Pages");
    QAccessibleTextInterface* text = view().textInterface();
    ASSERT_NE(text, nullptr);
    const QString whole = u"Beat Boys\tone\nx\ttwo"_qs;
    EXPECT_EQ(text->characterCount(), whole.size());
    EXPECT_EQ(text->text(0, text->characterCount()), whole);
    EXPECT_EQ(text->text(5, 9), u"Boys");
    EXPECT_TRUE(view().state().readOnly);
}

TEST_F(AccessiblePages, itIsThePageThatIsSeen)
{
    open(3000);
    form->actNext->trigger();
    EXPECT_TRUE(view().text(QAccessible::Description).startsWith(u"Page 2 of "));
    const QString text = view().textInterface()->text(0, 40);
    EXPECT_TRUE(text.startsWith(form->pageView->items(2).front().text)) << text.toStdString();
}

TEST_F(AccessiblePages, everyControlHasAName)
{
    open(10);
    form->actFind->trigger();
    form->workBar->show();
    for (const QWidget* widget : form->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() ||
            qobject_cast<const QToolButton*>(widget))
            continue;
        if (qobject_cast<const QLineEdit*>(widget) && qobject_cast<const QComboBox*>(widget->parent()))
            continue; // the box's own
        QAccessibleInterface* control = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        EXPECT_FALSE(control->text(QAccessible::Name).isEmpty())
            << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
    }
    for (QToolButton* button : form->findChildren<QToolButton*>())
        EXPECT_FALSE(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name).isEmpty() &&
                     button->isVisible())
            << button->objectName().toStdString();
}
