#include "archive/browse/searchform.h"

#include "archive/browse/querytext.h"
#include "toolkit/widgets/choicebox.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace {

const QString kCustom = QStringLiteral("Custom");
const QString kFirstExtension = QStringLiteral("MP3");

} // namespace

SearchForm::SearchForm(ArchiveContext& context, ShowResult showResult)
    : Form(context.platform.dialogs, context.platform.program, "SearchForm", tr("Search criteria")),
      m_showResult(std::move(showResult))
{
    makeControls();
    place();
    connect(Combo1, &QComboBox::activated, this, [this] { guard([this] { Combo1_Click(); }); });
}

void SearchForm::Form_Load()
{
    showCustomExt(false);
    CustomExt->setText(kFirstExtension);
    Option1[1]->setChecked(true);
    Combo1->addItems({kFirstExtension, QStringLiteral("MP2"), QStringLiteral("WAV"), QStringLiteral("MID"),
                      QStringLiteral("VQF"), QStringLiteral("AAC"), QStringLiteral("LQT"),
                      QStringLiteral("WMA"), QStringLiteral("ASF"), kCustom});
    Combo1->setText(kFirstExtension);
}

void SearchForm::Combo1_Click()
{
    CustomExt->setText(Combo1->currentText());
    const bool custom = Combo1->currentText() == kCustom;
    showCustomExt(custom);
    if (!custom)
        return;
    CustomExt->setText(kFirstExtension);
    CustomExt->setFocus();
    CustomExt->selectAll();
}

void SearchForm::showCustomExt(bool visible)
{
    CustomExt->setVisible(visible);
    Label13->setVisible(visible);
}

// Kept: a result that is open already stays as it is and only comes to the front.
void SearchForm::cmdSearch_Click()
{
    m_showResult();
}

void SearchForm::cmdCancel_Click()
{
    unload();
}

bool SearchForm::combinesWithAnd() const
{
    return Option1[1]->isChecked();
}

Criteria SearchForm::criteria() const
{
    return {.artist = txtArtist->text(),
            .path = txtPath->text(),
            .song = txtSong->text(),
            .diskName = txtVolum->text(),
            .album = txtAlbum->text(),
            .year = txtYear->text(),
            .comment = txtComment->text(),
            .extension = CustomExt->text()};
}

std::array<QLineEdit*, 7> SearchForm::criterionBoxes() const
{
    return {txtArtist, txtAlbum, txtComment, txtPath, txtSong, txtVolum, txtYear};
}

void SearchForm::markEmptyBoxes()
{
    for (QLineEdit* box : criterionBoxes())
        if (box->text().isEmpty())
            box->setText(querytext::kNoMatch);
}

void SearchForm::emptyMarkedBoxes()
{
    for (QLineEdit* box : criterionBoxes())
        if (box->text() == querytext::kNoMatch)
            box->clear();
}
