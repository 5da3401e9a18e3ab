#include "platform/linux/LinuxBundleReader.h"
#include "platform/linux/LinuxRunningApplications.h"
#include "platform/RecentRunningApplications.h"
#include "safety/SafetyPolicy.h"
#include "support/ChildProcess.h"
#include "support/FakeBundles.h"
#include "support/PropertyLists.h"
#include "support/TemporaryTree.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace brimlet {
namespace {

using test::ChildProcess;
using test::TemporaryTree;
using test::xmlInfoList;

class LinuxBundleReaderTest : public testing::Test {
protected:
    TemporaryTree tree;
    LinuxBundleReader reader;

    /// Makes a bundle whose program, a copy of `sleep`, can be started. Returns the bundle's path.
    std::string makeBundle(const std::string& name, std::string_view infoList) const {
        tree.fileWithText(name + "/Contents/Info.plist", infoList);
        tree.directory(name + "/Contents/MacOS");
        std::filesystem::copy_file("/bin/sleep", programOf(tree.path(name)));
        return tree.path(name);
    }
    static std::string programOf(const std::string& bundle) { return bundle + "/Contents/MacOS/program"; }
};

TEST_F(LinuxBundleReaderTest, readsTheIdentifierOfABundle) {
    EXPECT_EQ(reader.identifier(makeBundle("X.app", xmlInfoList("com.foo.X"))), "com.foo.X");
    EXPECT_EQ(reader.identifier(makeBundle("B.app", test::binaryInfoList("com.foo.B"))), "com.foo.B");
    EXPECT_EQ(reader.ownIdentifier(), "com.brimlet.mac");
}

TEST_F(LinuxBundleReaderTest, whatIsNoBundleHasNoIdentifier) {
    EXPECT_EQ(reader.identifier(tree.path("Missing.app")), std::nullopt);
    EXPECT_EQ(reader.identifier(tree.directory("Empty.app")), std::nullopt);
    EXPECT_EQ(reader.identifier(tree.file("File.app", 10)), std::nullopt);
    tree.directory("Odd.app/Contents/Info.plist");
    EXPECT_EQ(reader.identifier(tree.path("Odd.app")), std::nullopt);
    EXPECT_EQ(reader.identifier(makeBundle("Rotten.app", "bplist00rotten")), std::nullopt);
    tree.directory("Huge.app/Contents");
    tree.sparseFile("Huge.app/Contents/Info.plist", std::int64_t{1} << 40);
    EXPECT_EQ(reader.identifier(tree.path("Huge.app")), std::nullopt);
}

TEST_F(LinuxBundleReaderTest, pipeInPlaceOfTheListIsNotWaitedFor) {
    tree.directory("Pipe.app/Contents");
    ASSERT_EQ(mkfifo(tree.path("Pipe.app/Contents/Info.plist").c_str(), 0600), 0);
    EXPECT_EQ(reader.identifier(tree.path("Pipe.app")), std::nullopt);
}

TEST_F(LinuxBundleReaderTest, openApplicationIsProtectedUntilItEnds) {
    const LinuxRunningApplications running(reader, ".app");
    const SafetyPolicy policy("/Users/me", macosTables().safety, {}, reader, running);
    const std::string bundle = makeBundle("Busy.app", xmlInfoList("com.foo.Busy"));
    const std::string copy = makeBundle("Copy.app", xmlInfoList("com.foo.Busy"));
    const std::string other = makeBundle("Other.app", xmlInfoList("com.foo.Other"));
    EXPECT_EQ(policy.verdict(bundle).risk, Risk::review);
    {
        const ChildProcess process({programOf(bundle), "600"});
        EXPECT_EQ(policy.verdict(bundle).reason, "The app is open. Quit it before removing it.");
        EXPECT_EQ(policy.verdict(bundle).risk, Risk::protected_);
        EXPECT_EQ(policy.verdict(copy).risk, Risk::protected_);
        EXPECT_EQ(policy.verdict(other).risk, Risk::review);
    }
    EXPECT_EQ(policy.verdict(bundle).reason, "Application. Use Uninstall to remove its data too.");
}

TEST_F(LinuxBundleReaderTest, processInAnInnerBundleKeepsTheOuterOneOpenToo) {
    makeBundle("Outer.app", xmlInfoList("com.foo.Outer"));
    const std::string inner = makeBundle("Outer.app/Contents/Inner.app", xmlInfoList("com.foo.Inner"));
    makeBundle("Bare.app", "no list");
    const ChildProcess process({programOf(inner), "600"});
    const ChildProcess unnamed({programOf(tree.path("Bare.app")), "600"});
    const std::vector<std::string> open = LinuxRunningApplications(reader, ".app").identifiers();
    EXPECT_EQ(std::ranges::count(open, "com.foo.Inner"), 1);
    EXPECT_EQ(std::ranges::count(open, "com.foo.Outer"), 1);
}

TEST_F(LinuxBundleReaderTest, withoutProcessesNothingRuns) {
    EXPECT_TRUE(LinuxRunningApplications(reader, ".app", tree.path("missing")).identifiers().empty());
    tree.directory("proc/12");
    tree.directory("proc/self");
    EXPECT_TRUE(LinuxRunningApplications(reader, ".app", tree.path("proc")).identifiers().empty());
}

TEST(RecentRunningApplications, asksAgainOnlyWhenItsAnswerIsTooOld) {
    using std::chrono::milliseconds;
    test::FakeRunningApplications running;
    running.open = {"com.example.one"};
    RecentRunningApplications::Clock::time_point now;
    const RecentRunningApplications recent(running, milliseconds(100), [&] { return now; });
    EXPECT_EQ(recent.identifiers(), running.open) << "also at the clock's beginning";
    running.open.clear();
    now += milliseconds(100);
    EXPECT_EQ(recent.identifiers().size(), 1U);
    EXPECT_EQ(running.asked, 1);
    now += milliseconds(1);
    EXPECT_TRUE(recent.identifiers().empty());
    EXPECT_EQ(running.asked, 2);
}

} // namespace
} // namespace brimlet
