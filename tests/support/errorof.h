// Tells which run-time error something raises, for tests to compare with numberOf(ErrorNumber::...).
#pragma once

#include "base/runtimeerror.h"

#include <gtest/gtest.h>

// Gives the error's number, and 0 when there is none.
template <typename Work>
int errorOf(Work&& work)
{
    try {
        work();
    } catch (const RunTimeError& error) {
        EXPECT_FALSE(error.text().isEmpty());
        return error.number();
    }
    return 0;
}

// Gives it as another process writes it.
inline QByteArray told(ErrorNumber error)
{
    return QByteArray::number(numberOf(error));
}
