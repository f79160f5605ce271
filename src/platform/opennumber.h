// Holds a file number in use, which is free again whatever happens.
#pragma once

#include "base/runtimeerror.h"
#include "platform/filenumbers.h"

class OpenNumber {
public:
    explicit OpenNumber(FileNumbers& numbers) : number(numbers.freeFile()), m_numbers(numbers) {}
    ~OpenNumber()
    {
        resumeNext([this] { m_numbers.close(number); });
    }
    OpenNumber(const OpenNumber&) = delete;
    OpenNumber& operator=(const OpenNumber&) = delete;

    const int number;

private:
    FileNumbers& m_numbers;
};
