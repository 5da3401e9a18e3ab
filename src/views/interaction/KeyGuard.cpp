#include "views/interaction/KeyGuard.h"

#include <algorithm>
#include <array>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethodQueryEvent>
#include <QKeyEvent>

namespace brimlet {

namespace {

/// Held, they go on moving what has the keyboard.
constexpr std::array movingKeys = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Down,
                                   Qt::Key_Home, Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown,
                                   Qt::Key_Tab,  Qt::Key_Backtab};

/// They end or send a text rather than write it.
constexpr std::array endingKeys = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape};

bool isWriting() {
    QObject* focus = QGuiApplication::focusObject();
    if (focus == nullptr)
        return false;
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QCoreApplication::sendEvent(focus, &query);
    return query.value(Qt::ImEnabled).toBool();
}

/// Whether a repeat of the key does no more than the user expects of holding it.
bool mayRepeat(const QKeyEvent& event) {
    if (std::ranges::find(movingKeys, event.key()) != movingKeys.end())
        return true;
    return std::ranges::find(endingKeys, event.key()) == endingKeys.end() && isWriting();
}

} // namespace

KeyGuard::KeyGuard(RepeatForm form, QObject* parent)
    : QObject(parent)
    , m_form(form) {
    qGuiApp->installEventFilter(this);
}

RepeatForm KeyGuard::formOfWindowSystem() {
    return QGuiApplication::platformName() == QStringLiteral("xcb") ? RepeatForm::sometimesNot
                                                                    : RepeatForm::marked;
}

bool KeyGuard::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // Comes before each press. Assistive tools hold events back and send copies without a time: installed
        // again, this filter stands before theirs.
        qGuiApp->installEventFilter(this);
        [[fallthrough]];
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        // A window gets every event before its items do.
        return watched->isWindowType() && holdsBack(*static_cast<QKeyEvent*>(event));
    default:
        return false;
    }
}

bool KeyGuard::isRepeat(const QKeyEvent& press) const {
    if (press.isAutoRepeat())
        return true;
    return m_form == RepeatForm::sometimesNot && m_lastRelease && m_lastRelease->key == press.key() &&
           m_lastRelease->milliseconds == press.timestamp();
}

bool KeyGuard::holdsBack(QKeyEvent& event) {
    if (m_form == RepeatForm::sometimesNot && event.timestamp() == 0)
        return false; // the copy of one that went through
    if (event.type() == QEvent::KeyRelease) {
        // One that belongs to a repeat is not the end of its press.
        if (event.isAutoRepeat())
            return !mayRepeat(event);
        m_lastRelease = Release{event.key(), event.timestamp()};
        // Buttons act on a release, also on that of a press which never reached them.
        return !m_pressed.remove(event.key()) && !mayRepeat(event);
    }
    if (isRepeat(event) && !mayRepeat(event)) {
        event.accept(); // a shortcut that is overridden isn't carried out
        return true;
    }
    if (event.type() == QEvent::KeyPress)
        m_pressed.insert(event.key());
    return false;
}

} // namespace brimlet
