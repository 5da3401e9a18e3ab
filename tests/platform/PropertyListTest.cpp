#include "platform/PropertyList.h"
#include "support/PropertyLists.h"

#include <gtest/gtest.h>
#include <random>

namespace brimlet {
namespace {

using test::binaryArray;
using test::binaryInfoList;
using test::binaryListOf;
using test::xmlInfoList;

std::optional<std::string> identifierIn(std::string_view bytes) {
    const auto list = PropertyList::fromBytes(bytes);
    return list ? list->text("CFBundleIdentifier") : std::nullopt;
}

std::string repeated(std::string_view piece, int times) {
    std::string text;
    for (int i = 0; i < times; ++i)
        text += piece;
    return text;
}

TEST(PropertyListTest, readsXmlAndBinary) {
    EXPECT_EQ(identifierIn(xmlInfoList("com.foo.Bar")), "com.foo.Bar");
    EXPECT_EQ(identifierIn("\xEF\xBB\xBF" + xmlInfoList("com.foo.Bar")), "com.foo.Bar");
    EXPECT_EQ(identifierIn(binaryInfoList("com.foo.Bar")), "com.foo.Bar");
    EXPECT_EQ(identifierIn(binaryInfoList("com.foo.B\xC3\xA4r")), "com.foo.B\xC3\xA4r");
    EXPECT_EQ(PropertyList::fromBytes(xmlInfoList("x"))->text("CFBundleName"), "A & B");
}

TEST(PropertyListTest, givesNoTextWhereNoneStands) {
    const auto list = PropertyList::fromBytes(xmlInfoList("x"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->text("LSMinimumSystemVersion"), std::nullopt);
    EXPECT_EQ(list->text("Missing"), std::nullopt);
    EXPECT_EQ(
        identifierIn("<plist version=\"1.0\"><array><string>CFBundleIdentifier</string></array></plist>"),
        std::nullopt);
    EXPECT_EQ(identifierIn("<plist version=\"1.0\"><string>CFBundleIdentifier</string></plist>"),
              std::nullopt);
}

TEST(PropertyListTest, everyTruncationIsSurvived) {
    for (const std::string& sound : {xmlInfoList("com.foo.Bar"), binaryInfoList("com.foo.Bar")}) {
        for (std::size_t length = 0; length < sound.size(); ++length) {
            // A copy of its own, so that a read beyond its end is seen by the sanitizers.
            const std::vector<char> cut(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(length));
            const auto identifier = identifierIn({cut.data(), cut.size()});
            EXPECT_TRUE(!identifier || identifier == "com.foo.Bar") << length;
        }
    }
}

TEST(PropertyListTest, hostileListsAreNoLists) {
    const std::string key = "\x5F\x10\x12"
                            "CFBundleIdentifier";
    const std::string value = "\x53"
                              "com";
    ASSERT_EQ(identifierIn(binaryListOf({std::string("\xD1\x01\x02"), key, value})), "com");

    std::vector<std::string> nested;
    for (unsigned char i = 1; i < 250; ++i)
        nested.push_back(binaryArray({i}));
    nested.push_back(value);
    std::vector<std::string> doubling;
    for (unsigned char i = 1; i < 60; ++i)
        doubling.push_back(binaryArray({i, i}));
    doubling.push_back(value);
    const std::vector<unsigned char> many(255, 1);
    const struct {
        const char* what;
        std::string bytes;
    } cases[] = {
        {"nothing", ""},
        {"only a mark", "bplist00"},
        {"not a list", std::string(1000, '\xFF')},
        {"root contains itself", binaryListOf({binaryArray({0})})},
        {"cycle of two", binaryListOf({binaryArray({1}), binaryArray({0})})},
        {"dictionary in itself", binaryListOf({std::string("\xD1\x01\x00", 3), key})},
        {"deeply nested", binaryListOf(nested)},
        {"doubles sixty times", binaryListOf(doubling)},
        {"a long string 255 times 255 times",
         binaryListOf({binaryArray(many), binaryArray(std::vector<unsigned char>(255, 2)),
                       std::string("\x5F\x12\x00\x00\x27\x10", 6) + std::string(10'000, 'x')})},
        {"text of 1 GB",
         binaryListOf({std::string("\xD1\x01\x02"), key, std::string("\x5F\x12\x40\x00\x00\x00", 6)})},
        {"UTF-16 text whose length overflows",
         binaryListOf({std::string("\x6F\x13\x80\x00\x00\x00\x00\x00\x00\x04", 10)})},
        {"array of 2^61 entries",
         binaryListOf({std::string("\xAF\x13\x20\x00\x00\x00\x00\x00\x00\x00", 10)})},
        {"root that isn't there", binaryListOf({value}, 7)},
        {"root beyond all numbers", binaryListOf({value}, UINT64_MAX)},
        {"reference that isn't there", binaryListOf({binaryArray({9})})},
        {"XML nested 100,000 deep", "<plist version=\"1.0\">" + repeated("<array>", 100'000)},
        {"XML nested and closed",
         "<plist version=\"1.0\">" + repeated("<array>", 50'000) + repeated("</array>", 50'000) + "</plist>"},
        {"text of half a million references",
         "<plist version=\"1.0\"><string>" + repeated("&lt;", 200'000) + "</string></plist>"},
        {"longer than any list", xmlInfoList("x") + std::string(PropertyList::maximumBytes, ' ')},
    };
    for (const auto& [what, bytes] : cases)
        EXPECT_FALSE(PropertyList::fromBytes(bytes).has_value()) << what;
}

TEST(PropertyListTest, trailerWithOddFieldsIsSurvived) {
    const std::string sound = binaryInfoList("com.foo.Bar");
    for (std::size_t field = sound.size() - 32; field < sound.size(); ++field) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string odd = sound;
            odd[field] = static_cast<char>(byte);
            identifierIn(odd);
        }
    }
}

/// Nesting up to what is let through must not exhaust the stack of a thread, also when it is given back.
TEST(PropertyListTest, deepestListLetThroughIsReadAndFreed) {
    const auto nestedXml = [](int depth) {
        return "<plist version=\"1.0\">" + repeated("<array>", depth) + repeated("</array>", depth) +
               "</plist>";
    };
    EXPECT_TRUE(PropertyList::fromBytes(nestedXml(4096)).has_value());
    EXPECT_FALSE(PropertyList::fromBytes(nestedXml(4097)).has_value());
}

TEST(PropertyListTest, randomDamageIsSurvived) {
    constexpr std::uint32_t seed = 7;
    constexpr int rounds = 100'000;
    std::mt19937 random(seed);
    const std::string sources[] = {xmlInfoList("com.foo.Bar"), binaryInfoList("com.foo.Bar"),
                                   binaryInfoList("com.foo.B\xC3\xA4r"),
                                   binaryListOf({binaryArray({1, 2, 3}), binaryArray({3, 3}), binaryArray({}),
                                                 "\x53"
                                                 "abc"})};
    for (int round = 0; round < rounds; ++round) {
        std::string bytes = sources[random() % std::size(sources)];
        for (auto changes = random() % 6; !bytes.empty() && changes > 0; --changes) {
            const std::size_t at = random() % bytes.size();
            switch (random() % 4) {
            case 0:
                bytes[at] = static_cast<char>(random());
                break;
            case 1:
                bytes[at] = static_cast<char>(bytes[at] ^ 1 << random() % 8);
                break;
            case 2:
                bytes.erase(at, random() % 8);
                break;
            default:
                bytes.insert(at, bytes.substr(random() % bytes.size(), random() % 40));
                break;
            }
        }
        if (const auto list = PropertyList::fromBytes(bytes))
            list->text("CFBundleIdentifier");
    }
}

} // namespace
} // namespace brimlet
