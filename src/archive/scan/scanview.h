// Shows what a scan finds.
#pragma once

#include <QStringList>

class ScanView {
public:
    virtual ~ScanView() = default;

    virtual void clearFiles() = 0;
    virtual void addFile(const QString& path) = 0;
    virtual int fileCount() const = 0;
    virtual void addRow(const QStringList& values) = 0; // the seven columns of an archive record
    virtual void setLabel1(const QString& text) = 0;
    virtual void setLabel5(const QString& text) = 0;

    // Shows what was added and set since the last time, if that was long enough ago.
    virtual void showProgress() = 0;
    // Tells that the view was closed: a scan ends at its next yield.
    virtual bool closing() const = 0;
    // Is asked between the files of a directory, which may come slowly: shows the first label, and lets
    // nothing else of the program run. It is true when the scan is to end.
    virtual bool stopWished() { return closing(); }

    // Says what a person should know about the rows, and nothing when there is nothing.
    virtual void setNote(const QString&) {}
    // Says why there are no rows, and nothing when there are some, or may still be.
    virtual void setEmptyReason(const QString&) {}
};
