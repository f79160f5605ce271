// Holds an open file of this machine, which is closed with its owner.
#pragma once

#include <unistd.h>

#include <utility>

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept : m_number(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        reset(other.release());
        return *this;
    }

    int get() const { return m_number; }
    explicit operator bool() const { return m_number >= 0; }
    int release() { return std::exchange(m_number, -1); }
    void reset(int number = -1)
    {
        if (m_number >= 0)
            ::close(m_number);
        m_number = number;
    }

private:
    int m_number = -1;
};
