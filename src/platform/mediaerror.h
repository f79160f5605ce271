// A media device reports this after a command; platform/mediaelement.h explains the numbers.
#pragma once

#include <QString>

struct MediaError {
    static constexpr int kNone = 0;
    static constexpr int kOther = 256;
    static constexpr int kNoDriver = 263;
    static constexpr int kNoFile = 275;
    static constexpr int kDamaged = 277;

    int number = kNone;
    QString message{};
};
