// An open file of the system, closed at the end of its life.
// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>
#include <utility>

namespace orvo {

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        Reset(std::exchange(other.m_number, -1));
        return *this;
    }
    ~Descriptor() { Reset(); }

    // Closes what was open and takes another one on.
    void Reset(int number = -1) {
        if (m_number >= 0) ::close(m_number);
        m_number = number;
    }
    int Number() const { return m_number; }
    bool IsOpen() const { return m_number >= 0; }

private:
    int m_number = -1;
};

}  // namespace orvo
