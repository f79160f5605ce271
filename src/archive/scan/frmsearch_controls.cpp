// Makes the controls of the scan window and says where they stand. Distances from the bottom and the right
// edge are fixed, in twips; the rest follows the font.
#include "archive/scan/frmsearch.h"

#include "toolkit/widgets/directorylist.h"
#include "toolkit/widgets/drivelist.h"
#include "toolkit/widgets/windowing.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int kMargin = 16;
constexpr int kGap = 8;
constexpr int kDirectoriesLessThanForm = 4300;
constexpr int kSearchStringAboveBottom = 2040;
constexpr int kScanFromRight = 1875;
constexpr int kButtonHeight = 34;
constexpr int kTypeWidth = 110;
constexpr int kExtensionWidth = 110;

} // namespace

void frmSearch::makeControls()
{
    makeLabels({
        {Label1, "Label1", tr("&Drive and directory to search:")},
        {lblScan, "lblScan", tr("&Files to scan:")},
        {lblType, "lblType", tr("&Type of file:")},
        {Label13, "Label13", tr("Type &ext. here:")},
    });
    Drive1 = named(new DriveList(m_context.platform.drives, centralWidget()), "Drive1", tr("Drive"));
    Dir1 = named(new DirectoryList(m_context.platform.files, centralWidget()), "Dir1", tr("Directory"));
    Combo1 = named(new QComboBox(centralWidget()), "Combo1", tr("Type of file"));
    CustomExt = named(new QLineEdit(centralWidget()), "CustomExt", tr("Extension"));
    txtSearchString = named(new QLineEdit(centralWidget()), "txtSearchString", tr("Files to scan"));
    ChkSub = named(new QCheckBox(tr("Include &subdirectories"), centralWidget()), "ChkSub");
    makeButtons({
        {cmdScan, "cmdScan", tr("Sca&n"), tr("Start the scan"), [this] { cmdScan_Click(); },
         QStringLiteral("scan")},
        {cmdCancel, "cmdCancel", tr("Cancel"), {}, [this] { cmdCancel_Click(); }, QStringLiteral("cancel")},
    });
    Label1->setBuddy(Drive1);
    lblType->setBuddy(Combo1);
    Label13->setBuddy(CustomExt);
    lblScan->setBuddy(txtSearchString);
    setKeys(cmdScan, cmdCancel);
    setMinimumSize(480, 360);
    resize(fittingSize({620, 520}));
}

void frmSearch::Form_Resize()
{
    const int width = innerSize().width();
    const int height = innerSize().height();
    const int line = txtSearchString->sizeHint().height() + 4;
    const int text = fontMetrics().height() + 4;
    const int inner = width - 2 * kMargin;

    const int typeWidth = std::max(kTypeWidth, lblType->sizeHint().width());
    const int extensionWidth = std::max(kExtensionWidth, Label13->sizeHint().width());
    const int extensionLeft = width - kMargin - extensionWidth;
    const int typeLeft = extensionLeft - kGap - typeWidth;
    const int driveTop = kMargin + text + 2;
    Label1->setGeometry(kMargin, kMargin, typeLeft - kGap - kMargin, text);
    Drive1->setGeometry(kMargin, driveTop, typeLeft - kGap - kMargin, line);
    lblType->setGeometry(typeLeft, kMargin, typeWidth, text);
    Combo1->setGeometry(typeLeft, driveTop, typeWidth, line);
    Label13->setGeometry(extensionLeft, kMargin, extensionWidth, text);
    CustomExt->setGeometry(extensionLeft, driveTop, extensionWidth, line);
    Dir1->setGeometry(kMargin, driveTop + line + kGap, inner, height - fromTwips(kDirectoriesLessThanForm));
    ChkSub->setGeometry(kMargin, Dir1->geometry().bottom() + kGap, inner, line);

    const int searchTop = height - fromTwips(kSearchStringAboveBottom);
    lblScan->setGeometry(kMargin, searchTop - text - 2, inner, text);
    txtSearchString->setGeometry(kMargin, searchTop, inner, line);

    const int scanLeft = width - fromTwips(kScanFromRight);
    const int buttonWidth = fromTwips(kScanFromRight) - kMargin;
    const int buttonTop = height - kButtonHeight - kMargin;
    cmdScan->setGeometry(scanLeft, buttonTop, buttonWidth, kButtonHeight);
    cmdCancel->setGeometry(scanLeft - buttonWidth - kGap, buttonTop, buttonWidth, kButtonHeight);
}
