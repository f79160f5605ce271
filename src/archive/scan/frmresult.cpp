#include "archive/scan/frmresult.h"

#include "platform/printer.h"
#include "platform/program.h"
#include "toolkit/grids/flexgrid.h"
#include "toolkit/widgets/progresslabel.h"
#include "toolkit/widgets/waitingpages.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>

#include <utility>

// Holds the hourglass, and the buttons that would get in the way, while a scan or an import runs.
class frmResult::Working {
public:
    Working(frmResult& form, Work work) : m_form(form)
    {
        m_form.program().setBusyPointer(true);
        m_form.showWork(work);
    }
    ~Working()
    {
        m_form.program().setBusyPointer(false);
        m_form.showWork(Work::None);
    }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

private:
    frmResult& m_form;
};

frmResult::frmResult(ArchiveContext& context, Scanner::SetupSource setup, CellEditor cellEditor)
    : Form(context.platform.dialogs, context.platform.program, "frmResult", tr("Result")), m_context(context),
      m_scanner(context, setup, *this), m_setup(std::move(setup)), m_cellEditor(std::move(cellEditor)),
      m_glance([this](const QWindow& window, const QEvent& event) { return isStop(window, event); })
{
    makeControls();
    place();
    m_preview = std::make_unique<GridPreview>(
        context.platform,
        PreviewedGrid{.name = QStringLiteral("frmResultPreview"),
                      .title = windowTitle(),
                      .grid = MSFlexGrid1,
                      .textAt = [this](int row, int column) { return MSFlexGrid1->textAt(row, column); }});
}

void frmResult::Form_Load()
{
    showWaitingPages();
    const Working working(*this, Work::Scan);
    if (m_setup().includesSubdirectories()) {
        showForm();
        Command1_Click();
        return;
    }
    stopOnError([this] { m_scanner.scanDirectory(); });
    showNow();
}

// Kept: pressed again it scans into the grid as it stands.
void frmResult::Command1_Click()
{
    const Working working(*this, Work::Scan);
    m_scanner.scanTree();
    showNow();
}

void frmResult::cmd_Print_Click()
{
    const Working working(*this, Work::Print);
    m_context.platform.printer.print(gridText());
    showWaitingPages();
}

// Kept: what is printed waits for the program's end, unless somebody wants it now.
void frmResult::cmdPrintNow_Click()
{
    m_context.platform.printer.endDocument();
    showWaitingPages();
}

void frmResult::showWaitingPages()
{
    m_waitingPages->setVisible(m_context.platform.printer.hasOpenDocument());
}

QString frmResult::gridText() const
{
    QString text;
    for (int row = 0; row < MSFlexGrid1->Rows(); ++row)
        for (int col = 0; col < MSFlexGrid1->Cols(); ++col)
            text += MSFlexGrid1->textAt(row, col) + (col + 1 < MSFlexGrid1->Cols() ? u'\t' : u'\n');
    return text;
}

void frmResult::cmdUpdate_Click()
{
    {
        const Working working(*this, Work::Import);
        m_cellEditor.close();
        InsertGridRows(m_context, *MSFlexGrid1, *this);
    }
    unload();
}

void frmResult::cmdCancel_Click()
{
    unload();
}

void frmResult::MSFlexGrid1_DblClick()
{
    if (m_work != Work::Import)
        m_cellEditor.open();
}

// An import ends with this window's unload anyway; closing it on the way is put off until then.
bool frmResult::Form_QueryUnload()
{
    return m_work != Work::Import;
}

void frmResult::Form_Unload()
{
    m_cellEditor.close();
    m_preview->close();
}

void frmResult::showWork(Work work)
{
    m_work = work;
    Command1->setEnabled(work == Work::None);
    cmd_Print->setEnabled(work == Work::None);
    cmdPreview->setEnabled(work == Work::None);
    cmdUpdate->setEnabled(work == Work::None);
    cmdCancel->setEnabled(work != Work::Import);
}

void frmResult::clearFiles()
{
    m_files->clear();
}

void frmResult::addFile(const QString& path)
{
    m_files->table().append({path});
}

int frmResult::fileCount() const
{
    return m_files->table().rows();
}

void frmResult::addRow(const QStringList& values)
{
    MSFlexGrid1->addItem(values);
}

void frmResult::setLabel1(const QString& text)
{
    Label1->setCaption(text);
}

void frmResult::setLabel5(const QString& text)
{
    Label5->setCaption(text);
}

void frmResult::setWaiting(const QString& text)
{
    lblWaiting->setText(text);
    lblWaiting->setVisible(!text.isEmpty());
}

void frmResult::setNote(const QString& text)
{
    if (text == lblNote->text())
        return;
    lblNote->setText(text);
    lblNote->setVisible(!text.isEmpty());
}

void frmResult::setEmptyReason(const QString& text)
{
    lblEmpty->setText(text);
    lblEmpty->setVisible(!text.isEmpty() && MSFlexGrid1->Rows() == 0);
}

// The label alone is painted: rows that show would make the window lay itself out, which is the yields'
// affair.
bool frmResult::stopWished()
{
    if (!m_glancePace.due())
        return closing();
    Label1->showCaption();
    Label1->repaint();
    if (m_glance.stopWished())
        unload();
    return closing();
}

// While a directory alone is scanned this window is not there yet, and Escape in any other means the scan.
bool frmResult::isStop(const QWindow& window, const QEvent& event)
{
    if (windowHandle() && &window != windowHandle())
        return false;
    if (event.type() == QEvent::KeyPress) {
        const int key = static_cast<const QKeyEvent&>(event).key();
        const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
        return key == Qt::Key_Escape || (presses && windowHandle() && cmdCancel->hasFocus());
    }
    if (!windowHandle())
        return false;
    return event.type() == QEvent::Close || isCancelClick(event);
}

// Tells whether it was pressed and let go over the button, be it that the press was still handled as ever.
bool frmResult::isCancelClick(const QEvent& event)
{
    const bool press = event.type() == QEvent::MouseButtonPress;
    if (!press && event.type() != QEvent::MouseButtonRelease)
        return false;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const QPoint place = cmdCancel->mapFrom(this, mouse.position().toPoint());
    const bool over = mouse.button() == Qt::LeftButton && cmdCancel->rect().contains(place);
    const bool wasPressed = std::exchange(m_cancelPressed, press && over);
    return over && !press && (wasPressed || cmdCancel->isDown());
}

// Rows behind the last visible one only move the scroll bars, which need not follow as often as the labels.
void frmResult::showProgress()
{
    m_glance.handOn();
    if (!m_labelPace.due())
        return;
    showLabels();
    if (!MSFlexGrid1->isFull() || m_growthPace.due())
        showGrowth();
}

void frmResult::showNow()
{
    m_glance.handOn();
    showLabels();
    showGrowth();
}

void frmResult::showLabels()
{
    Label1->showCaption();
    Label5->showCaption();
}

void frmResult::showGrowth()
{
    MSFlexGrid1->showGrowth();
    m_files->showGrowth();
}
