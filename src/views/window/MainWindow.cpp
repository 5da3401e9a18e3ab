#include "views/window/MainWindow.h"

#include "app/Appearance.h"
#include "app/EngineSingleton.h"
#include "app/state/AppState.h"
#include "app/state/BackgroundServices.h"
#include "app/UpdateController.h"
#include "tables/SystemTables.h"
#include "views/icons/IconProvider.h"
#include "views/map/SunburstAccessible.h"
#include "views/window/WindowPanels.h"

#include <QAccessible>
#include <QDirIterator>
#include <QFontDatabase>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Brimlet_AppPlugin)
Q_IMPORT_QML_PLUGIN(BrimletPlugin)

namespace brimlet {

MainWindow::MainWindow(AppState& state, Appearance& appearance, UpdateController& updates,
                       WindowPanels& panels)
    : m_state(state)
    , m_fileLooks(state.system().folders)
    , m_words(state.system().words) {
    // Installing it again changes nothing.
    QAccessible::installFactory(sunburstAccessible);
    giveToEngine(m_engine, state);
    giveToEngine(m_engine, appearance);
    giveToEngine(m_engine, updates);
    giveToEngine(m_engine, panels);
    giveToEngine(m_engine, m_fileLooks);
    giveToEngine(m_engine, m_words);
    m_engine.addImageProvider(QStringLiteral("icon"), new IconProvider);
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Brimlet/window/Main.qml")));
}

MainWindow::~MainWindow() = default;

QQuickWindow* MainWindow::window() const {
    const QList<QObject*> roots = m_engine.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.first());
}

void MainWindow::show() {
    if (QQuickWindow* shown = window()) {
        shown->show();
        m_state.background().start(m_state);
    }
}

void addPackedFonts() {
    for (QDirIterator files(QStringLiteral(":/fonts")); files.hasNext();)
        QFontDatabase::addApplicationFont(files.next());
}

} // namespace brimlet
