// Controls by their object names, clicked as a user does.
#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

template <typename T>
T* find(QWidget& window, const char* name)
{
    T* found = window.findChild<T*>(QLatin1String(name));
    if (!found)
        ADD_FAILURE() << "no control " << name;
    return found;
}

inline void click(QWidget& window, const char* name)
{
    if (auto* button = find<QAbstractButton>(window, name))
        QTest::mouseClick(button, Qt::LeftButton);
}

inline void trigger(QWidget& window, const char* name)
{
    if (auto* action = find<QAction>(window, name))
        action->trigger();
}
