#include "platform/linux/removal/FreeName.h"

#include "platform/linux/removal/NumberedName.h"

#include <cerrno>

namespace brimlet {

namespace {

/// 1 when the name is taken, 0 when it is free, or a negative errno.
int isTaken(FileSystemCalls& calls, int folder, const std::string& name, unsigned number) {
    FileStatus status;
    const int result = calls.status(folder, numberedName(name, number).c_str(), status);
    if (result == -ENOENT)
        return 0;
    return result < 0 ? result : 1;
}

} // namespace

// Doubles the stride until a name is free, then halves the span between that one and the last taken.
Result<unsigned> freeNumber(FileSystemCalls& calls, int folder, const std::string& name, unsigned taken) {
    unsigned stride = 1;
    int result = 0;
    while ((result = isTaken(calls, folder, name, taken + stride)) > 0) {
        taken += stride;
        stride *= 2;
    }
    unsigned free = taken + stride;
    while (result >= 0 && free - taken > 1) {
        const unsigned middle = taken + (free - taken) / 2;
        result = isTaken(calls, folder, name, middle);
        (result > 0 ? taken : free) = middle;
    }
    if (result < 0)
        return errorFromErrno(-result);
    return free;
}

} // namespace brimlet
