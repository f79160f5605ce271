// Keeps the volume that a mute took away in the settings as long as the mute lasts: a program that is killed
// cannot give it back, the next one does.
#pragma once

#include <QByteArray>

#include <optional>

class Program;
class UserSettings;

class MuteNote {
public:
    MuteNote(UserSettings& store, const Program& program) : m_store(store), m_program(program) {}

    void keep(float volume); // ours, before the silence
    void drop();             // ours, after it
    // Returns what a program that does not run any more has kept.
    std::optional<float> left();
    void clear(); // whoever's it is

private:
    struct Note {
        float volume;
        QByteArray keeper; // Program::ownMark
    };
    std::optional<Note> note();

    UserSettings& m_store;
    const Program& m_program;
};
