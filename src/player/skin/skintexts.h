// Holds texts of a skin that last until others take their place.
#pragma once

#include <QString>

struct SkinTexts {
    QString info{};         // lines parted by carriage returns
    QString previousSkin{}; // what the two buttons load that change the skin
    QString nextSkin{};

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
