// Walks through a directory for the playlist.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class Files;
class Program;

struct WalkOptions {
    QStringList extensions{}; // without dots, in any case; none: every file
    bool subdirectories = true;
};

struct WalkCounters {
    int files = 0;       // that were visited
    int directories = 0; // that were listed
};

// Reads the extensions of the setting ValidExt, parted by blanks, commas, semicolons or bars; "*." before
// them is ignored. A setting that names none stands for the usual music and films.
QStringList validExtensions(const QString& setting);

// Visits the directory's files of these extensions in the order of their names without regard to case, then
// its subdirectories in the same way. Pending events run in between; the walk ends when the program does or
// `visit` gives false. A directory that cannot be read counts as empty; each is visited once, however many
// links lead to it, and none of the kernel's file systems.
void WalkDirectory(Files& files, Program& program, const QString& directory, const WalkOptions& options,
                   WalkCounters& counters, const std::function<bool(const QString& path)>& visit);
