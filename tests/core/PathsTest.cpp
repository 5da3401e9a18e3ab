#include "core/Paths.h"

#include <gtest/gtest.h>

namespace brimlet {
namespace {

TEST(Paths, areShownWithoutTheDataVolumeAndWithAShortHome) {
    struct Case {
        std::string_view path;
        std::string_view shown;
    };
    constexpr Case cases[] = {
        {"/System/Volumes/Data", "/"},
        {"/System/Volumes/Data/", "/"},
        {"/System/Volumes/Database", "/System/Volumes/Database"},
        {"/System/Volumes/Data/Users/bob/a", "~/a"},
        {"/Users/bob", "~"},
        {"/Users/bob/Documents/x", "~/Documents/x"},
        {"/Users/bob2", "/Users/bob2"},
        {"", ""},
    };
    for (const Case& one : cases)
        EXPECT_EQ(displayPath(one.path, "/Users/bob"), one.shown) << one.path;
}

TEST(Paths, componentsLeaveOutEmptyPieces) {
    EXPECT_TRUE(pathComponents("//").empty());
    EXPECT_EQ(pathComponents("/a//b/"), (std::vector<std::string_view>{"a", "b"}));
    EXPECT_EQ(pathComponents("a"), (std::vector<std::string_view>{"a"}));
}

} // namespace
} // namespace brimlet
