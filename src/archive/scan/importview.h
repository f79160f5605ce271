#pragma once

#include <QString>

// Where an import shows how far it is.
class ImportView {
public:
    virtual ~ImportView() = default;

    virtual void setLabel1(const QString& text) = 0;
    virtual void setLabel5(const QString& text) = 0;
    // In a line of its own, at once: what the import waits for. Empty when it goes on.
    virtual void setWaiting(const QString& text) = 0;
    virtual void showNow() = 0; // what was set since the last time
};
