// The controls of the record editor and where they stand.
#include "archive/browse/frmeditor.h"

#include "toolkit/widgets/picturebutton.h"
#include "toolkit/widgets/recordbar.h"
#include "toolkit/widgets/textfield.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

void frmEditor::makeControls()
{
    makeLabels({{Label1, "Label1", QStringLiteral("Songbin Editor")}});
    makeFields();
    makeFindButtons();
    makeRecordButtons();
    picStatBox = named(new RecordBar(centralWidget()), "picStatBox");
    connectBar();
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
        {cmdFindRec, "cmdFindRec", QStringLiteral("Find Artist"),
         tr("Find the first artist with a text in the name"), [this] { cmdFindRec_Click(); },
         QStringLiteral("find")},
        {cmdFindSong, "cmdFindSong", QStringLiteral("Find Song"),
         tr("Find the first song with a text in the name"), [this] { cmdFindSong_Click(); },
         QStringLiteral("find")},
        {cmdFindNext, "cmdFindNext", QStringLiteral("Find Next"), tr("Find the next one of the last search"),
         [this] { cmdFindNext_Click(); }, QStringLiteral("findnext")},
        {cmdPlay, "cmdPlay", QStringLiteral("Play Song"), tr("Play this song in your music player"),
         [this] { cmdPlay_Click(); }, QStringLiteral("play")},
        {Command1, "Command1", QStringLiteral("Select MP3 player to use"),
         tr("Choose which player opens a song"), [this] { Command1_Click(); }, QStringLiteral("options")},
    });
}

void frmEditor::makeRecordButtons()
{
    picButtons = named(new QWidget(centralWidget()), "picButtons");
    makeButtons({
        {cmdAdd, "cmdAdd", QStringLiteral("&Add"), tr("Add a record"), [this] { cmdAdd_Click(); },
         QStringLiteral("add")},
        {cmdEdit, "cmdEdit", QStringLiteral("&Edit"), tr("Change this record"), [this] { CmdEdit_Click(); },
         QStringLiteral("editrecord")},
        {cmdDelete, "cmdDelete", QStringLiteral("&Delete"), tr("Delete this record from the archive at once"),
         [this] { cmdDelete_Click(); }, QStringLiteral("delete")},
        {cmdRefresh, "cmdRefresh", QStringLiteral("&Refresh"), tr("Read the archive again"),
         [this] { cmdRefresh_Click(); }, QStringLiteral("refresh")},
        {cmdUpdate, "cmdUpdate", QStringLiteral("&Update"), tr("Save what was typed"),
         [this] { cmdUpdate_Click(); }, QStringLiteral("update")},
        {cmdCancel, "cmdCancel", QStringLiteral("&Cancel"), tr("Drop what was typed"),
         [this] { cmdCancel_Click(); }, QStringLiteral("cancel")},
        {cmdClose,
         "cmdClose",
         QStringLiteral("&Close"),
         {},
         [this] { cmdClose_Click(); },
         QStringLiteral("close")},
    });
}

void frmEditor::place()
{
    QFont large = Label1->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    large.setBold(true);
    Label1->setFont(large);

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
    auto* finders = new QHBoxLayout;
    finders->setContentsMargins(16, 4, 16, 4);
    finders->setSpacing(8);
    for (QPushButton* button : {cmdFindRec, cmdFindSong, cmdFindNext}) {
        button->setMinimumSize(100, 34);
        finders->addWidget(button);
    }
    finders->addStretch(1);
    for (QPushButton* button : {cmdPlay, Command1}) {
        button->setMinimumSize(std::max(100, button->sizeHint().width()), 34);
        finders->addWidget(button);
    }
    auto* bar = new QHBoxLayout(picButtons);
    bar->setContentsMargins(16, 8, 16, 8);
    bar->setSpacing(8);
    for (QPushButton* button : {cmdAdd, cmdEdit, cmdUpdate, cmdCancel, cmdDelete, cmdRefresh}) {
        button->setMinimumSize(104, 34);
        bar->addWidget(button);
    }
    bar->addStretch(1);
    cmdClose->setMinimumSize(104, 34);
    bar->addWidget(cmdClose);

    auto* column = new QVBoxLayout(centralWidget());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(fields);
    column->addLayout(finders);
    column->addStretch(1);
    column->addWidget(picButtons);
    column->addWidget(picStatBox);
    SetButtons(true); // those for editing take the place of others
    resizeFor({720, 380});
}

void frmEditor::connectBar()
{
    const auto run = [this](PictureButton* button, void (frmEditor::*handler)()) {
        connect(button, &PictureButton::clicked, this,
                [this, handler] { guard([this, handler] { (this->*handler)(); }); });
    };
    run(picStatBox->cmdFirst, &frmEditor::cmdFirst_Click);
    run(picStatBox->cmdPrevious, &frmEditor::cmdPrevious_Click);
    run(picStatBox->cmdNext, &frmEditor::cmdNext_Click);
    run(picStatBox->cmdLast, &frmEditor::cmdLast_Click);
}

void frmEditor::Form_Resize()
{
    picStatBox->placeIn(innerSize().width());
}
