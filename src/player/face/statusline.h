// Shows one line of words of the player's own, for what its displays have no place for: it lies on the face
// for some seconds, in a place of its own making, because no skin has a field for it.
#pragma once

#include <QRegion>
#include <QTimer>
#include <QWidget>

// Returns where something so high fits as low as possible: a piece of the shape's lowest rows that is about
// as wide as any other. It is empty when it fits nowhere.
QRect lowestBand(const QRegion& shape, int height);

class StatusLine : public QWidget {
    Q_OBJECT

public:
    // `name` is the label whose tool tip says the same for as long.
    StatusLine(QWidget* face, QWidget& name);

    // Takes the place of what was said before. Its time begins when it is first seen: a window may be
    // minimised.
    void say(const QString& text);
    // Does the same, but what is said before it was seen comes behind it.
    void sayFirst(const QString& text);
    // Takes the window's shape, of which no pixel beyond can be seen.
    void setShape(const QRegion& shape);
    const QString& text() const { return m_text; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void arrange();
    QSize sizeIn(int width) const;
    void announce();
    void borrowToolTip();
    void giveToolTipBack();
    void begin(); // its time
    void end();

    QWidget& m_name;
    QTimer m_end{this};
    QRegion m_shape;
    QString m_text;
    QString m_first;    // what was said first, until it is seen
    QString m_borrowed; // the tool tip that it put there
    QString m_skinsOwn; // and the one that was there before
};
