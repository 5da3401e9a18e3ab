// Application bundles and running applications that a test makes up.
#pragma once

#include "platform/BundleReader.h"
#include "platform/RunningApplications.h"

#include <atomic>
#include <map>
#include <string>
#include <vector>

namespace brimlet::test {

/// Knows the bundles it was given, by exact path.
class FakeBundles final : public BundleReader {
public:
    std::optional<std::string> identifier(const std::string& bundlePath) const override {
        const auto found = byPath.find(bundlePath);
        return found != byPath.end() ? std::optional(found->second) : std::nullopt;
    }
    std::optional<std::string> ownIdentifier() const override { return own; }

    std::map<std::string, std::string> byPath;
    std::optional<std::string> own = ownBundleIdentifier;
};

class FakeRunningApplications final : public RunningApplications {
public:
    std::vector<std::string> identifiers() const override {
        ++asked;
        return open;
    }

    std::vector<std::string> open;
    mutable std::atomic<int> asked = 0;
};

} // namespace brimlet::test
