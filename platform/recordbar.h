// The bar at the foot of a window that walks through records: four small buttons with the position between
// them. Distances are fixed, in twips.
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

    void setButtonsEnabled(bool enabled);
    void placeIn(int windowWidth); // pixels
};
