// brimlet-tour OUTDIR: starts the application over the home folder that HOME names, keeps pictures of every
// section in light and dark, and fails where a page logs a warning.
#include "platform/HomeFolder.h"
#include "tour/Tour.h"

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
    if (argc != 2) {
        std::fputs("usage: brimlet-tour OUTDIR\n", stderr);
        return 2;
    }
    qInstallMessageHandler(countWarnings);
    qputenv("QML_DISABLE_DISK_CACHE", "1");
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brimlet"));

    brimlet::BrimletApp app(brimlet::homeFolder(), brimlet::ColorScheme::light);
    app.appearance().setReducedMotion(true);
    if (app.window().window() == nullptr)
        return 2;
    app.window().show();
    const int missing = brimlet::test::Tour(app, QDir(QString::fromLocal8Bit(argv[1]))).walk();
    if (warnings > 0)
        std::fprintf(stderr, "tour: %d warnings were logged\n", warnings);
    return missing == 0 && warnings == 0 ? 0 : 1;
}
