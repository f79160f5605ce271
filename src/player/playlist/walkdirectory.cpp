#include "player/playlist/walkdirectory.h"

#include "base/runtimeerror.h"
#include "base/throttle.h"
#include "platform/entereddirectories.h"
#include "platform/files.h"
#include "platform/program.h"
#include "player/playlist/modcommon.h"

#include <QRegularExpression>

namespace {

const QString kUsualExtensions = QStringLiteral("MP2 MP3 MID WAV MOD XM AVI MOV");

class Walk {
public:
    Walk(Files& files, Program& program, const WalkOptions& options, WalkCounters& counters,
         const std::function<bool(const QString&)>& visit)
        : m_files(files), m_program(program), m_options(options), m_counters(counters), m_visit(visit)
    {
    }

    // Is false when the whole walk is to end.
    bool enter(const QString& directory)
    {
        QStringList subdirectories;
        for (const DirEntry& entry : listed(directory)) {
            if (entry.attributes & kDirectory)
                subdirectories += entry.name;
            else if (!take(directory, entry.name))
                return false;
        }
        if (m_options.subdirectories)
            for (const QString& name : std::as_const(subdirectories))
                if (!enter(directory + name + u'\\'))
                    return false;
        return goesOn();
    }

private:
    std::vector<DirEntry> listed(const QString& directory)
    {
        std::optional<std::vector<DirEntry>> entries = std::vector<DirEntry>();
        resumeNext([&] { entries = m_files.enter(directory, m_entered); });
        if (!entries)
            return {};
        ++m_counters.directories;
        return std::move(*entries);
    }

    bool take(const QString& directory, const QString& name)
    {
        if (!isWanted(name))
            return true;
        ++m_counters.files;
        return m_visit(directory + name) && goesOn();
    }

    bool isWanted(const QString& name) const
    {
        const qsizetype dot = name.lastIndexOf(u'.');
        const QStringView extension = dot < 0 ? QStringView() : QStringView(name).mid(dot + 1);
        if (m_options.extensions.isEmpty())
            return true;
        for (const QString& wanted : m_options.extensions)
            if (extension.compare(wanted, Qt::CaseInsensitive) == 0)
                return true;
        return false;
    }

    bool goesOn()
    {
        if (m_throttle.due())
            m_program.yield();
        return !m_program.ending();
    }

    Files& m_files;
    Program& m_program;
    const WalkOptions& m_options;
    WalkCounters& m_counters;
    const std::function<bool(const QString&)>& m_visit;
    EnteredDirectories m_entered;
    Throttle m_throttle;
};

} // namespace

QStringList validExtensions(const QString& setting)
{
    static const QRegularExpression separators(QStringLiteral("[\\s,;|]+"));
    const auto parted = [](const QString& text) {
        QStringList extensions;
        for (const QString& part : text.split(separators, Qt::SkipEmptyParts))
            if (const QString extension = part.mid(part.lastIndexOf(u'.') + 1); !extension.isEmpty())
                extensions += extension;
        return extensions;
    };
    const QStringList extensions = parted(setting);
    return extensions.isEmpty() ? parted(kUsualExtensions) : extensions;
}

void WalkDirectory(Files& files, Program& program, const QString& directory, const WalkOptions& options,
                   WalkCounters& counters, const std::function<bool(const QString& path)>& visit)
{
    Walk(files, program, options, counters, visit).enter(AddSlash(directory));
}
