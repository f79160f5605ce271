#include "toolkit/widgets/menustyle.h"

#include "toolkit/widgets/linklabel.h"
#include "toolkit/widgets/picturebutton.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionFocusRect>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

double part(int value)
{
    const double v = value / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

double contrast(QRgb a, QRgb b)
{
    const auto light = [](QRgb c) {
        return 0.2126 * part(qRed(c)) + 0.7152 * part(qGreen(c)) + 0.0722 * part(qBlue(c)) + 0.05;
    };
    const auto [low, high] = std::minmax({light(a), light(b)});
    return high / low;
}

QPalette darkPalette()
{
    QPalette dark(QColor(60, 60, 60), QColor(45, 45, 45));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Highlight, QColor(20, 60, 120));
    return dark;
}

struct MenuStyleTest : testing::Test {
    QWidget window;
    QVBoxLayout layout{&window};
    QPushButton other{u"other"_qs};

    MenuStyleTest() { layout.addWidget(&other); }
    ~MenuStyleTest() override { other.setParent(nullptr); }

    // Returns how many pixels change three to one or more when the control gets the focus, for each pixel of
    // its width and height.
    double plainPixels(QWidget& control)
    {
        layout.addWidget(&control, 0, Qt::AlignLeft);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        other.setFocus(Qt::TabFocusReason);
        QTest::qWait(10); // drawings come a turn later
        const QImage without = control.grab().toImage();
        control.setFocus(Qt::TabFocusReason);
        EXPECT_TRUE(control.hasFocus());
        const QImage with = control.grab().toImage();
        int changed = 0;
        for (int y = 0; y < with.height(); ++y)
            for (int x = 0; x < with.width(); ++x)
                changed += contrast(with.pixel(x, y), without.pixel(x, y)) >= 3 ? 1 : 0;
        return static_cast<double>(changed) / (with.width() + with.height());
    }
};

} // namespace

TEST_F(MenuStyleTest, theFocusIsSeenOnEveryKindOfControl)
{
    QStyle* before = QApplication::style();
    const QString name = before->objectName();
    QApplication::setStyle(new MenuStyle);
    for (const QPalette& palette : {QApplication::style()->standardPalette(), darkPalette()}) {
        QApplication::setPalette(palette);
        std::vector<std::unique_ptr<QWidget>> controls;
        controls.push_back(std::make_unique<QPushButton>(u"Push"_qs));
        controls.push_back(std::make_unique<QToolButton>());
        static_cast<QToolButton&>(*controls.back()).setText(u"Tool"_qs);
        static_cast<QToolButton&>(*controls.back()).setAutoRaise(true);
        controls.back()->setFocusPolicy(Qt::StrongFocus);
        controls.push_back(std::make_unique<QCheckBox>(u"Check"_qs));
        controls.push_back(std::make_unique<QRadioButton>(u"Radio"_qs));
        controls.push_back(std::make_unique<QLineEdit>(u"text"_qs));
        controls.push_back(std::make_unique<QComboBox>());
        static_cast<QComboBox&>(*controls.back()).addItem(u"entry"_qs);
        controls.push_back(std::make_unique<LinkLabel>(u"https://songbin.example/"_qs));
        controls.push_back(std::make_unique<PictureButton>(u":/icons/first.svg"_qs));
        controls.back()->setFixedSize(24, 24);
        auto list = std::make_unique<QListWidget>();
        list->setFixedSize(160, 60);
        list->addItem(u"item"_qs);
        list->setCurrentRow(0);
        controls.push_back(std::move(list));
        for (const auto& control : controls)
            EXPECT_GE(plainPixels(*control), 1)
                << control->metaObject()->className() << ' ' << palette.window().color().name().toStdString();
    }
    QApplication::setStyle(name);
    QApplication::setPalette(QPalette());
}

TEST(MenuStyle, aFocusHasTheColourOfTheHighlight)
{
    const QColor blue(48, 140, 198);
    EXPECT_NEAR(MenuStyle::focusColour(blue, {QColor(239, 239, 239), Qt::white}).hue(), blue.hue(), 3);
    EXPECT_EQ(MenuStyle::focusColour(Qt::darkBlue, {Qt::white}), QColor(Qt::darkBlue));
}

TEST(MenuStyle, aFocusStandsOutFromAllThatItMayLieOn)
{
    for (const QList<QColor>& grounds :
         {QList<QColor>{Qt::white}, {Qt::black}, {QColor(239, 239, 239), Qt::white}, {QColor(40, 40, 40)}})
        for (const QColor& highlight :
             {QColor(Qt::yellow), QColor(48, 140, 198), QColor(Qt::darkBlue), QColor(Qt::white)})
            for (const QColor& ground : grounds)
                EXPECT_GE(contrast(MenuStyle::focusColour(highlight, grounds).rgb(), ground.rgb()), 3)
                    << highlight.name().toStdString() << " on " << ground.name().toStdString();
}
