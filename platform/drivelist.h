// The drives of this machine to choose from, each with its letter and volume name ("D: [ROCK_01]").
#pragma once

#include <QComboBox>

class Drives;

class DriveList : public QComboBox {
    Q_OBJECT

public:
    explicit DriveList(Drives& drives, QWidget* parent = nullptr);

    QString
    drive() const; // the chosen one's text; begins with the letter and a colon, empty when there is none
    // Takes the drive that the text begins with; throws RunTimeError 68 when there is none.
    void setDrive(const QString& text);

    void showPopup() override; // with the drives as they are now

Q_SIGNALS:
    void driveChanged();

private:
    void fill();
    int indexOfLetter(QChar letter) const;

    Drives& m_drives;
};
