#include "system/desktop/qtdialogs.h"

#include "platform/drives.h"
#include "platform/program.h"
#include "system/desktop/drivefiledialog.h"
#include "system/desktop/errortext.h"
#include "system/desktop/filedialogside.h"
#include "system/desktop/namefilters.h"
#include "system/desktop/plainpointer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>

namespace {

constexpr int kInputWidth = 340;

QMessageBox::Icon iconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::None:
        return QMessageBox::NoIcon;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Warning:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

Answer answerOf(int button, MessageButtons buttons)
{
    if (buttons == MessageButtons::Ok)
        return Answer::Ok;
    return button == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

QString firstDirectory(Drives& drives, const QString& wanted)
{
    const std::optional<QByteArray> path = drives.machinePath(wanted);
    const QString directory = path ? QFile::decodeName(*path) : QString();
    return QFileInfo(directory).isDir() ? directory : QDir::homePath();
}

void offer(QFileDialog& dialog, const std::vector<NameFilter>& filters)
{
    dialog.setOption(QFileDialog::HideNameFilterDetails); // or a text would show its patterns twice
    QStringList entries;
    for (const NameFilter& filter : filters)
        entries += toolkitFilter(filter);
    dialog.setNameFilters(entries);
    const auto endWith = [&dialog, filters](int entry) {
        const auto at = static_cast<std::size_t>(entry);
        dialog.setDefaultSuffix(at < filters.size() ? firstExtension(filters[at]) : QString());
    };
    if (dialog.acceptMode() != QFileDialog::AcceptSave)
        return;
    endWith(0);
    QObject::connect(dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo")), &QComboBox::activated,
                     &dialog, endWith);
}

// The window manager shows a title in bold letters, between an icon and buttons, and cuts it off.
void widenToTitle(QMessageBox& box)
{
    QFont bold = QApplication::font("QMessageBox");
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int wanted = metrics.horizontalAdvance(box.windowTitle()) + 8 * metrics.height();
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    const int widest = box.screen()->availableSize().width() - metrics.height();
    // The box takes its size from its layout alone.
    grid->addItem(new QSpacerItem(std::min(wanted, widest), 0), grid->rowCount(), 0, 1, grid->columnCount());
}

QString withLineBreaks(QString text)
{
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

} // namespace

Answer QtDialogs::message(const Message& message)
{
    if (m_program.ending()) // nobody is there to answer
        return message.buttons == MessageButtons::Ok ? Answer::Ok : Answer::No;
    const PlainPointer pointer;
    QMessageBox box(iconOf(message.icon), message.title, withLineBreaks(message.text), QMessageBox::NoButton,
                    QApplication::activeWindow());
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setTextFormat(Qt::PlainText);
    box.setStandardButtons(message.buttons == MessageButtons::Ok ? QMessageBox::Ok
                                                                 : QMessageBox::Yes | QMessageBox::No);
    box.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowCloseButtonHint);
    if (QAbstractButton* ok = box.button(QMessageBox::Ok))
        ok->setIcon(QIcon(QStringLiteral(":/icons/ok.svg")));
    widenToTitle(box);
    return answerOf(box.exec(), message.buttons);
}

void QtDialogs::runTimeError(const RunTimeError& error)
{
    message({.text = errortext::ofBox(error), .title = m_program.title(), .icon = MessageIcon::Critical});
}

std::optional<QString> QtDialogs::inputBox(const QString& prompt, const QString& title)
{
    if (m_program.ending())
        return {};
    const PlainPointer pointer;
    QInputDialog box(QApplication::activeWindow());
    box.setObjectName(QStringLiteral("InputBox"));
    box.setWindowTitle(title);
    box.setLabelText(prompt);
    box.setTextValue({});
    box.findChild<QLineEdit*>()->setMinimumWidth(kInputWidth); // the box itself takes its layout's size
    if (box.exec() != QDialog::Accepted)
        return {};
    return box.textValue();
}

std::optional<QString> QtDialogs::ask(QFileDialog& dialog, const FileQuestion& question)
{
    if (m_program.ending())
        return {};
    const PlainPointer pointer;
    dialog.setObjectName(question.objectName);
    const FileDialogSide side(dialog, m_drives);
    dialog.setWindowTitle(question.title);
    dialog.setDirectory(firstDirectory(m_drives, question.directory));
    const bool isPattern = question.fileName.contains(u'*');
    if (!question.filter.isEmpty())
        offer(dialog, nameFilters(question.filter));
    else if (isPattern)
        dialog.setNameFilters({question.fileName, QStringLiteral("*")});
    if (!isPattern)
        dialog.selectFile(question.fileName);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    if (question.chosenEntry)
        *question.chosenEntry = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))->currentIndex();
    return m_drives.drivePath(QFile::encodeName(dialog.selectedFiles().constFirst()));
}

std::optional<QString> QtDialogs::openFile(const FileQuestion& question)
{
    DriveFileDialog dialog(m_drives, QApplication::activeWindow());
    dialog.setFileMode(QFileDialog::ExistingFile);
    return ask(dialog, question);
}

std::optional<QString> QtDialogs::saveFile(const FileQuestion& question)
{
    DriveFileDialog dialog(m_drives, QApplication::activeWindow());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    return ask(dialog, question);
}

std::optional<QString> QtDialogs::browseFolder(const QString& title)
{
    DriveFileDialog dialog(m_drives, QApplication::activeWindow());
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return ask(dialog, {.title = title, .objectName = QStringLiteral("BrowseFolder")});
}
