#include "platform/PlatformError.h"

#include <cerrno>
#include <system_error>

namespace brimlet {

PlatformError errorFromErrno(int errnoValue) {
    std::string description = std::generic_category().message(errnoValue);
    switch (errnoValue) {
    case ENOENT:
        return {ErrorDomain::cocoa, 4, errnoValue, std::move(description)};
    default:
        return {ErrorDomain::posix, errnoValue, std::nullopt, std::move(description)};
    }
}

} // namespace brimlet
