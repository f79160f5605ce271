// Notes which windows and texts the main window asks for.
#pragma once

#include "archive/core/windows.h"
#include "base/runtimeerror.h"

#include <QStringList>

#include <vector>

class FakeWindows : public Windows {
public:
    bool offers(WindowId window) const override { return !missing || window == WindowId::frmSearch; }
    void show(WindowId window) override { shown.push_back(window); }
    void showText(const QString& file) override { texts += file; }
    frmOptions& options() override
    {
        if (!optionsWindow)
            throw RunTimeError(ErrorNumber::FileNotFound);
        return *optionsWindow;
    }
    QString homePageAddress() override { return QStringLiteral("https://songbin.example/"); }

    std::vector<WindowId> shown;
    QStringList texts;
    frmOptions* optionsWindow = nullptr;
    bool missing = false;
};
