#pragma once

#include "platform/dialogs.h"

class Drives;
class Program;
class QFileDialog;

class QtDialogs : public Dialogs {
public:
    QtDialogs(Program& program, Drives& drives) : m_program(program), m_drives(drives) {}

    Answer message(const Message& message) override;
    std::optional<QString> inputBox(const QString& prompt, const QString& title) override;
    std::optional<QString> openFile(const FileQuestion& question) override;
    std::optional<QString> saveFile(const FileQuestion& question) override;
    std::optional<QString> browseFolder(const QString& title) override;
    void runTimeError(const RunTimeError& error) override;

private:
    std::optional<QString> ask(QFileDialog& dialog, const FileQuestion& question);

    Program& m_program;
    Drives& m_drives;
};
