// Lists the directories of a drive: the way from the root to the chosen one, and what is in it. A double
// click or Enter asks for the entry to be chosen.
#pragma once

#include <QIcon>
#include <QListWidget>

class Files;

class DirectoryList : public QListWidget {
    Q_OBJECT

public:
    explicit DirectoryList(Files& files, QWidget* parent = nullptr);

    const QString& path() const { return m_path; } // "D:\", "D:\Music"; no trailing backslash but at the root
    // It throws as Files::list does; the old path then stays.
    void setPath(const QString& path);

protected:
    void keyPressEvent(QKeyEvent* event) override;

Q_SIGNALS:
    void chosen(const QString& path); // by the user; setPath(path) follows when the owner agrees
    void pathChanged();

private:
    void fill(const QStringList& subdirectories);
    void addEntry(const QString& name, const QString& path, int depth, bool open);

    Files& m_files;
    QString m_path;
    QIcon m_closed;
    QIcon m_open;
};
