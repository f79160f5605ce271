// Is the toolkit's own file dialog, which takes paths of the program, too ("D:\Backups\old.Bck"), and to open
// a file any name that is typed; whether it is there is told when it is asked for.
#pragma once

#include <QFileDialog>

class Drives;
class QLineEdit;

class DriveFileDialog : public QFileDialog {
    Q_OBJECT

public:
    DriveFileDialog(Drives& drives, QWidget* parent);

protected:
    void accept() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool opensFile() const;
    QString meant(const QString& typed) const;
    void allowTyped();

    Drives& m_drives;
    QLineEdit* m_name;
    QWidget* m_button = nullptr; // "Open", or "Save"
};
