// All windows have this base: they are loaded at first use (also without being shown) and unloaded by
// closing, and a guard lies round every handler.
//
// The order of events is Form_Load once, Form_Resize whenever the size changed; closing asks
// Form_QueryUnload, then runs Form_Unload, then the window is gone and `unloaded` is told. A window that is
// closed while one of its handlers runs (a loop that yields) is hidden at once and unloaded when that handler
// has ended: such a loop tests closing() after each yield. Questions over it are cancelled.
#pragma once

#include "base/runtimeerror.h"

#include <QMainWindow>

#include <functional>
#include <utility>
#include <vector>

class Dialogs;
class Program;
class QAction;
class QCheckBox;
class QLabel;
class QMenu;
class QPushButton;

class Form : public QMainWindow {
    Q_OBJECT

public:
    Form(Dialogs& dialogs, Program& program, const char* name, const QString& caption);
    ~Form() override;

    void load();             // runs Form_Load when it has not run yet
    void showForm();         // loads, shows, brings to the front
    void showWithoutFocus(); // a loaded one: the active window stays active
    // Puts it above its owner for good, as a dialog of it; it is called before the window is first shown.
    void standOver(Form& owner);
    void unload();

    // Tells that the window was closed, or the program is ending: a loop that yields has to end.
    bool closing() const;
    bool isGone() const { return m_gone; }
    bool isLoading() const { return m_loading; }

    // Runs a handler: an error that it does not trap is shown in the system's box and ends it, and with it
    // the program when it is one that stops the program.
    void guard(const std::function<void()>& handler);

    QSize innerSize() const; // in pixels, without menu bar

Q_SIGNALS:
    void unloaded();

protected:
    virtual void Form_Load() {}
    virtual bool Form_QueryUnload() { return true; }
    virtual void Form_Unload() {}
    virtual void Form_Resize() {}
    // With setKeyPreview a key that is pressed in any control of this window comes here first. Key codes are
    // the old ones (27 Escape, 33 Page Up ...), 0 for keys that have none here; the shift state adds 1 for
    // Shift, 2 for Ctrl, 4 for Alt. It is true when the key is done with: the control does not get it then.
    virtual bool Form_KeyDown(int keyCode, int shift);
    // Gets, after that, a character that is typed without Ctrl or Alt; Escape is 27.
    virtual bool Form_KeyPress(QChar typed);
    void setKeyPreview();

    // Tells that a handler is running, or something that it yielded to.
    bool busy() const { return m_depth > 0; }

    // A control is made of this. The name is the object name; "&" in a caption marks the access key.
    struct ButtonRow {
        QPushButton*& member;
        const char* name;
        QString caption;
        QString toolTip;
        std::function<void()> handler;
        QString icon;
    };
    void makeButtons(std::initializer_list<ButtonRow> rows);

    struct LabelRow {
        QLabel*& member;
        const char* name;
        QString caption;
    };
    void makeLabels(std::initializer_list<LabelRow> rows);

    // Names a control of this window; its accessible name is what a screen reader says where it has no
    // caption.
    template <typename Widget>
    Widget* named(Widget* widget, const char* name, const QString& accessibleName = {})
    {
        widget->setObjectName(QLatin1String(name));
        if (!accessibleName.isEmpty())
            widget->setAccessibleName(accessibleName);
        return widget;
    }

    // Sets the buttons that Enter (while no other button has the focus) and Escape press; either may be
    // missing.
    void setKeys(QPushButton* enter, QPushButton* escape);

    // Returns two buttons in the order that the desktop has for answers.
    QList<QPushButton*> inDesktopOrder(QPushButton* accept, QPushButton* reject) const;

    // Notes that the window has been placed: showing it does not centre it.
    void placeHere() { m_placed = true; }

    // Returns the wanted inner size, or what the screen has room for.
    static QSize fittingSize(QSize wanted);
    // Returns that, or as much more as the texts of the layout take in the desktop's font.
    void resizeFor(QSize wanted);
    // Makes it a small window to answer and close, without minimising or maximising.
    void makeDialog();

    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

    Dialogs& dialogs() const { return m_dialogs; }
    Program& program() const { return m_program; }

private:
    void report(const RunTimeError& error, bool stops);
    void finishUnload();
    void resized();
    void centre();
    void decorate();

    Dialogs& m_dialogs;
    Program& m_program;
    std::vector<std::pair<QPushButton*, QString>> m_icons; // drawn when the window is first shown, if ever
    QPushButton* m_enter = nullptr;
    QPushButton* m_escape = nullptr;
    int m_depth = 0;
    bool m_loaded = false;
    bool m_loading = false;
    bool m_closing = false;
    bool m_gone = false;
    bool m_placed = false;
};
