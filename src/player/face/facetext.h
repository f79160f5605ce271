// These parts of the face are drawn at the screen's own pixels, above the composed face, so that text and
// photos are as sharp as the screen: labels and the cover.
#pragma once

#include "player/face/onface.h"

#include <QBasicTimer>
#include <QColor>
#include <QImage>
#include <QLabel>

// Shows one line, its end cut with dots, or several where the label is high enough, from the left and the
// top. What is cut is told whole by the tool tip, before the skin's; a label that scrolls shows it piece by
// piece.
class FaceLabel : public QLabel, public OnFace {
    Q_OBJECT

public:
    explicit FaceLabel(QWidget* parent = nullptr);

    void setClickable() { m_clickable = true; } // else a press on it is one on the face

    void setLook(const QColor& colour, const QString& font, int points);
    void setCaption(const QString& caption);
    void setOpaque(bool on); // its box shows, for who makes a skin
    bool isOpaque() const { return m_opaque; }
    void setScrolls(bool on); // a line that is too long, to the left and begun anew
    bool isCut() const;       // of one line
    QString tipShown() const;

Q_SIGNALS:
    void clicked(); // the left button

protected:
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void takePlace() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString visibleText(int lines) const;
    bool hasLines() const { return height() >= 2 * fontMetrics().lineSpacing(); }
    QString line() const;
    void followWidth();
    void paintLine(QPainter& painter) const;

    QString m_font;
    int m_points = 0;
    QColor m_colour;
    bool m_opaque = false;
    bool m_clickable = false;
    bool m_pressed = false;
    bool m_scrolls = false;
    QBasicTimer m_timer; // while it scrolls
    int m_shift = 0;     // pixels to the left
};

// Shows a picture as large as its box has room for, in its own proportions.
class CoverBox : public QWidget, public OnFace {
    Q_OBJECT

public:
    explicit CoverBox(QWidget* parent = nullptr) : QWidget(parent), OnFace(static_cast<QWidget&>(*this)) {}

    const QImage& picture() const { return m_picture; }
    void setPicture(const QImage& picture); // a null one: none

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_picture;
};

// Returns a skin's tool tip as the toolkit takes it: never as a page with pictures of its own.
inline constexpr int kMostOfToolTip = 1000;
QString shownToolTip(const QString& text);

// Returns a font of a skin: points are of 96 to an inch, whatever the screen has, and smaller with the face.
QFont skinFont(const QString& name, int points, qreal factor);
