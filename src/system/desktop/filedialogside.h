// Adds what the program's file dialogs show besides files: its drives at their side, by their letters and
// volume names, and columns as wide as what stands in them. The toolkit keeps both for all of its programs;
// it gets them back as they were.
#pragma once

#include <QIcon>
#include <QList>
#include <QObject>
#include <QUrl>

class Drives;
class QFileDialog;
class QHeaderView;

class FileDialogSide : public QObject {
    Q_OBJECT

public:
    // Serves a dialog that the toolkit draws itself.
    FileDialogSide(QFileDialog& dialog, Drives& drives);
    ~FileDialogSide() override;

private:
    struct Shortcut {
        QUrl directory;
        QString text;
        QIcon icon;
    };

    void findDrives(Drives& drives);
    void showDrives();
    void nameDrives();
    void showColumns();

    QFileDialog& m_dialog;
    QHeaderView& m_columns;
    QList<Shortcut> m_shortcuts;
    QList<QUrl> m_sideBefore;
    QByteArray m_columnsBefore;
    QByteArray m_splitBefore;
    bool m_naming = false;
};
