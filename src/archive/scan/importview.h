#pragma once

#include <QString>

// Shows how far an import is.
class ImportView {
public:
    virtual ~ImportView() = default;

    virtual void setLabel1(const QString& text) = 0;
    virtual void setLabel5(const QString& text) = 0;
    // Says in a line of its own, at once, what the import waits for. It is empty when the import goes on.
    virtual void setWaiting(const QString& text) = 0;
    virtual void showNow() = 0; // what was set since the last time
};
