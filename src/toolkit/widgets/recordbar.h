// Is the bar at the foot of a window that walks through records, four small buttons with the position between
// them. Distances are fixed, in twips; at the position's right end, where it has nothing to say, stand the
// number of records and what a search came to.
#pragma once

#include <QWidget>

class PictureButton;
class QLabel;

class RecordBar : public QWidget {
    Q_OBJECT

public:
    explicit RecordBar(QWidget* parent = nullptr);

    PictureButton* cmdFirst;
    PictureButton* cmdPrevious;
    PictureButton* cmdNext;
    PictureButton* cmdLast;
    QLabel* lblStatus;
    QLabel* lblTotal;
    QLabel* lblFound;

    static QString totalText(int records); // "1,812 records"

    void setButtonsEnabled(bool enabled);
    void setTotal(int records);
    void setFound(const QString& text); // "Nothing found"; empty for nothing to say
    void placeIn(int windowWidth);      // pixels

private:
    void placeTexts();

    QString m_found; // the whole of it
};
