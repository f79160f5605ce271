#include "archive/browse/frmeditor.h"

#include "archive/core/playentry.h"
#include "archive/core/sharedvalues.h"
#include "archive/core/windows.h"
#include "platform/busypointer.h"
#include "platform/dialogs.h"
#include "platform/program.h"
#include "toolkit/widgets/recordbar.h"
#include "toolkit/widgets/textfield.h"

#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <array>

namespace {

const std::array<QString, 4> kFields{QStringLiteral("fldArtist"), QStringLiteral("fldPath"),
                                     QStringLiteral("fldSong"), QStringLiteral("fldVolum")};
constexpr std::size_t kPath = 1;
constexpr std::size_t kDiskName = 3;

} // namespace

frmEditor::frmEditor(ArchiveContext& context) : RecordWindow(context, "frmEditor", tr("Songbin Editor"))
{
    makeControls();
    place();
    wire();
}

void frmEditor::wire()
{
    connect(&adoPrimaryRS, &Recordset::fieldsChanged, this, [this] { showFields(); });
    for (std::size_t i = 0; i < txtFields.size(); ++i) {
        connect(txtFields[i], &TextField::textEdited, this,
                [this, i] { guard([this, i] { fieldEdited(i); }); });
        connect(txtFields[i], &TextField::doubleClicked, this,
                [this] { guard([this] { txtFields_DblClick(); }); });
    }
}

void frmEditor::Form_Load()
{
    SetButtons(true);
    cmdFindNext->hide();
    const BusyPointer busy(program());
    try {
        openRecords();
    } catch (const RunTimeError& error) {
        explain(tr("The archive cannot be shown."), error.text());
        unload();
    }
}

void frmEditor::openRecords()
{
    connectToArchive();
    adoPrimaryRS.open(QStringLiteral("select fldArtist,fldPath,fldSong,fldVolum from MP3 Order by fldArtist"),
                      m_connection);
}

// What is pending is dropped, as Cancel drops it: a key that was hit by mistake changes no record for good.
void frmEditor::Form_Unload()
{
    cmdFindNext->hide();
    RecordWindow::Form_Unload();
    adoPrimaryRS.cancelUpdate();
}

void frmEditor::adoPrimaryRS_MoveComplete()
{
    RecordWindow::adoPrimaryRS_MoveComplete();
    showFields();
}

void frmEditor::showFields()
{
    const bool isRow = !adoPrimaryRS.bof() && !adoPrimaryRS.eof() && adoPrimaryRS.absolutePosition() > 0;
    for (std::size_t i = 0; i < txtFields.size(); ++i) {
        txtFields[i]->setText(isRow ? adoPrimaryRS.value(kFields[i]).value_or(QString()) : QString());
        txtFields[i]->setCursorPosition(0);
        txtFields[i]->setReadOnly(!isRow); // there is nothing to edit
    }
}

void frmEditor::fieldEdited(std::size_t index)
{
    adoPrimaryRS.setValue(kFields[index], txtFields[index]->text());
}

void frmEditor::cmdFindRec_Click()
{
    askAndFind(kFields[0], tr("Name/part of name of artist."));
}

void frmEditor::cmdFindSong_Click()
{
    askAndFind(kFields[2], tr("Name/part of name of song."));
}

void frmEditor::askAndFind(const QString& field, const QString& prompt)
{
    const QString answer = dialogs().inputBox(prompt, tr("Search")).value_or(QString());
    if (answer.isEmpty() || closing())
        return;
    findField = field;
    findText = answer;
    adoPrimaryRS.moveFirst();
    find();
    tellWhenNothingIsFound(tr("Nothing found: no %1 with “%2”"));
    cmdFindNext->show();
}

// Kept: what was typed stands in the criterion as it is, so an apostrophe breaks it.
void frmEditor::find()
{
    adoPrimaryRS.find(findField + QStringLiteral(" like '*") + findText + QStringLiteral("*'"));
}

void frmEditor::tellWhenNothingIsFound(const QString& text)
{
    if (adoPrimaryRS.eof())
        picStatBox->setFound(text.arg(findField == kFields[0] ? tr("artist") : tr("song"), findText));
}

// From the last record there is nowhere to look: that is a find without a hit. From behind it the move fails.
void frmEditor::cmdFindNext_Click()
{
    adoPrimaryRS.moveNext();
    if (!adoPrimaryRS.eof())
        find();
    tellWhenNothingIsFound(tr("Nothing more found: no other %1 with “%2”"));
}

void frmEditor::cmdPlay_Click()
{
    m_context.shared.PlayPath = txtFields[kPath]->text();
    SpillMusikk();
}

void frmEditor::SpillMusikk()
{
    playEntry(m_context, txtFields[kPath]->text(), txtFields[kDiskName]->text());
}

void frmEditor::Command1_Click()
{
    m_context.windows.show(WindowId::frmOptions);
}

void frmEditor::cmdAdd_Click()
{
    const bool empty = adoPrimaryRS.bof() && adoPrimaryRS.eof();
    savedBookmark = empty ? 0 : adoPrimaryRS.bookmark();
    adoPrimaryRS.addNew();
    picStatBox->lblStatus->setText(tr("Add record"));
    adding = true;
    SetButtons(false);
    txtFields[0]->setFocus();
}

// The boxes can be edited at all times: this only changes the buttons.
void frmEditor::CmdEdit_Click()
{
    picStatBox->lblStatus->setText(tr("Edit record"));
    editing = true;
    SetButtons(false);
    txtFields[0]->setFocus();
}

void frmEditor::cmdUpdate_Click()
{
    adoPrimaryRS.updateBatch();
    if (adding)
        adoPrimaryRS.moveLast();
    editing = false;
    adding = false;
    SetButtons(true);
    showPosition();
}

// Kept: without a bookmark it goes to the first record, also after an edit, and a bookmark stays good for
// later cancels.
void frmEditor::cmdCancel_Click()
{
    SetButtons(true);
    editing = false;
    adding = false;
    resumeNext([this] { adoPrimaryRS.cancelUpdate(); },
               [this] {
                   if (savedBookmark > 0)
                       adoPrimaryRS.setBookmark(savedBookmark);
                   else
                       adoPrimaryRS.moveFirst();
               });
    showPosition();
}

void frmEditor::cmdRefresh_Click()
{
    adoPrimaryRS.requery();
}

void frmEditor::cmdClose_Click()
{
    unload();
}

void frmEditor::SetButtons(bool enabled)
{
    const std::array<QPushButton*, 5> atRest{cmdAdd, cmdEdit, cmdDelete, cmdClose, cmdRefresh};
    const std::array<QPushButton*, 2> whileEditing{cmdUpdate, cmdCancel};
    const auto hide = [](QPushButton* button) { button->hide(); };
    const auto show = [](QPushButton* button) { button->show(); };
    // They are hidden first and then shown: with all of them side by side the window would grow.
    if (enabled) {
        std::for_each(whileEditing.begin(), whileEditing.end(), hide);
        std::for_each(atRest.begin(), atRest.end(), show);
    } else {
        std::for_each(atRest.begin(), atRest.end(), hide);
        std::for_each(whileEditing.begin(), whileEditing.end(), show);
    }
    picStatBox->setButtonsEnabled(enabled);
}

// While a record is edited or added the keys belong to the boxes.
bool frmEditor::Form_KeyDown(int keyCode, int shift)
{
    return !editing && !adding && RecordWindow::Form_KeyDown(keyCode, shift);
}
