#include "system/drives/systemdrives.h"

#include "base/filenametext.h"
#include "platform/tracefile.h"
#include "posix/volumelabel.h"
#include "system/drives/audiodisc.h"

#include <dirent.h>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace {

DriveSetup completed(DriveSetup setup)
{
    if (setup.settings.isEmpty())
        setup.settings = setup.user.config + "/drives.conf";
    return setup;
}

bool isThere(const QByteArray& path)
{
    struct stat status {};
    return lstat(path.constData(), &status) == 0;
}

bool isDirectory(const QByteArray& path)
{
    struct stat status {};
    return stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool holds(const QByteArray& directory, const QByteArray& path)
{
    return directory == "/" ||
           (path.startsWith(directory) && (path.size() == directory.size() || path[directory.size()] == '/'));
}

// Tells the device that a directory is on, as far as mounts tell.
QByteArray deviceOf(const QByteArray& directory, const std::vector<Mount>& mounts)
{
    const Mount* closest = nullptr;
    for (const Mount& mount : mounts)
        if (holds(mount.directory, directory) &&
            (closest == nullptr || mount.directory.size() > closest->directory.size()))
            closest = &mount;
    return closest != nullptr && closest->source.startsWith("/dev/") ? closest->source : QByteArray();
}

} // namespace

SystemDrives::SystemDrives(DriveSetup setup)
    : m_setup(completed(std::move(setup))), m_settings(m_setup.settings), m_mounts(m_setup.mountinfo)
{
    build();
}

void SystemDrives::hold()
{
    update();
    ++m_holds;
}

void SystemDrives::update()
{
    if (m_holds > 0)
        return;
    const bool mountsChanged = m_mounts.changed();
    if (m_settings.changed() || mountsChanged || sheetsChanged())
        build();
}

bool SystemDrives::sheetsChanged() const
{
    return std::any_of(m_sheetFiles.begin(), m_sheetFiles.end(),
                       [](const auto& file) { return stampOf(file.first) != file.second; });
}

void SystemDrives::build()
{
    const std::vector<Mount> mounts = m_mounts.read();
    DriveTable drives;
    m_settings.addDeclared(drives);
    addDeclared(drives, m_setup.declared);
    drives.try_emplace('C', DriveEntry{DriveKind::Fixed, m_setup.user.home, {}, {}});
    drives.try_emplace('Z', DriveEntry{DriveKind::Fixed, "/", {}, {}});
    for (auto& [letter, entry] : drives)
        entry.device = deviceOf(entry.directory, mounts);
    m_settings.addVolumes(drives, volumesOf(mounts, opticalDevices()));
    m_sheetFiles.clear();
    for (auto& [letter, entry] : drives)
        showTracks(entry);
    m_drives = std::move(drives);
    m_lastText.clear();
}

// A declared cue sheet, and an optical drive in which nothing is mounted, may hold an audio disc.
void SystemDrives::showTracks(DriveEntry& entry)
{
    const bool sheet = entry.kind == DriveKind::Declared && audiodisc::isSheet(entry.directory) &&
                       !isDirectory(entry.directory);
    if (!sheet && !(entry.kind == DriveKind::Optical && entry.directory.isEmpty()))
        return;
    const QByteArray place = sheet ? entry.directory : entry.device;
    if (sheet)
        m_sheetFiles.emplace_back(place, stampOf(place));
    const audiodisc::Disc disc = audiodisc::discIn(place);
    if (!disc.image.isEmpty())
        m_sheetFiles.emplace_back(disc.image, stampOf(disc.image));
    const audiodisc::Place shown = audiodisc::show(disc, place, m_setup.user.state);
    entry.directory = shown.tracks;
    entry.disc = shown.player;
}

std::vector<QByteArray> SystemDrives::audioDiscs()
{
    list();
    std::vector<QByteArray> discs;
    for (const auto& [letter, entry] : m_drives)
        if (!entry.disc.isEmpty())
            discs.push_back(entry.disc);
    return discs;
}

std::vector<QByteArray> SystemDrives::opticalDevices() const
{
    std::vector<QByteArray> devices;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(m_setup.blockDevices.constData()), closedir);
    while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
        const QByteArray name(entry->d_name);
        if (name.size() > 2 && name.startsWith("sr") && name[2] >= '0' && name[2] <= '9')
            devices.push_back("/dev/" + name);
    }
    std::sort(devices.begin(), devices.end());
    return devices;
}

const DriveEntry* SystemDrives::entryOf(QStringView path) const
{
    const auto found = m_drives.find(driveLetter(path));
    return found == m_drives.end() ? nullptr : &found->second;
}

std::vector<Drive> SystemDrives::list()
{
    m_mounts.changed();
    build(); // an optical drive that was plugged in changes neither mounts nor settings
    std::vector<Drive> drives;
    for (const auto& [letter, entry] : m_drives)
        drives.push_back({QLatin1Char(letter), entry.kind});
    return drives;
}

QString SystemDrives::volumeName(const QString& path)
{
    update();
    const DriveEntry* drive = entryOf(path);
    if (drive == nullptr || !drive->name.isEmpty())
        return drive == nullptr ? QString() : drive->name;
    QString label;
    if (!drive->disc.isEmpty())
        return label; // the directory of its tracks is on a volume of another name
    if (!drive->directory.isEmpty() && drive->kind != DriveKind::Network)
        label = volumelabel::ofDirectory(drive->directory);
    if (label.isEmpty() && !drive->device.isEmpty())
        label = volumelabel::ofLinks(m_setup.labelLinks, drive->device);
    if (label.isEmpty() && !drive->device.isEmpty())
        label = volumelabel::ofDevice(drive->device);
    return label;
}

bool SystemDrives::isTraceFile(const QString& path) const
{
    return path.size() == kTraceFile.size() && path.compare(kTraceFile, Qt::CaseInsensitive) == 0;
}

QByteArray SystemDrives::traceFile() const
{
    std::error_code ignored; // opening the file tells
    std::filesystem::create_directories(m_setup.user.state.toStdString(), ignored);
    return m_setup.user.state + "/test.txt";
}

std::optional<QByteArray> SystemDrives::literalPath(const QString& path)
{
    if (isTraceFile(path))
        return traceFile();
    const QChar* const name = lastName(path);
    const QStringView text(path.begin(), name);
    const QStringView last(name, path.end());
    const bool plain = !last.isEmpty() && last != u"." && last != u".." && !last.contains(u'\0');
    if (plain && !text.isEmpty() && text == m_lastText)
        return m_lastDirectory + filenametext::toBytes(last);

    const std::optional<DrivePath> parsed = DrivePath::parse(path);
    const DriveEntry* drive = parsed ? entryOf(path) : nullptr;
    if (drive == nullptr || drive->directory.isEmpty())
        return std::nullopt;
    const QByteArray whole = parsed->below(drive->directory);
    if (plain && !text.isEmpty()) {
        m_lastText = text.toString();
        m_lastDirectory = whole.chopped(parsed->names.back().size());
    }
    return whole;
}

std::optional<QByteArray> SystemDrives::machinePath(const QString& path)
{
    update();
    std::optional<QByteArray> literal = literalPath(path);
    if (!literal || isThere(*literal) || isTraceFile(path))
        return literal;
    return look(*DrivePath::parse(path));
}

std::optional<QByteArray> SystemDrives::chosenPath(const QString& path)
{
    update();
    const std::optional<DrivePath> parsed = DrivePath::parse(path);
    const DriveEntry* drive = parsed ? entryOf(path) : nullptr;
    if (drive == nullptr || drive->directory.isEmpty())
        return std::nullopt;
    return parsed->below(drive->directory);
}

std::optional<QByteArray> SystemDrives::look(const DrivePath& path)
{
    QByteArray way = m_drives.at(path.letter).directory;
    if (!isDirectory(way))
        return std::nullopt;
    bool found = true;
    for (const QByteArray& name : path.names) {
        if (found && !isThere(joined(way, name))) {
            const QByteArray other = m_names.find(way, name);
            found = !other.isEmpty();
            way = joined(way, found ? other : name);
        } else {
            way = joined(way, name);
        }
    }
    return way;
}

QString SystemDrives::drivePath(const QByteArray& machinePath)
{
    update();
    const QByteArray path = cleanedPath(machinePath);
    const DriveTable::value_type* best = nullptr;
    const auto closeness = [](const DriveEntry& entry) {
        return std::pair(entry.directory.size(), entry.kind == DriveKind::Declared);
    };
    for (const auto& drive : m_drives) {
        const DriveEntry& entry = drive.second;
        if (!entry.directory.isEmpty() && holds(entry.directory, path) &&
            (best == nullptr || closeness(entry) > closeness(best->second)))
            best = &drive;
    }
    if (best == nullptr)
        return {};
    QByteArrayView below = QByteArrayView(path).sliced(best->second.directory.size());
    if (below.startsWith('/')) // not below the root
        below = below.sliced(1);
    constexpr qsizetype kRootLength = 3; // "D:\"
    QString text;
    text.reserve(kRootLength + below.size());
    text += QLatin1Char(best->first);
    text += QLatin1String(":\\");
    filenametext::append(text, below);
    std::replace(text.begin() + kRootLength, text.end(), QChar(u'/'), QChar(u'\\'));
    return text;
}
