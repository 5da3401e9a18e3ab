#pragma once

#include <functional>

namespace brimlet::test {

/// Whether `question` is answered with yes in a child process that permission bits bind: as user 65534 where
/// the test runs as root, as the same user otherwise. What the child changes in memory is lost.
bool asOrdinaryUser(const std::function<bool()>& question);

} // namespace brimlet::test
