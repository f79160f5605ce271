// Shows the usual pointer while it lives. A busy one over a question would look as if it could not be
// answered.
#pragma once

#include <QCursor>
#include <QGuiApplication>

class PlainPointer {
public:
    PlainPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~PlainPointer() { QGuiApplication::restoreOverrideCursor(); }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;
};
