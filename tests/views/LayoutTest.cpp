// Texts fit: in every window size, with longer texts, in both colour sets.
#include "support/SyntheticTree.h"
#include "support/TestWindow.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QTranslator>

namespace brimlet {
namespace {

using test::TestApp;
using test::TestWindow;

/// Makes every text 40 % longer, as a wordier language would.
class WordyTranslator final : public QTranslator {
public:
    QString translate(const char* /*context*/, const char* source, const char* /*disambiguation*/,
                      int /*count*/) const override {
        const QString text = QString::fromUtf8(source);
        const auto extra = static_cast<qsizetype>(std::ceil(static_cast<double>(text.size()) * 0.4));
        const QString filler = QStringLiteral(" eno mälir usto").repeated(extra / 15 + 1);
        return text + filler.left(extra);
    }
    bool isEmpty() const override { return false; }
};

std::shared_ptr<ScanResult> mixedResult() {
    test::SyntheticTree tree("/Users/sam");
    const std::array<const char*, 8> names = {"film.mov", "song.m4a", "photo.heic", "report.pdf",
                                              "old.zip",  "disk.dmg", "main.cpp",   "data.bin"};
    std::int64_t size = 3'333'333'333'333;
    for (const char* name : names)
        tree.file(tree.root(), name, size /= 4);
    return tree.finish();
}

void expectTextsToFit(TestWindow& window, const std::string& where) {
    test::handleEvents();
    const QStringList faults = window.driver().layoutFaults();
    EXPECT_TRUE(faults.isEmpty()) << where << ":\n" << faults.join(QLatin1Char('\n')).toStdString();
}

void visitStates(TestApp& app, TestWindow& window, const std::string& where) {
    for (const AppSectionLook& section : allSections()) {
        window.state().setSection(section.section);
        expectTextsToFit(window, where + ", " + std::string(section.title));
    }
    window.state().setSection(AppSection::overview);
    window.state().startScan(ScanTarget::home());
    expectTextsToFit(window, where + ", onboarding");
    window.state().scanWithoutAccess();
    app.walks.begun(app.walks.count() > 0 ? app.walks.count() - 1 : 0)
        .progress(12'345'678, 9'876'543'210'000, "/Users/sam/" + std::string(300, 'x'));
    test::eventually([&] { return window.state().progress().files > 0; });
    expectTextsToFit(window, where + ", scanning");
    app.walks.finish(app.walks.count() - 1, mixedResult());
    test::eventually([&] { return window.state().hasScan(); });
    expectTextsToFit(window, where + ", scanned");
}

struct Size {
    int width;
    int height;
};

class Layout : public testing::TestWithParam<Size> {};

TEST_P(Layout, textsFit) {
    TestApp app;
    app.probe.granted = false;
    TestWindow window(app);
    window.resize(GetParam().width, GetParam().height);
    visitStates(app, window, "plain");
}

TEST_P(Layout, longerTextsFit) {
    WordyTranslator wordy;
    QCoreApplication::installTranslator(&wordy);
    {
        TestApp app;
        app.probe.granted = false;
        TestWindow window(app);
        window.resize(GetParam().width, GetParam().height);
        visitStates(app, window, "wordy");
    }
    QCoreApplication::removeTranslator(&wordy);
}

INSTANTIATE_TEST_SUITE_P(Sizes, Layout,
                         testing::Values(Size{900, 600}, Size{1200, 780}, Size{1920, 1080}, Size{2560, 1440}),
                         [](const auto& size) {
                             return std::to_string(size.param.width) + "x" +
                                    std::to_string(size.param.height);
                         });

} // namespace
} // namespace brimlet
