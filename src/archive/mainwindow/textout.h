// Shows a text file that lies beside the program, and prints it.
#pragma once

#include "archive/core/archivecontext.h"
#include "toolkit/widgets/form.h"

class RichTextBox;
class WaitingPages;

class Textout : public Form {
    Q_OBJECT

public:
    explicit Textout(ArchiveContext& context);

    RichTextBox* RTFREG = nullptr;
    QPushButton* cmdPrint = nullptr;
    QPushButton* cmdOK = nullptr;

    // Loads the file and comes to the front. Throws what RichTextBox::setFileName throws; a window that
    // showed nothing yet is then gone.
    void open(const QString& file);

    void cmdPrint_Click();
    void cmdPrintNow_Click();
    void cmdOK_Click();

protected:
    void Form_Load() override;

private:
    void place();
    void showFileName();
    void showWaitingPages();

    ArchiveContext& m_context;
    WaitingPages* m_waitingPages = nullptr;
};
