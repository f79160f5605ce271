#include "tests/toolkit/pages/previewtest.h"
#include "toolkit/widgets/menustyle.h"
#include <QApplication>
#include <QScreen>
TEST_F(PreviewTest, look)
{
    QApplication::setStyle(new MenuStyle);
    if (qEnvironmentVariableIsSet("DARK")) {
        QPalette p;
        p.setColor(QPalette::Window, QColor(0x2b, 0x2d, 0x30));
        p.setColor(QPalette::WindowText, QColor(0xe6, 0xe6, 0xe6));
        p.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
        p.setColor(QPalette::Text, QColor(0xe6, 0xe6, 0xe6));
        p.setColor(QPalette::Button, QColor(0x3a, 0x3c, 0x40));
        p.setColor(QPalette::ButtonText, QColor(0xe6, 0xe6, 0xe6));
        p.setColor(QPalette::Highlight, QColor(0x4a, 0x88, 0xc7));
        p.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3c, 0x40));
        p.setColor(QPalette::ToolTipText, QColor(0xe6, 0xe6, 0xe6));
        QApplication::setPalette(p);
    }
    design.pageHeader = {{.fields = {{.text = u"Songs"_qs, .font = {16, true}}}},
                         {.above = 6,
                          .fields = {{.width = 480, .text = u"Artist:"_qs, .font = {9, true}},
                                     {.left = 500, .width = 500, .text = u"Song:"_qs, .font = {9, true}}}},
                         {.isRule = true}};
    design.pageFooter = {
        {.above = 8,
         .fields = {{.width = 300, .text = u"%p Of %P"_qs},
                    {.left = 500, .width = 500, .text = u"%D"_qs, .align = FieldAlign::Right}}}};
    open(100000);
    QTest::qWait(400);
    const auto shot = [this](const char* n) {
        QTest::qWait(150);
        QScreen* s = QGuiApplication::primaryScreen();
        s->grabWindow(0).save(QStringLiteral("%1_%2.png").arg(qEnvironmentVariable("OUT"), QLatin1String(n)));
    };
    shot("open");
    form->pageView->goToPage(812);
    form->actFind->trigger();
    type(u"song 58"_qs);
    QTest::qWait(700);
    key(Qt::Key_Return);
    shot("find");
    key(Qt::Key_Escape);
    form->pageView->setFit(PageView::Fit::Page);
    key(Qt::Key_Tab);
    shot("page");
    form->pageView->setZoom(0.5);
    form->workBar->begin(u"Exporting"_qs);
    form->workBar->show();
    form->workBar->prgWork->setValue(400);
    shot("work");
}
