// Is a desktop that has the window of a module's own player, or none.
#pragma once

#include "platform/modulewindow.h"

#include <QStringList>

#include <functional>

class FakeModuleWindow : public ModuleWindow {
public:
    static constexpr std::uint32_t kWindow = 77;

    std::optional<ForeignWindow> bringToFront(const QString& title) override
    {
        notes += u"front "_qs + title;
        if (onFront)
            onFront();
        return isThere ? std::optional(ForeignWindow{kWindow}) : std::nullopt;
    }
    void typeBlank(ForeignWindow window) override { notes += u"blank "_qs + QString::number(window.id); }

    bool isThere = true;
    std::function<void()> onFront;
    QStringList notes; // what was asked for, in its order
};
