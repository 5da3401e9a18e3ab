#include "support/TemporaryTree.h"
#include "views/nodes/PreviewContent.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QImage>

namespace brimlet {
namespace {

const std::atomic<bool> wanted = true;

TEST(PreviewContent, showsTextsAndImagesAndNothingOfTheRest) {
    const test::TemporaryTree folder;
    struct Case {
        const char* what;
        std::string content;
        QString text;
    };
    const Case cases[] = {
        {"plain", "two\nlines", "two\nlines"},
        {"empty", "", ""},
        {"letters beyond ASCII", "caf\xc3\xa9", "café"},
        {"binary", std::string("a\0b", 3), ""},
        {"no UTF-8", "caf\xe9 au lait", ""},
        {"a script is only shown", "#!/bin/sh\nexit 1", "#!/bin/sh\nexit 1"},
    };
    for (const Case& one : cases) {
        const PreviewContent content = readPreview(folder.fileWithText("file", one.content), wanted);
        EXPECT_EQ(content.text, one.text) << one.what;
        EXPECT_TRUE(content.image.isNull()) << one.what;
        EXPECT_FALSE(content.cut) << one.what;
    }
}

TEST(PreviewContent, readsOnlyTheBeginningOfALongText) {
    const test::TemporaryTree folder;
    std::string text(3, 'x');
    for (int i = 0; i < 100'000; ++i)
        text += "\xc3\xa9";
    const PreviewContent content = readPreview(folder.fileWithText("long.txt", text), wanted);
    EXPECT_TRUE(content.cut);
    EXPECT_EQ(content.text.left(5), "xxxéé");
    EXPECT_LT(content.text.size(), 100'000);
    EXPECT_FALSE(content.text.contains(QChar::ReplacementCharacter));
}

TEST(PreviewContent, scalesImagesDown) {
    const test::TemporaryTree folder;
    QImage large(4'000, 1'000, QImage::Format_RGB32);
    large.fill(Qt::red);
    const std::string path = folder.path("large.png");
    ASSERT_TRUE(large.save(QString::fromStdString(path)));
    const PreviewContent content = readPreview(path, wanted);
    EXPECT_EQ(content.image.size(), QSize(1'600, 400));
    EXPECT_EQ(content.image.pixelColor(800, 200), QColor(Qt::red));
}

TEST(PreviewContent, neverOpensWhatIsNoPlainFile) {
    const test::TemporaryTree folder;
    const std::string pipe = folder.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string text = folder.fileWithText("text", "words");
    for (const std::string& path : {pipe, folder.symbolicLink("link", text), folder.directory("folder"),
                                    folder.path("missing"), std::string("/dev/zero")}) {
        const PreviewContent content = readPreview(path, wanted);
        EXPECT_TRUE(content.text.isEmpty() && content.image.isNull()) << path;
    }
}

TEST(PreviewContent, doesNotReadAHugeFile) {
    const test::TemporaryTree folder;
    const std::string path = folder.sparseFile("huge", std::int64_t{1} << 40);
    const PreviewContent content = readPreview(path, wanted);
    EXPECT_TRUE(content.text.isEmpty() && content.image.isNull());
}

} // namespace
} // namespace brimlet
