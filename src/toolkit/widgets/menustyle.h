// Is the desktop's style, less one icon and with a focus that can be seen.
//
// The icon is a menu bar's overflow arrow, for which the toolkit reads all of its picture plug-ins at every
// start (measured: 2 of 30 ms). Our windows never become narrower than their menu bar. The focus is a frame
// of two pixels inside the control, three times lighter or darker than what it lies on.
#pragma once

#include <QProxyStyle>

class MenuStyle : public QProxyStyle {
    Q_OBJECT

public:
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

    // Returns the highlight, or so much darker or lighter a colour that it stands out from these.
    static QColor focusColour(QColor highlight, const QList<QColor>& grounds);
};
