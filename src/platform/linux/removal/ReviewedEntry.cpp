#include "platform/linux/removal/ReviewedEntry.h"

#include "platform/FileRemoval.h"

namespace brimlet {

Failure changeSinceReview(FileSystemCalls& calls, const WalkedEntry& entry) {
    if (!entry.reviewed)
        return std::nullopt;
    FileStatus status;
    const int result = calls.status(entry.parent.folder.number(), entry.name.c_str(), status);
    if (result < 0)
        return errorFromErrno(-result);
    return entry.reviewed->isOf(status.identity()) ? Failure() : changedSinceReview();
}

bool isAnotherThanReviewed(FileSystemCalls& calls, const WalkedEntry& entry, int folder,
                           const std::string& name) {
    FileStatus status;
    return entry.reviewed && calls.status(folder, name.c_str(), status) == 0 &&
           !entry.reviewed->isOf(status.identity());
}

} // namespace brimlet
