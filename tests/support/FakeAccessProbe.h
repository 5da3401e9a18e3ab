#pragma once

#include "platform/AccessProbe.h"

#include <atomic>

namespace brimlet::test {

/// Answers what it is told to, and counts how often it was asked.
class FakeAccessProbe final : public AccessProbe {
public:
    bool hasFullDiskAccess() const override {
        ++asked;
        return granted;
    }

    bool granted = true;
    mutable std::atomic<int> asked = 0;
};

} // namespace brimlet::test
