#include "support/TestWindow.h"

#include "app/Translation.h"

#include <QQuickItem>
#include <QQuickStyle>
#include <QTest>

namespace brimlet::test {

namespace {

void failOnWarnings(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    // The offscreen platform tells what it can't do; everything else is ours to mend.
    if (!message.contains(QStringLiteral("This plugin does not support")))
        ADD_FAILURE() << message.toStdString();
}

MainWindow buildWindow(TestApp& app, Appearance& appearance, UpdateController& updates,
                       WindowPanels& panels) {
    app.activePanels = &panels;
    appearance.setReducedMotion(true);
    return {app.state(), appearance, updates, panels};
}

} // namespace

TestWindow::TestWindow(TestApp& app)
    : m_app(app)
    , m_main(buildWindow(app, m_appearance, m_updateController, m_panels)) {
    m_main.show();
    m_driver = std::make_unique<WindowDriver>(window());
    window().requestActivate();
    if (!QTest::qWaitForWindowActive(&window()))
        ADD_FAILURE() << "The window doesn't become active";
}

void TestWindow::resize(int width, int height) {
    window().resize(width, height);
    eventually([&] { return window().contentItem()->width() == width; });
    handleEvents();
}

void prepareWindowTests() {
    for (const auto& [name, value] :
         {std::pair("QT_QPA_PLATFORM", "offscreen"), {"QT_QUICK_BACKEND", "software"}}) {
        if (!qEnvironmentVariableIsSet(name))
            qputenv(name, value);
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    qInstallMessageHandler(failOnWarnings);
    QQuickStyle::setStyle(QStringLiteral("Basic"));
}

void prepareWindow() {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    addPackedFonts();
    connectTranslations();
}

} // namespace brimlet::test
