// Lists the drives of this machine to choose from, each with its letter and volume name ("D: [ROCK_01]").
#pragma once

#include <QComboBox>

class Drives;

class DriveList : public QComboBox {
    Q_OBJECT

public:
    explicit DriveList(Drives& drives, QWidget* parent = nullptr);

    QString
    drive() const; // the chosen one's text; begins with the letter and a colon, empty when there is none
    // Takes the drive that the text begins with; throws RunTimeError DeviceUnavailable when there is none
    // or it is not ready.
    void setDrive(const QString& text);
    // Goes back to the drive that the text begins with, to none when it is no longer listed, and tells
    // nobody.
    void takeBack(const QString& text);

    void showPopup() override; // with the drives as they are now

Q_SIGNALS:
    void driveChanged();
    void driveRefused(); // the user chose one that is not ready; the list is back at the one before

private:
    void fill();
    int indexOfLetter(QChar letter) const;
    bool isReady(int index) const;
    void choose(int index);

    Drives& m_drives;
    int m_accepted = -1;
};
