// brimlet-tour OUTDIR: starts the application over the home folder that HOME names, keeps pictures of every
// section in light and dark, and fails where a page logs a warning. Options choose the window's size, the
// text's size and the direction of writing.
#include "platform/HomeFolder.h"
#include "tour/Tour.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <QApplication>
#include <QQuickStyle>
#include <QQuickWindow>

namespace {

int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtDebugMsg && type != QtInfoMsg)
        ++warnings;
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char** argv) {
    std::string folder;
    std::pair<int, int> size = {1200, 780};
    double textScale = 1;
    bool rightToLeft = false;
    CLI::App options("Keeps pictures of every section.", "brimlet-tour");
    options.add_option("OUTDIR", folder)->required();
    options.add_option("--size", size, "width and height of the window");
    options.add_option("--text", textScale, "size of the text, 1 to 2");
    options.add_flag("--right-to-left", rightToLeft, "the whole walk mirrored");
    CLI11_PARSE(options, argc, argv);

    qInstallMessageHandler(countWarnings);
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brimlet"));
    if (rightToLeft)
        QApplication::setLayoutDirection(Qt::RightToLeft);

    brimlet::BrimletApp app(brimlet::defaultSystem(), brimlet::homeFolder(), brimlet::ColorScheme::light);
    app.appearance().setReducedMotion(true);
    app.appearance().fixTextScale(textScale);
    if (app.window().window() == nullptr)
        return 2;
    app.window().window()->resize(size.first, size.second);
    app.window().show();
    const int missing = brimlet::test::Tour(app, QDir(QString::fromStdString(folder))).walk();
    if (warnings > 0)
        std::fprintf(stderr, "tour: %d warnings were logged\n", warnings);
    return missing == 0 && warnings == 0 ? 0 : 1;
}
