#include "platform/PlatformError.h"

#include <cerrno>
#include <system_error>

namespace brimlet {

// Missing permission bits (EACCES) are what granting access mends, so they become the frameworks' permission
// code. EPERM stands for what permission does not mend: an immutable file, another user's file in a sticky
// folder. EBUSY and ETXTBSY are "not permitted while in use"; like EPERM they carry EPERM beneath them. All
// other errors speak for themselves through their description.
PlatformError errorFromErrno(int errnoValue) {
    std::string description = std::generic_category().message(errnoValue);
    switch (errnoValue) {
    case ENOENT:
        return {ErrorDomain::cocoa, 4, errnoValue, std::move(description)};
    case EACCES:
        return {ErrorDomain::cocoa, 513, errnoValue, std::move(description)};
    case EPERM:
    case EBUSY:
    case ETXTBSY:
        return {ErrorDomain::posix, errnoValue, EPERM, std::move(description)};
    default:
        return {ErrorDomain::posix, errnoValue, std::nullopt, std::move(description)};
    }
}

} // namespace brimlet
