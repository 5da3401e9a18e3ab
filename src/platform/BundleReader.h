// Who an application bundle says it is.
#pragma once

#include <optional>
#include <string>

namespace brimlet {

/// The application's own bundle identifier.
inline constexpr const char* ownBundleIdentifier = "com.brimlet.mac";

class BundleReader {
public:
    virtual ~BundleReader() = default;

    /// The identifier of the application bundle at a path; empty where there is no bundle, or none that says.
    /// Any thread; reads the disk. What stands in a bundle is not trusted: nothing in it can do harm.
    virtual std::optional<std::string> identifier(const std::string& bundlePath) const = 0;

    /// The identifier of the running application itself; empty where it can't be told.
    virtual std::optional<std::string> ownIdentifier() const = 0;
};

} // namespace brimlet
