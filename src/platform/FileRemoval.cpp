#include "platform/FileRemoval.h"

#include "core/Localized.h"

#include <cerrno>

namespace brimlet {

PlatformError changedSinceReview() {
    return {ErrorDomain::posix, ESTALE, std::nullopt, localized("It has changed since it was reviewed.")};
}

} // namespace brimlet
