// Tells what the words behind "Songbin" ask for.
#pragma once

#include <QByteArray>

#include <vector>

struct CommandLine {
    enum class Wish { Start, Help, Version, CheckSkin, PrepareMedia, Wrong };

    Wish wish = Wish::Start;
    QByteArray file{};    // to play, or the skin to check; empty: none
    QByteArray session{}; // by which the desktop starts again what ran when its user left; empty: none
    QByteArray reason{};  // what is wrong, for the user

    // "--" ends the options. Kept: "--help" and "--version" are answered whatever stands beside them.
    static CommandLine parse(const std::vector<QByteArray>& words);
};
