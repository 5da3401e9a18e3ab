// An error of the operating system as one value. Everything behind the platform layer reports through it.
#pragma once

#include <optional>
#include <string>

namespace brimlet {

/// Whose numbering `code` belongs to.
enum class ErrorDomain {
    cocoa, ///< the file error codes of the system's own frameworks: 4 no such file, 257 no read, 513 no write
           ///< permission
    posix, ///< errno
};

struct PlatformError {
    ErrorDomain domain = ErrorDomain::posix;
    int code = 0;
    std::optional<int> underlyingPosixCode; ///< the errno beneath a `cocoa` error
    std::string description;                ///< a sentence for the user
    bool operator==(const PlatformError&) const = default;
};

/// The error for an errno. Not-found and permission errors become their `cocoa` codes with the errno beneath
/// them. This is the one place where errno is translated.
PlatformError errorFromErrno(int errnoValue);

} // namespace brimlet
