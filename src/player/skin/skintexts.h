// Holds texts of a skin that last until others take their place.
#pragma once

#include <QString>

#include <array>

struct SkinTexts {
    QString info{};                       // lines parted by carriage returns
    std::array<QString, 2> switchNames{}; // what buttons 49 and 50 load

    // Is false when the description has become longer than anything that a window can show; its rest is
    // dropped.
    bool addInfo(const QString& text)
    {
        constexpr qsizetype kMost = 32767;
        const qsizetype room = kMost - info.size();
        info += text.left(room);
        return text.size() <= room;
    }
};
