// Consent is given to a thing, not to a path: whether an entry is still what was reviewed.
#pragma once

#include "platform/linux/PathWalk.h"

namespace brimlet {

/// Compares what lies at an entry's place with what was reviewed. An error when it differs or is gone; an
/// entry that nobody reviewed is not looked at.
Failure changeSinceReview(FileSystemCalls& calls, const WalkedEntry& entry);

/// Whether what has just left its place is not what was reviewed, but took its place at the last moment.
/// folder, name   where it is now
bool isAnotherThanReviewed(FileSystemCalls& calls, const WalkedEntry& entry, int folder,
                           const std::string& name);

} // namespace brimlet
