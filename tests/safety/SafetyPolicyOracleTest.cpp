// The policy against the plain list of questions, over random paths that come close to every table row.

#include "safety/SafetyPolicy.h"
#include "support/FakeBundles.h"
#include "support/PlainSafetyPolicy.h"
#include "tables/SystemTables.h"

#include <cctype>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>

namespace brimlet {
namespace {

const SafetyTables& tables = macosTables().safety;

/// Makes paths from the tables' own pieces, and spoils some.
class PathMaker {
public:
    PathMaker(const std::string& home, std::uint32_t seed)
        : m_random(seed)
        , m_home(home) {
        for (const PlaceRow& row : tables.systemPlaces)
            m_places.emplace_back(row.path);
        for (const PlaceRow& row : tables.homePlaces)
            m_places.push_back(home + "/" + std::string(row.path));
        for (const std::string_view folder : tables.standardFolders)
            m_places.push_back(home + "/" + std::string(folder));
        for (const JunkRule& rule : macosTables().junk.rules) {
            m_places.push_back(rule.resolvedBase(home));
            m_names.insert(m_names.end(), rule.excludedNames.begin(), rule.excludedNames.end());
            if (rule.extensions)
                m_extensions.insert(m_extensions.end(), rule.extensions->begin(), rule.extensions->end());
        }
        for (const std::string_view marker : tables.packageMarkers)
            m_extensions.push_back(marker.substr(1, marker.size() - 2));
        for (const char* place :
             {"/", "/Users", "/Applications", "/Library", "/private", "/usr", "/opt", "/Volumes"})
            m_places.emplace_back(place);
        m_places.push_back(home);
        m_places.push_back(home + "/.Trash");
    }

    std::string next() {
        std::string path = chance(15) ? "/System/Volumes/Data" : "";
        path += chance(5) ? m_home + pick(m_places) : pick(m_places);
        while (chance(65))
            path += "/" + name();
        while (chance(25))
            spoil(path);
        return path;
    }

private:
    bool chance(unsigned percent) { return m_random() % 100 < percent; }
    template <typename List>
    std::string pick(const List& list) {
        return std::string(list[m_random() % list.size()]);
    }

    std::string name() {
        std::string result = chance(30) ? pick(m_names) : pick(m_plain);
        if (chance(45))
            result += "." + pick(m_extensions);
        return result;
    }

    void spoil(std::string& path) {
        const std::size_t at = path.empty() ? 0 : m_random() % path.size();
        switch (m_random() % 9) {
        case 0:
            if (!path.empty())
                path[at] = static_cast<char>(std::isupper(path[at]) != 0 ? std::tolower(path[at])
                                                                         : std::toupper(path[at]));
            break;
        case 1:
            path += '/';
            break;
        case 2:
            if (const std::size_t slash = path.find('/', at); slash != std::string::npos)
                path.insert(slash, "/");
            break;
        case 3:
            path += "/..";
            break;
        case 4:
            if (!path.empty())
                path.pop_back();
            break;
        case 5:
            path += "x./"[m_random() % 3];
            break;
        case 6:
            path.insert(at, pick(tables.packageMarkers));
            break;
        case 7:
            path.insert(at, 1, static_cast<char>(0x80 + m_random() % 0x80));
            break;
        default:
            path.insert(0, pick(std::array<std::string_view, 3>{"/", "x", "/System"}));
            break;
        }
    }

    std::mt19937 m_random;
    std::string m_home;
    std::vector<std::string> m_places;
    std::vector<std::string_view> m_names = {
        "com.apple.mail", "group.com.apple.notes", "Data", "Library", "Caches", "Downloads", ".Trash"};
    std::vector<std::string_view> m_extensions = {"zip", "", "old", "DMG", "App"};
    const std::vector<std::string_view> m_plain = {"a",           "b c",      "com.foo", ".hidden",
                                                   "caf\xC3\xA9", "\xFF\xFE", "x"};
};

/// Gives bundles of all kinds, by a property of the path alone.
class ManyBundles final : public BundleReader {
public:
    std::optional<std::string> identifier(const std::string& bundlePath) const override {
        switch (bundlePath.size() % 5) {
        case 0:
            return std::nullopt;
        case 1:
            return "com.apple.x";
        case 2:
            return "com.open.x";
        case 3:
            return ownBundleIdentifier;
        default:
            return "com.foo.x";
        }
    }
    std::optional<std::string> ownIdentifier() const override { return ownBundleIdentifier; }
};

/// Fills `reached` with how often each sentence was given.
void compareOverRandomPaths(const std::string& home, std::uint32_t seed, int count,
                            std::map<std::string, int>& reached) {
    const ManyBundles bundles;
    test::FakeRunningApplications running;
    running.open = {"com.open.x"};
    const SafetyPolicy policy(home, macosTables().safety, macosTables().junk.rules, bundles, running);
    const test::PlainSafetyPolicy plain{home, macosTables().junk.rules, bundles, running};
    PathMaker maker(home, seed);
    for (int i = 0; i < count; ++i) {
        const std::string path = maker.next();
        const SafetyVerdict verdict = policy.verdict(path);
        ASSERT_EQ(verdict, plain.verdict(path)) << "seed " << seed << ", path " << i << ": " << path;
        ASSERT_EQ(policy.rule(path), plain.rule(path)) << "seed " << seed << ", path " << i << ": " << path;
        ++reached[verdict.reason];
    }
}

class SafetyPolicyOracleTest : public testing::TestWithParam<std::uint32_t> {};

/// Four runs make a million paths.
INSTANTIATE_TEST_SUITE_P(Seeds, SafetyPolicyOracleTest, testing::Values(1U, 2U, 3U, 4U));

TEST_P(SafetyPolicyOracleTest, agreesOnPathsThatReachEverySentence) {
    std::map<std::string, int> reached;
    compareOverRandomPaths("/Users/me", GetParam(), 250'000, reached);
    std::set<std::string_view> reasons;
    for (const PlaceRow& row : tables.systemPlaces)
        reasons.insert(row.reason);
    for (const PlaceRow& row : tables.homePlaces)
        reasons.insert(row.reason);
    for (const JunkRule& rule : macosTables().junk.rules)
        reasons.insert(rule.explanation);
    // Fixed places 3, markers 8, applications 4, remaining places 7 but for "Already in the Trash", which the
    // rule of the Trash always takes.
    EXPECT_EQ(reached.size(), reasons.size() + 3 + tables.packageMarkers.size() + 4 + 6);
}

TEST_P(SafetyPolicyOracleTest, agreesWhereHomeFoldersStandOddly) {
    std::map<std::string, int> reached;
    compareOverRandomPaths("/private/var/root", GetParam(), 25'000, reached);
    compareOverRandomPaths("/Users/\xFF.app", GetParam(), 25'000, reached);
}

} // namespace
} // namespace brimlet
