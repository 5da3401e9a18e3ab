#pragma once

#include "platform/BundleReader.h"

namespace brimlet {

/// Reads a bundle's Contents/Info.plist.
class LinuxBundleReader final : public BundleReader {
public:
    std::optional<std::string> identifier(const std::string& bundlePath) const override;
    std::optional<std::string> ownIdentifier() const override;
};

} // namespace brimlet
