// Makes the controls of the record editor and says where they stand.
#include "archive/browse/frmeditor.h"

#include "toolkit/widgets/recordbar.h"
#include "toolkit/widgets/textfield.h"
#include "toolkit/widgets/windowlook.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

void frmEditor::makeControls()
{
    makeLabels({{Label1, "Label1", tr("Songbin Editor")}});
    makeFields();
    makeFindButtons();
    makeRecordButtons();
    makeRecordBar();
}

void frmEditor::makeFields()
{
    const std::array<QString, 4> labels{tr("Art&ist:"), tr("&Path:"), tr("&Song:"), tr("Disk &Name:")};
    const std::array<QString, 4> names{tr("Artist"), tr("Path"), tr("Song"), tr("Disk Name")};
    for (std::size_t i = 0; i < txtFields.size(); ++i) {
        makeLabels({{lblLabels[i], "", labels[i]}});
        lblLabels[i]->setObjectName(QStringLiteral("lblLabels(%1)").arg(i));
        txtFields[i] = named(new TextField(centralWidget()), "", names[i]);
        txtFields[i]->setObjectName(QStringLiteral("txtFields(%1)").arg(i));
        lblLabels[i]->setBuddy(txtFields[i]);
    }
}

void frmEditor::makeFindButtons()
{
    makeButtons({
        {cmdFindRec, "cmdFindRec", tr("Find Artist"), tr("Find the first artist with a text in the name"),
         [this] { cmdFindRec_Click(); }, QStringLiteral("find")},
        {cmdFindSong, "cmdFindSong", tr("Find Song"), tr("Find the first song with a text in the name"),
         [this] { cmdFindSong_Click(); }, QStringLiteral("find")},
        {cmdFindNext, "cmdFindNext", tr("Find Next"), tr("Find the next one of the last search"),
         [this] { cmdFindNext_Click(); }, QStringLiteral("findnext")},
        {cmdPlay, "cmdPlay", tr("Play Song"), tr("Play this song in your music player"),
         [this] { cmdPlay_Click(); }, QStringLiteral("play")},
        {Command1, "Command1", tr("Select MP3 player to use"), tr("Choose which player opens a song"),
         [this] { Command1_Click(); }, QStringLiteral("options")},
    });
}

void frmEditor::makeRecordButtons()
{
    picButtons = named(new QWidget(centralWidget()), "picButtons");
    makeButtons({
        {cmdAdd, "cmdAdd", tr("&Add"), tr("Add a record"), [this] { cmdAdd_Click(); }, QStringLiteral("add")},
        {cmdEdit, "cmdEdit", tr("&Edit"), tr("Change this record"), [this] { CmdEdit_Click(); },
         QStringLiteral("editrecord")},
        {cmdDelete, "cmdDelete", tr("&Delete"), tr("Delete this record from the archive at once"),
         [this] { cmdDelete_Click(); }, QStringLiteral("delete")},
        {cmdRefresh, "cmdRefresh", tr("&Refresh"), tr("Read the archive again"),
         [this] { cmdRefresh_Click(); }, QStringLiteral("refresh")},
        {cmdUpdate, "cmdUpdate", tr("&Update"), tr("Save what was typed"), [this] { cmdUpdate_Click(); },
         QStringLiteral("update")},
        {cmdCancel, "cmdCancel", tr("&Cancel"), tr("Drop what was typed"), [this] { cmdCancel_Click(); },
         QStringLiteral("cancel")},
        {cmdClose, "cmdClose", tr("&Close"), {}, [this] { cmdClose_Click(); }, QStringLiteral("close")},
    });
}

void frmEditor::place()
{
    QHBoxLayout* finders =
        windowlook::commandRow({cmdFindRec, cmdFindSong, cmdFindNext}, {cmdPlay, Command1});
    finders->setContentsMargins(16, 4, 16, 4);
    QHBoxLayout* bar =
        windowlook::commandRow({cmdAdd, cmdEdit, cmdUpdate, cmdCancel, cmdDelete, cmdRefresh}, {cmdClose});
    bar->setContentsMargins(16, 8, 16, 8);
    picButtons->setLayout(bar);

    auto* column = new QVBoxLayout(centralWidget());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(placedFields());
    column->addLayout(finders);
    column->addStretch(1);
    column->addWidget(picButtons);
    column->addWidget(picStatBox);
    SetButtons(true); // those for editing take the place of others
    resizeFor({720, 380});
}

QLayout* frmEditor::placedFields()
{
    windowlook::makeHeading(*Label1);
    auto* fields = new QGridLayout;
    fields->setContentsMargins(16, 14, 16, 4);
    fields->setHorizontalSpacing(12);
    fields->setVerticalSpacing(10);
    fields->setColumnStretch(1, 1);
    fields->addWidget(Label1, 0, 0, 1, 3);
    for (int i = 0; i < 4; ++i) {
        fields->addWidget(lblLabels[static_cast<std::size_t>(i)], i + 1, 0);
        fields->addWidget(txtFields[static_cast<std::size_t>(i)], i + 1, 1, 1, 2);
    }
    return fields;
}
