#include "archive/scan/frmsearch.h"

#include "archive/core/settings.h"
#include "archive/core/sharedvalues.h"
#include "base/dospath.h"
#include "base/textrules.h"
#include "platform/program.h"
#include "platform/usersettings.h"
#include "toolkit/widgets/directorylist.h"
#include "toolkit/widgets/drivelist.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace {

const QString kCustom = QStringLiteral("Custom");
const QString kFirstExtension = QStringLiteral("MP3");

} // namespace

frmSearch::frmSearch(ArchiveContext& context, ShowResult showResult)
    : Form(context.platform.dialogs, context.platform.program, "frmSearch", tr("Search")), m_context(context),
      m_showResult(std::move(showResult))
{
    makeControls();
}

// It is wired after loading, which sets everything itself and ignores errors: a handler of its changes would
// tell them.
void frmSearch::wire()
{
    connect(Drive1, &DriveList::driveChanged, this, [this] { guard([this] { Drive1_Change(); }); });
    connect(Drive1, &DriveList::driveRefused, this,
            [this] { guard([] { throw RunTimeError(ErrorNumber::DeviceUnavailable); }); });
    connect(Dir1, &DirectoryList::pathChanged, this, [this] { guard([this] { Dir1_Change(); }); });
    connect(Dir1, &DirectoryList::chosen, this,
            [this](const QString& path) { guard([this, path] { Dir1->setPath(path); }); });
    connect(Combo1, &QComboBox::activated, this, [this] { guard([this] { Combo1_Click(); }); });
    connect(CustomExt, &QLineEdit::textChanged, this, [this] { guard([this] { CustomExt_Change(); }); });
    connect(ChkSub, &QCheckBox::toggled, this, [this] { guard([this] { ChkSub_Click(); }); });
}

void frmSearch::Form_Load()
{
    SharedValues& shared = m_context.shared;
    resumeNext(
        [&] {
            showCustomExt(false);
            CustomExt->setText(kFirstExtension);
            Combo1->addItems({kFirstExtension, QStringLiteral("MP2"), QStringLiteral("WAV"),
                              QStringLiteral("MID"), QStringLiteral("VQF"), QStringLiteral("AAC"),
                              QStringLiteral("LQT"), QStringLiteral("WMA"), QStringLiteral("ASF"), kCustom});
        },
        [&] { Drive1->setDrive(dospath::drive(shared.InitDrive)); },
        [&] { shared.SearchRoot = dospath::root(Drive1->drive()); },
        [&] { Dir1->setPath(shared.SearchRoot); },
        [&] { txtSearchString->setText(shared.SearchRoot + QStringLiteral("*.MP3")); },
        [&] { ChkSub->setChecked(wasIncludingSubdirectories()); });
    wire();
}

bool frmSearch::wasIncludingSubdirectories()
{
    return textrules::val(
               m_context.platform.settings.get(program().executableName(), settings::kOptionsSection,
                                               settings::kSubdirectories, QStringLiteral("1"))) == 1;
}

void frmSearch::ChkSub_Click()
{
    m_context.platform.settings.save(program().executableName(), settings::kOptionsSection,
                                     settings::kSubdirectories,
                                     ChkSub->isChecked() ? QStringLiteral("1") : QStringLiteral("0"));
}

void frmSearch::setSearchString(const QString& text)
{
    txtSearchString->setText(dospath::withoutDoubledRoot(text));
}

void frmSearch::useDirectoryAndExtension()
{
    setSearchString(directory() + QStringLiteral("\\*.") + CustomExt->text());
}

// One whose root cannot be read is not taken either: all of the window is about the drive before, and a scan
// never looks elsewhere than its texts say.
void frmSearch::Drive1_Change()
{
    const QString root = dospath::root(Drive1->drive());
    try {
        Dir1->setPath(root);
    } catch (const RunTimeError&) {
        Drive1->takeBack(m_context.shared.SearchRoot);
        throw;
    }
    m_context.shared.SearchRoot = root;
    setSearchString(m_context.shared.SearchRoot + QStringLiteral("*.") + CustomExt->text());
}

void frmSearch::Dir1_Change()
{
    useDirectoryAndExtension();
}

void frmSearch::CustomExt_Change()
{
    useDirectoryAndExtension();
}

void frmSearch::Combo1_Click()
{
    CustomExt->setText(Combo1->currentText());
    if (Combo1->currentText() == kCustom) {
        CustomExt->setText(kFirstExtension);
        showCustomExt(true);
        CustomExt->setFocus();
        CustomExt->selectAll();
    } else {
        showCustomExt(false);
    }
    setSearchString(txtSearchString->text());
}

void frmSearch::showCustomExt(bool visible)
{
    CustomExt->setVisible(visible);
    Label13->setVisible(visible);
}

void frmSearch::cmdScan_Click()
{
    m_showResult();
}

void frmSearch::cmdCancel_Click()
{
    unload();
}

void frmSearch::Form_Unload()
{
    m_context.shared.InitDrive = txtSearchString->text();
}

QString frmSearch::searchString() const
{
    return txtSearchString->text();
}

QString frmSearch::directory() const
{
    return Dir1->path().isEmpty() ? m_context.shared.SearchRoot : Dir1->path();
}

bool frmSearch::includesSubdirectories() const
{
    return ChkSub->isChecked();
}

QString frmSearch::customExt() const
{
    return CustomExt->text();
}
