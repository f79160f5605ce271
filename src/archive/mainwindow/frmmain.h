// Is the start-up window and the hub of the program: it prepares the archive and the settings, then offers
// every function as a button and as a menu entry. Closing it ends the program.
#pragma once

#include "archive/core/archivecontext.h"
#include "archive/core/windows.h"
#include "toolkit/widgets/form.h"

class PictureButton;
class QFrame;
class QLabel;
class QToolButton;

class frmMain : public Form {
    Q_OBJECT

public:
    explicit frmMain(ArchiveContext& context);

    QToolButton* CmdScn = nullptr;
    QToolButton* CmdSearch = nullptr;
    QToolButton* CmdEdit = nullptr;
    QToolButton* CmdFullList = nullptr;
    QToolButton* CmdFullRep = nullptr;
    QToolButton* cmdArtistSong = nullptr;
    QToolButton* CmdMP3Ply = nullptr;
    QToolButton* cmdWEB = nullptr;
    QToolButton* Command1 = nullptr;
    PictureButton* Image1 = nullptr;
    QFrame* Frame1 = nullptr;
    QAction* mnuTipSh = nullptr;
    QLabel* lblNotice = nullptr; // below the picture; null as long as there is nothing to tell

    void Scan_Click();
    void Search_Click();
    void Edit_Click();
    void mnuListe_Click();
    void mnuArtistSong_Click();
    void report_Click();
    void mnuOptions_Click();
    void mnuAbout_Click();
    void Image1_Click();
    void Exit_Click();
    void mnyMP3Player_Click();
    void mnuTipSh_Click();
    void mnuBackup_Click();
    void mnuRestore_Click();
    void mnuUpdateHist_Click();
    void mnuUpdates_Click();
    void mnuHomePage_Click();

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct BigButton {
        QToolButton*& member;
        const char* name;
        QString caption;
        QString toolTip;
        QString icon;
        std::function<void()> handler;
        bool offered;
    };
    struct Entry {
        const char* name;
        QString caption;
        std::function<void()> handler;
        bool offered = true;
    };

    // These are in pixels. A screen that is small at its scale gets smaller buttons.
    struct Sizes {
        QSize button;
        QSize icon;
        QSize picture;
        int abovePicture;
        QSize window;
    };
    static Sizes sizesForScreen();
    QSize smallestSize() const; // no button covers another

    void drawIcons();
    void makeBigButtons();
    void makeBigButton(const BigButton& row);
    void sizeBigButtons();
    void shrinkCaptions(qreal factor);
    void placeBigButtons();
    void makeCommand1();
    void makePicture();
    void makeMenus();
    QMenu* makeMenu(QMenu* parent, const char* name, const QString& caption);
    QAction* addEntry(QMenu* menu, const Entry& row);
    void addSeparator(QMenu* menu, const char* name);
    bool offers(WindowId window) const; // a command of a window that is not there is disabled

    void showNotice(const QString& text);
    void showTipIfWanted();
    void restoreWindowState();
    void restorePlayerChoice();
    void tellUnread();
    int currentWindowState() const;

    ArchiveContext& m_context;
    Sizes m_size = sizesForScreen();
    std::vector<std::pair<QToolButton*, QString>> m_icons; // still to be drawn
};
