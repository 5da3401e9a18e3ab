#include "json/Json.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace brimlet {
namespace {

TEST(Json, foreignBytesAreLoneSurrogates) {
    struct Case {
        std::string bytes;
        std::string json;
    };
    const Case cases[] = {
        {"plain \"quoted\"\\\n", R"("plain \"quoted\"\\\n")"},
        {"caf\xc3\xa9", "\"caf\xc3\xa9\""},
        {"caf\xe9", R"("caf\udce9")"},
        {"\xff\x80", R"("\udcff\udc80")"},
        {"\xed\xa0\x80", R"("\udced\udca0\udc80")"}, // a surrogate spelled in UTF-8 is no valid text
        {"\xc0\xaf", R"("\udcc0\udcaf")"},           // neither is an overlong slash
        {"\xc3", R"("\udcc3")"},
        {"\\udc80", R"("\\udc80")"},
        {"\xf4\x8f\xbf\xbf", "\"\xf4\x8f\xbf\xbf\""},
        {"\xf0\x9f\x98\x80", "\"\xf0\x9f\x98\x80\""},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(writeJson(jsonString(one.bytes)), one.json);
        const auto read = readJson(one.json);
        ASSERT_TRUE(read) << one.json;
        EXPECT_EQ(bytesOf(*read), one.bytes) << one.json;
    }
}

TEST(Json, readsEscapesThatOthersWrite) {
    EXPECT_EQ(bytesOf(*readJson(R"("\u00e9\ud83d\ude00\udbff\udfff\/")")),
              "\xc3\xa9\xf0\x9f\x98\x80\xf4\x8f\xbf\xbf/");
    EXPECT_FALSE(readJson(R"("\ud800")"));
    EXPECT_FALSE(readJson(R"("\udc7f")"));
    EXPECT_FALSE(readJson("\"\xff\""));
    EXPECT_FALSE(readJson("[1,"));
    EXPECT_FALSE(readJson("\"\\"));
}

TEST(Json, anyBytesSurviveTheRoundTrip) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    constexpr std::string_view pieces[] = {"\xf4\x8f\xbf\xbf", "00", "ff",  "\\u", "dc80",
                                           "\xc3\xa9",         "\"", "\xed"};
    for (int round = 0; round < 5000; ++round) {
        std::string bytes;
        for (unsigned i = random() % 12; i > 0; --i) {
            if (random() % 2 == 0)
                bytes += pieces[random() % std::size(pieces)];
            else
                bytes += static_cast<char>(random() % 256);
        }
        const auto read = readJson(writeJson(Json::array({jsonString(bytes)})));
        ASSERT_TRUE(read);
        ASSERT_EQ(bytesOf(read->at(0)), bytes);
        std::string text;
        addJsonString(text, bytes);
        ASSERT_EQ(text, writeJson(jsonString(bytes)));
    }
}

} // namespace
} // namespace brimlet
