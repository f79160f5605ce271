// Every modal question of the program, so that a test can answer it.
#pragma once

#include "base/runtimeerror.h"

#include <QString>

#include <optional>

enum class MessageIcon { None, Information, Question, Warning, Critical };
enum class MessageButtons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

struct Message {
    QString text{};
    QString title{};
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
};

class Dialogs {
public:
    virtual ~Dialogs() = default;

    // Closing the box counts as its OK, or as No.
    virtual Answer message(const Message& message) = 0;

    virtual std::optional<QString> inputBox(const QString& prompt, const QString& title) = 0;

    // The system's own box for an error that nobody trapped.
    virtual void runTimeError(const RunTimeError& error) = 0;
};
