#include "app/state/NavigationState.h"
#include "app/state/PreferencesState.h"
#include "app/state/RemovalState.h"
#include "app/state/ScanState.h"
#include "support/SyntheticTree.h"
#include "support/TemporaryTree.h"
#include "support/TestApp.h"
#include "views/explorer/ExplorerModel.h"
#include "views/explorer/FolderModel.h"
#include "views/files/FileListModel.h"
#include "views/files/KindTilesModel.h"
#include "views/nodes/NodeActions.h"
#include "views/nodes/RowWindow.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <random>

namespace brimlet {
namespace {

using test::TestApp;
using Tester = QAbstractItemModelTester;

constexpr auto fatal = Tester::FailureReportingMode::Fatal;

/// An application whose scan of /Users/sam has ended.
class NodeModels : public testing::Test {
protected:
    void finishScan(std::shared_ptr<ScanResult> result) {
        state().scan()->startScan(ScanTarget::folder("/Users/sam"));
        const std::size_t walk = m_walks++;
        m_app.walks.begun(walk);
        m_app.walks.finish(walk, std::move(result));
        ASSERT_TRUE(test::eventually([&] { return !state().scan()->isScanning(); }));
    }

    /// sam ┬ Movies ┬ b.mov (300), a.mov (200)
    ///     │        └ Big.app (100) ─ binary
    ///     ├ notes.txt (50)
    ///     └ 4 small files (40)
    void scanSample() {
        test::SyntheticTree tree("/Users/sam");
        FileNode* movies = tree.directory(tree.root(), "Movies");
        tree.file(movies, "b.mov", 300);
        tree.file(movies, "a.mov", 200);
        tree.file(tree.directory(movies, "Big.app"), "binary", 100);
        tree.file(tree.root(), "notes.txt", 50);
        tree.smallFiles(tree.root(), 4, 40);
        finishScan(tree.finish());
    }

    AppState& state() { return m_app.state(); }
    FileNode* node(std::string_view path) { return state().scan()->scan()->nodeAtPath(path); }

    static QString names(const NodeTableModel& model) {
        QStringList all;
        for (int row = 0; row < model.count(); ++row)
            all << model.index(row).data(NodeTableModel::NameRole).toString();
        return all.join(u' ');
    }

    TestApp m_app;
    std::size_t m_walks = 0;
};

TEST_F(NodeModels, filesFollowFilterSortAndDeletion) {
    FilterEditor filter;
    FileListModel files;
    const Tester tester(&files, fatal);
    files.setFilter(&filter);
    files.setState(&state());
    EXPECT_EQ(files.count(), 0);
    scanSample();
    EXPECT_EQ(names(files), "b.mov a.mov binary notes.txt");
    EXPECT_EQ(files.totalSize(), 650);
    files.sortBy(NodeTableModel::Name);
    EXPECT_EQ(names(files), "a.mov b.mov binary notes.txt");
    files.sortBy(NodeTableModel::Name);
    EXPECT_EQ(names(files), "notes.txt binary b.mov a.mov");

    files.selectAll();
    EXPECT_EQ(files.selectedCount(), 4);
    filter.setQuery(QStringLiteral("MOVIES/"));
    EXPECT_EQ(names(files), "binary b.mov a.mov");
    EXPECT_EQ(files.selectedCount(), 3);
    EXPECT_EQ(files.selectedSize(), 600);
    ASSERT_TRUE(test::removeDeleted(state(), {"/Users/sam/Movies/b.mov"}));
    EXPECT_EQ(names(files), "binary a.mov");
    EXPECT_EQ(files.selectedSize(), 300);
}

TEST_F(NodeModels, aLongListIsSortedInTheBackgroundAndOnlyTheLastWishCounts) {
    FilterEditor filter;
    FileListModel files;
    const Tester tester(&files, fatal);
    files.setFilter(&filter);
    files.setState(&state());
    finishScan(test::randomScan(5, {.directories = 300, .files = 20'000}));
    ASSERT_TRUE(test::eventually([&] { return files.count() == 20'000; }));
    files.click(3, Qt::NoModifier);
    const FileNode* chosen = files.nodeAt(3);
    for (const char* query : {"f", "fi", "file-1", "file-12"})
        filter.setQuery(QString::fromUtf8(query));
    FileFilter last;
    last.query = "file-12";
    const auto expected = std::ranges::count_if(
        state().scan()->scan()->files, [&](const FileNode* node) { return last.matches(*node, 2e9); });
    ASSERT_GT(expected, 0);
    EXPECT_TRUE(test::eventually([&] { return files.count() == expected; }));
    filter.setQuery({});
    EXPECT_TRUE(test::eventually([&] { return files.count() == 20'000; }));
    EXPECT_EQ(files.selectedCount() == 1, std::string_view(chosen->name).starts_with("File-12"));
}

TEST_F(NodeModels, aFolderIsEnteredAPackageShown) {
    FolderModel folder;
    const Tester tester(&folder, fatal);
    ExplorerModel explorer;
    folder.setState(&state());
    explorer.setState(&state());
    EXPECT_TRUE(explorer.isEmpty());
    scanSample();
    EXPECT_EQ(names(folder), "Movies notes.txt");
    EXPECT_EQ(folder.index(0).data(NodeTableModel::FileCountRole), "3");
    EXPECT_EQ(folder.index(1).data(NodeTableModel::FileCountRole), "—");
    EXPECT_EQ(folder.index(1).data(NodeTableModel::ShareRole), "7.2%");
    EXPECT_EQ(explorer.smallFilesNote(), "Also: 4 small files directly in this folder · 1 KB");
    EXPECT_FALSE(explorer.canGoUp());
    explorer.goUp();
    EXPECT_EQ(explorer.crumbs(), QStringList("~"));

    folder.click(0, Qt::NoModifier);
    folder.activate(0);
    EXPECT_EQ(names(folder), "b.mov a.mov Big.app");
    EXPECT_EQ(folder.selectedCount(), 0);
    EXPECT_EQ(explorer.crumbs(), QStringList({"~", "Movies"}));
    folder.activate(2);
    EXPECT_EQ(m_app.log.back(), "reveal /Users/sam/Movies/Big.app");
    EXPECT_EQ(explorer.title(), "Movies");
    explorer.goTo(0);
    EXPECT_EQ(names(folder), "Movies notes.txt");
}

TEST_F(NodeModels, aDeletionCorrectsTheFolderAndKeepsTheRestSelected) {
    FolderModel folder;
    ExplorerModel explorer;
    folder.setState(&state());
    explorer.setState(&state());
    scanSample();
    folder.activate(0);
    folder.selectAll();
    ASSERT_TRUE(test::removeDeleted(state(), {"/Users/sam/Movies/b.mov"}));
    EXPECT_EQ(names(folder), "a.mov Big.app");
    EXPECT_EQ(folder.selectedCount(), 2);
    EXPECT_EQ(folder.selectedSize(), 300);
    EXPECT_EQ(explorer.size(), 300);
    EXPECT_EQ(explorer.segments().size(), 2);
    EXPECT_EQ(folder.index(0).data(NodeTableModel::ShareRole), "67%");
}

TEST_F(NodeModels, explorerModeSurvivesARestart) {
    ExplorerModel explorer;
    explorer.setState(&state());
    EXPECT_FALSE(explorer.showsMap());
    explorer.setShowsMap(true);
    ExplorerModel later;
    later.setState(&state());
    EXPECT_TRUE(later.showsMap());
}

TEST_F(NodeModels, tilesAreLargestFirstAndTheNoteCountsWhatIsNotListed) {
    FilterEditor filter;
    FileListModel files;
    KindTilesModel tiles;
    const Tester tester(&tiles, fatal);
    files.setFilter(&filter);
    files.setOnlyKind(static_cast<int>(FileKind::other));
    files.setState(&state());
    tiles.setState(&state());
    scanSample();
    ASSERT_EQ(tiles.rowCount(), static_cast<int>(fileKindCount));
    QStringList titles;
    for (int row = 0; row < tiles.rowCount(); ++row)
        titles << tiles.index(row).data(KindTilesModel::TitleRole).toString();
    EXPECT_EQ(titles.mid(0, 4), QStringList({"Video", "Other", "Documents", "Images"}))
        << "kinds without files keep their order";
    EXPECT_EQ(names(files), "binary");
    EXPECT_EQ(files.smallFilesNote(),
              "Only files over 512 KB are listed. The remaining 4 smaller files still "
              "count toward the totals.");
    filter.setSizeIndex(1);
    EXPECT_EQ(files.smallFilesNote(), "");
}

TEST_F(NodeModels, theBarShowsWhatOthersSetAndSaysWhatItEdits) {
    FilterEditor filter;
    filter.setShared(state().navigation());
    FileFilter old;
    old.minSize = 500'000'000;
    old.modifiedOlderThanDays = 180;
    old.pathPrefix = "/Users/sam/";
    state().navigation()->setLargeFilter(old);
    EXPECT_EQ(filter.sizeIndex(), -1);
    EXPECT_EQ(filter.ageIndex(), 3);
    filter.setBucketIndex(4);
    EXPECT_EQ(state().navigation()->largeFilter().bucket, StorageBucket::video);
    filter.setBucketIndex(0);
    filter.clearPathPrefix();
    filter.setSizeIndex(0);
    filter.setAgeIndex(0);
    filter.toggleKind(2);
    filter.toggleKind(0);
    filter.toggleKind(2);
    FileFilter documents;
    documents.kinds = {FileKind::document};
    EXPECT_EQ(state().navigation()->largeFilter(), documents);
}

TEST_F(NodeModels, actionsActOnTheFirstAndDeletionOnAll) {
    scanSample();
    NodeActions actions;
    actions.setState(&state());
    actions.remove();
    EXPECT_FALSE(state().removal()->hasPlan());
    FileNode* app = node("/Users/sam/Movies/Big.app");
    actions.take({state().scan()->scan(),
                  {app, node("/Users/sam/notes.txt"), node("/Users/sam/Movies/Big.app/binary")}});
    EXPECT_TRUE(actions.canPreview());
    EXPECT_TRUE(actions.isDirectory());
    EXPECT_EQ(actions.deleteText(), "Delete 3 Items…");
    actions.reveal();
    EXPECT_EQ(m_app.log.back(), "reveal /Users/sam/Movies/Big.app");
    actions.open();
    EXPECT_EQ(m_app.log.back(), "open /Users/sam/Movies/Big.app");
    actions.copyPath();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "/Users/sam/Movies/Big.app");
    actions.excludeFromScans();
    EXPECT_EQ(state().preferences()->excludedRaw(), "/Users/sam/Movies/Big.app");
    actions.openInExplorer();
    EXPECT_EQ(state().navigation()->section(), AppSection::explorer);
    EXPECT_EQ(state().navigation()->explorerStack(),
              (std::vector<FileNode*>{state().scan()->scan()->root, app->parent, app}));
    actions.remove();
    EXPECT_TRUE(state().removal()->hasPlan());
    ASSERT_TRUE(test::eventually([&] { return state().removal()->plan() != nullptr; }));
    const DeletionPlan& plan = *state().removal()->plan();
    EXPECT_EQ(plan.title, "Delete Items");
    ASSERT_EQ(plan.items.size(), 2U) << "what lies in the bundle goes with it";
    EXPECT_EQ(plan.items[0].path, "/Users/sam/Movies/Big.app");
    EXPECT_EQ(plan.items[0].size, 100);
    EXPECT_EQ(plan.items[0].removal, Removal::trash);
    EXPECT_EQ(plan.items[0].verdict, state().verdict("/Users/sam/Movies/Big.app"));
}

TEST_F(NodeModels, exportWritesTheListedFilesInTheirOwnOrder) {
    const test::TemporaryTree folder;
    FilterEditor filter;
    FileListModel files;
    files.setFilter(&filter);
    files.setState(&state());
    scanSample();
    files.sortBy(NodeTableModel::Name);
    filter.setQuery(QStringLiteral(".mov"));
    m_app.panels.choice = folder.path("out.csv");
    files.exportCsv();
    ASSERT_TRUE(test::eventually([&] { return folder.exists("out.csv"); }));
    std::ifstream file(folder.path("out.csv"));
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_LT(text.find("b.mov"), text.find("a.mov"));
    EXPECT_EQ(std::ranges::count(text, '\n'), 3);
}

/// Each row that is wholly or partly in sight stands in exactly one slot, at its place.
void expectWindowShows(const RowWindow& window, const NodeTableModel& table) {
    std::map<int, int> positions;
    for (int slot = 0; slot < window.rowCount(); ++slot) {
        const QModelIndex index = window.index(slot);
        const int row = index.data(RowWindow::RowRole).toInt();
        ASSERT_TRUE(positions.emplace(row, index.data(RowWindow::PositionRole).toInt()).second);
        ASSERT_EQ(index.data(NodeTableModel::NameRole), table.index(row).data(NodeTableModel::NameRole));
    }
    const auto offset = static_cast<qint64>(window.offset());
    const int first = static_cast<int>(offset / window.rowHeight());
    for (int row = first; row < table.count() && row * qint64{window.rowHeight()} < offset + window.height();
         ++row) {
        ASSERT_TRUE(positions.contains(row)) << row;
        ASSERT_EQ(positions[row], row * qint64{window.rowHeight()} - offset) << row;
    }
}

TEST_F(NodeModels, aWindowShowsTheRowsInSightWhereverItIsScrolled) {
    FilterEditor filter;
    FileListModel files;
    files.setFilter(&filter);
    files.setState(&state());
    RowWindow window;
    const Tester tester(&window, fatal);
    window.setRowHeight(46);
    window.setHeight(500);
    window.setSource(&files);
    finishScan(test::randomScan(2, {.directories = 20, .files = 900}));
    std::mt19937 random(9);
    for (int step = 0; step < 300; ++step) {
        switch (random() % 5) {
        case 0:
            filter.setQuery(QString::number(random() % 100));
            break;
        case 1:
            filter.setQuery({});
            break;
        case 2:
            window.setHeight(static_cast<int>(random() % 900));
            break;
        case 3:
            window.show(static_cast<int>(random() % 900));
            break;
        default:
            window.setOffset(static_cast<qint64>(random() % 50'000) - 2'000);
        }
        ASSERT_NO_FATAL_FAILURE(expectWindowShows(window, files)) << "step " << step;
    }
    filter.setQuery(QStringLiteral("no such file"));
    EXPECT_EQ(window.rowCount(), 0);
}

} // namespace
} // namespace brimlet
