#include "platform/linux/LinuxDirectoryLister.h"
#include "core/walk/MeasureTree.h"
#include "platform/linux/LinuxEntryLookup.h"
#include "support/TemporaryTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brimlet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::UnorderedElementsAre;

TEST(LinuxDirectoryListerTest, listsHiddenAndOddNamesWithTheirOwnDatesAndIdentities) {
    const test::TemporaryTree tree;
    const LinuxDirectoryLister lister;
    tree.file("folder/.hidden");
    tree.file("folder/new\nline \xFF", 8192);
    tree.file("folder/inner/below");
    tree.symbolicLink("folder/link", "inner");
    tree.setTimes("folder/.hidden", 1, 1'700'000'000.5);
    tree.setTimes("folder/new\nline \xFF", 1, 5);
    tree.setTimes("folder/inner", 1, 6);
    tree.setTimes("folder/link", 1, -7);
    const auto bytesOf = [&](const std::string& name) {
        return measureTree(tree.path("folder/" + name)).bytes;
    };
    const auto child = [&](const std::string& name, double modified, std::optional<std::int64_t> bytes) {
        const auto found = LinuxEntryLookup().find(tree.path("folder/" + name));
        EXPECT_TRUE(found) << name;
        return ListedChild{name, modified, bytes, found ? std::optional(found->identity) : std::nullopt};
    };
    EXPECT_THAT(
        lister.children(tree.path("folder")),
        Optional(UnorderedElementsAre(child(".hidden", 1'700'000'000.5, bytesOf(".hidden")),
                                      child("new\nline \xFF", 5, bytesOf("new\nline \xFF")),
                                      child("inner", 6, std::nullopt), child("link", -7, bytesOf("link")))));
    EXPECT_THAT(lister.children(tree.directory("empty")), Optional(IsEmpty()));
}

TEST(LinuxDirectoryListerTest, whatIsNoFolderOfItsOwnIsNotListed) {
    const test::TemporaryTree tree;
    const LinuxDirectoryLister lister;
    tree.file("folder/file");
    EXPECT_EQ(lister.children(tree.path("missing")), std::nullopt);
    EXPECT_EQ(lister.children(tree.path("folder/file")), std::nullopt);
    EXPECT_EQ(lister.children(tree.symbolicLink("link", "folder")), std::nullopt);
    EXPECT_THAT(lister.children(tree.path("link/../folder")), Optional(ElementsAre(testing::_)));
}

} // namespace
} // namespace brimlet
