#include "platform/linux/LinuxBundleReader.h"

#include "platform/FileContents.h"
#include "platform/PropertyList.h"

namespace brimlet {

std::optional<std::string> LinuxBundleReader::identifier(const std::string& bundlePath) const {
    const auto bytes = fileContents(bundlePath + "/Contents/Info.plist", PropertyList::maximumBytes);
    const auto list = bytes ? PropertyList::fromBytes(*bytes) : std::nullopt;
    return list ? list->text("CFBundleIdentifier") : std::nullopt;
}

std::optional<std::string> LinuxBundleReader::ownIdentifier() const {
    return ownBundleIdentifier;
}

} // namespace brimlet
