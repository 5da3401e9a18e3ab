#include "platform/linux/LinuxAccessProbe.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>

namespace brimlet {
namespace {

TEST(LinuxAccessProbeTest, eitherReadablePlaceGrantsAccess) {
    const test::TemporaryTree tree;
    const LinuxAccessProbe probe(tree.path("TCC.db"), tree.path("home/Library/Safari"));
    EXPECT_FALSE(probe.hasFullDiskAccess());
    tree.file("home/Library/Safari");
    EXPECT_FALSE(probe.hasFullDiskAccess()) << "a file is no folder to list";
    tree.file("TCC.db");
    EXPECT_TRUE(probe.hasFullDiskAccess());

    tree.directory("other/Library/Safari");
    EXPECT_TRUE(
        LinuxAccessProbe(tree.path("missing.db"), tree.path("other/Library/Safari")).hasFullDiskAccess());
    EXPECT_TRUE(LinuxAccessProbe(tree.symbolicLink("loop.db", "loop.db"), tree.path("other/Library/Safari"))
                    .hasFullDiskAccess())
        << "the first can't be opened, the second can";
}

} // namespace
} // namespace brimlet
