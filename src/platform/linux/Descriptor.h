// An open file descriptor that closes itself.
#pragma once

#include "platform/linux/FileSystemCalls.h"

#include <memory>
#include <utility>

namespace brimlet {

class Descriptor {
public:
    Descriptor() = default;

    /// calls   must outlive the descriptor
    /// number  an open descriptor, owned from now on; a negative one is none
    Descriptor(FileSystemCalls& calls, int number)
        : m_calls(&calls)
        , m_number(number) {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept
        : m_calls(other.m_calls)
        , m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            close();
            m_calls = other.m_calls;
            m_number = std::exchange(other.m_number, -1);
        }
        return *this;
    }

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }
    void close() {
        if (m_number >= 0)
            m_calls->close(std::exchange(m_number, -1));
    }

    /// Closes a file that was written; must be open. A negative errno when what was written may be lost.
    int closeWritten() { return m_calls->closeWritten(std::exchange(m_number, -1)); }

private:
    FileSystemCalls* m_calls = nullptr;
    int m_number = -1;
};

/// Stays open as long as any copy of it lives.
class SharedDescriptor {
public:
    SharedDescriptor() = default;
    SharedDescriptor(Descriptor descriptor) // NOLINT(google-explicit-constructor)
        : m_shared(std::make_shared<const Descriptor>(std::move(descriptor))) {}

    int number() const { return m_shared ? m_shared->number() : -1; }

private:
    std::shared_ptr<const Descriptor> m_shared;
};

} // namespace brimlet
