#pragma once

#include "platform/dialogs.h"

class Program;

class QtDialogs : public Dialogs {
public:
    explicit QtDialogs(Program& program) : m_program(program) {}

    Answer message(const Message& message) override;
    std::optional<QString> inputBox(const QString& prompt, const QString& title) override;
    void runTimeError(const RunTimeError& error) override;

private:
    Program& m_program;
};
