// Makes the controls of the search form and says where they stand.
#include "archive/browse/searchform.h"

#include "toolkit/widgets/choicebox.h"
#include "toolkit/widgets/textfield.h"
#include "toolkit/widgets/windowlook.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

void SearchForm::makeControls()
{
    struct BoxRow {
        QLineEdit*& member;
        const char* name;
        QString label;
        QString accessibleName;
    };
    const std::initializer_list<BoxRow> boxes = {
        {txtArtist, "txtArtist", tr("Name of &Artist:"), tr("Name of Artist")},
        {txtSong, "txtSong", tr("Name of &Song:"), tr("Name of Song")},
        {txtAlbum, "txtAlbum", tr("Name of A&lbum:"), tr("Name of Album")},
        {txtYear, "txtYear", tr("Which &year:"), tr("Which year")},
        {txtComment, "txtComment", tr("String in &comment:"), tr("String in comment")},
        {txtVolum, "txtVolum", tr("Disk &volum:"), tr("Disk volum")},
        {txtPath, "txtPath", tr("Which &path:"), tr("Which path")},
    };
    makeLabels({
        {m_heading, "Label1", tr("Search criteria")},
        {m_hint, "Label10", tr("You may just type a part of a string:")},
        {m_example, "Label11", tr("Nord, for example, finds the artist Nordlys Trio.")},
        {m_boolean, "Label12", tr("Search using boolean expr.:")},
        {m_type, "Label9", tr("&Type of file:")},
        {Label13, "Label13", tr("Type &ext. here:")},
    });
    std::size_t index = 0;
    for (const BoxRow& row : boxes) {
        QLabel*& label = m_labels[index++];
        makeLabels({{label, "", row.label}});
        label->setObjectName(QStringLiteral("Label%1").arg(index + 1));
        row.member = named(new TextField(centralWidget()), row.name, row.accessibleName);
        row.member->setClearButtonEnabled(true);
        label->setBuddy(row.member);
    }
    Option1[1] = named(new QRadioButton(tr("An&d"), centralWidget()), "Option1(1)");
    Option1[2] = named(new QRadioButton(tr("&Or"), centralWidget()), "Option1(2)");
    Combo1 = named(new ChoiceBox(centralWidget()), "Combo1", tr("Type of file"));
    CustomExt = named(new TextField(centralWidget()), "CustomExt", tr("Extension"));
    m_type->setBuddy(Combo1);
    Label13->setBuddy(CustomExt);
    makeButtons({
        {cmdSearch, "cmdSearch", tr("Search"), tr("Show the songs that fit"), [this] { cmdSearch_Click(); },
         QStringLiteral("search")},
        {cmdCancel, "cmdCancel", tr("Cancel"), {}, [this] { cmdCancel_Click(); }, QStringLiteral("cancel")},
    });
    setKeys(cmdSearch, cmdCancel);
}

void SearchForm::place()
{
    windowlook::makeHeading(*m_heading);
    constexpr QSize kWanted(560, 480);
    const bool small = fittingSize(kWanted).height() < 430; // such as a notebook's at double scale
    m_heading->setVisible(!small);                          // the title bar says it, too
    auto* grid = new QGridLayout(centralWidget());
    grid->setContentsMargins(20, small ? 6 : 16, 20, small ? 6 : 16);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(small ? 3 : 8);
    grid->setColumnStretch(1, 1);
    int row = 0;
    grid->addWidget(m_heading, row++, 0, 1, 3);
    grid->addWidget(m_hint, row++, 0, 1, 3);
    grid->addWidget(m_example, row++, 0, 1, 3);
    grid->setRowMinimumHeight(row++, 4);
    const std::array<QLineEdit*, 7> boxes{txtArtist,  txtSong,  txtAlbum, txtYear,
                                          txtComment, txtVolum, txtPath};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        grid->addWidget(m_labels[i], row, 0);
        grid->addWidget(boxes[i], row++, 1, 1, 2);
    }
    grid->setRowMinimumHeight(row++, 4);
    auto* options = new QHBoxLayout;
    options->addWidget(Option1[1]);
    options->addSpacing(16);
    options->addWidget(Option1[2]);
    options->addStretch(1);
    grid->addWidget(m_boolean, row, 0);
    grid->addLayout(options, row++, 1, 1, 2);
    auto* type = new QHBoxLayout;
    type->addWidget(Combo1);
    type->addSpacing(16);
    type->addWidget(Label13);
    type->addSpacing(8);
    type->addWidget(CustomExt);
    type->addStretch(1);
    grid->addWidget(m_type, row, 0);
    grid->addLayout(type, row++, 1, 1, 2);
    grid->setRowStretch(row++, 1);
    grid->addLayout(windowlook::commandRow({}, inDesktopOrder(cmdSearch, cmdCancel)), row, 0, 1, 3);
    Combo1->setMinimumWidth(110);
    CustomExt->setFixedWidth(110);
    resizeFor(kWanted);
}
