// Every symbol that a table names can be drawn, and files look like what they are.
#include "app/state/AppSection.h"
#include "core/FileKind.h"
#include "core/StorageBucket.h"
#include "tables/SystemTables.h"
#include "views/icons/FileLooks.h"
#include "views/icons/IconProvider.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace brimlet {
namespace {

TEST(Looks, everySymbolInUseCanBeDrawn) {
    std::set<std::string> symbols;
    for (const AppSectionLook& section : allSections())
        symbols.emplace(section.symbol);
    for (const FileKind kind : allFileKinds())
        symbols.emplace(look(kind).symbol);
    for (const StorageBucket bucket : allStorageBuckets())
        symbols.emplace(look(bucket).symbol);
    IconProvider icons;
    for (const std::string& symbol : symbols) {
        const QString id = QString::fromStdString(symbol) + QStringLiteral("?%236e5bff");
        const QImage image = icons.requestImage(id, nullptr, QSize(32, 32));
        EXPECT_EQ(image.size(), QSize(32, 32)) << symbol;
        bool inked = false;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                inked = inked || image.pixelColor(x, y) == QColor("#6e5bff");
        }
        EXPECT_TRUE(inked) << symbol << " has nothing in the colour asked for";
    }
}

TEST(Looks, filesAndFoldersShowWhatTheyAre) {
    const FileLooks looks(macosTables().folders);
    EXPECT_EQ(looks.symbol("~/Movies", true), "folder.fill");
    EXPECT_EQ(looks.symbol("~/film.mov", false),
              QString::fromStdString(std::string(look(FileKind::video).symbol)));
    EXPECT_EQ(looks.symbol("/Applications/Editor.app", true),
              QString::fromStdString(std::string(look(FileKind::application).symbol)));
    EXPECT_NE(looks.symbol("~/movie.mov", true), looks.symbol("~/movie.mov", false));
}

} // namespace
} // namespace brimlet
