// brimlet: the application with its window.
#include "platform/HomeFolder.h"
#include "shell/BrimletApp.h"
#include "shell/QuitSignals.h"

#include <chrono>
#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QQuickStyle>

namespace {

/// Whether there is anything to open a window on. Without it the toolkit would abort.
bool hasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0')
            return true;
    }
    return false;
}

const std::map<std::string, brimlet::ColorScheme> themes = {{"light", brimlet::ColorScheme::light},
                                                            {"dark", brimlet::ColorScheme::dark}};

} // namespace

int main(int argc, char** argv) {
    std::optional<brimlet::ColorScheme> theme;
    CLI::App options("Shows where the space of a disk goes and gives it back.", "brimlet");
    options.set_version_flag("--version", BRIMLET_VERSION);
    options.add_option("--theme", theme, "light or dark; the system's choice without it")
        ->transform(CLI::CheckedTransformer(themes));
    const brimlet::SystemTables* system = &brimlet::defaultSystem();
    options
        .add_option_function<std::string>(
            "--system", [&](const std::string& name) { system = brimlet::systemNamed(name); },
            "whose rules and words count; this system's without it")
        ->check([](const std::string& name) {
            return brimlet::systemNamed(name) ? std::string() : "there are no rules of " + name;
        });
    options.allow_extras(); // the toolkit's own options
    CLI11_PARSE(options, argc, argv);
    if (!hasDisplay()) {
        std::fputs("brimlet: there is no display to open a window on\n", stderr);
        return 2;
    }

    const std::string home = brimlet::homeFolder();
    if (brimlet::belongsToAnother(home)) {
        const std::string sentence =
            "brimlet: the home folder " + home +
            " belongs to another user. Start Brimlet as that user, or set HOME to a folder of your own.\n";
        std::fputs(sentence.c_str(), stderr);
        return 2;
    }

    // Every page is compiled into the program; a cache would only be one more folder in the user's home.
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brimlet"));
    QApplication::setApplicationVersion(QStringLiteral(BRIMLET_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("com.brimlet.mac"));

    if (QLocale().textDirection() == Qt::RightToLeft)
        QApplication::setLayoutDirection(Qt::RightToLeft);

    brimlet::BrimletApp brimlet(*system, home, theme);
    if (brimlet.window().window() == nullptr)
        return 2;
    brimlet.window().show();
    const brimlet::QuitSignals quitSignals([&state = brimlet.state()] {
        if (state.readyToQuit())
            QCoreApplication::quit();
    });
    const int status = QApplication::exec();
    brimlet.state().endWork(std::chrono::milliseconds(500));
    // What has not ended by now may hang on a disk that never answers. All state is on the disk already, so
    // the process ends without destroying what such a thread still touches.
    std::fflush(nullptr);
    std::_Exit(status);
}
