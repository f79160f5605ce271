#include "system/desktop/desktoplauncher.h"

#include "base/runtimeerror.h"
#include "platform/drives.h"

#include <QDesktopServices>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <array>
#include <vector>

namespace {

bool isAddress(const QString& target)
{
    constexpr std::array<QStringView, 3> kSchemes = {u"http://", u"https://", u"mailto:"};
    return std::ranges::any_of(
        kSchemes, [&](QStringView scheme) { return target.startsWith(scheme, Qt::CaseInsensitive); });
}

// The address is made from bytes, not from text, because a name need not be valid UTF-8.
QUrl fileAddress(const QByteArray& machinePath)
{
    return QUrl::fromEncoded("file://" + machinePath.toPercentEncoding("/"));
}

void handOver(const QUrl& address)
{
    if (QDesktopServices::openUrl(address))
        return;
    throw RunTimeError(ErrorNumber::FileNotFound, QStringLiteral("xdg-open"))
        .withAdvice(QStringLiteral("Install xdg-open (package xdg-utils), with which files and addresses are "
                                   "opened on this desktop."));
}

// These are the volume mixers of desktops, each with its arguments.
const std::vector<QStringList> kMixers = {
    {QStringLiteral("pavucontrol")},
    {QStringLiteral("pavucontrol-qt")},
    {QStringLiteral("gnome-control-center"), QStringLiteral("sound")},
    {QStringLiteral("systemsettings"), QStringLiteral("kcm_pulseaudio")},
    {QStringLiteral("cinnamon-settings"), QStringLiteral("sound")},
    {QStringLiteral("mate-volume-control")},
    {QStringLiteral("kmix")},
    {QStringLiteral("xfce4-mixer")},
    {QStringLiteral("alsamixergui")},
};

bool startMixer()
{
    return std::ranges::any_of(kMixers, [](const QStringList& mixer) {
        const QString program = QStandardPaths::findExecutable(mixer.front());
        return !program.isEmpty() && QProcess::startDetached(program, mixer.mid(1));
    });
}

} // namespace

void DesktopLauncher::open(const QString& target)
{
    if (isAddress(target)) {
        handOver(QUrl(target));
        return;
    }
    if (const std::optional<QByteArray> file = m_drives.machinePath(target))
        handOver(fileAddress(*file));
}

void DesktopLauncher::start(const QString& program)
{
    if (program == u"sndvol32.exe") {
        if (!startMixer())
            throw RunTimeError(ErrorNumber::FileNotFound);
        return;
    }
    const std::optional<QByteArray> file = m_drives.machinePath(program);
    const QString name = QFile::decodeName(file.value_or(QByteArray()));
    // A name that is no valid text cannot be handed on; it must not become another one.
    if (!file || QFile::encodeName(name) != *file || !QProcess::startDetached(name, {}))
        throw RunTimeError(ErrorNumber::FileNotFound);
}
