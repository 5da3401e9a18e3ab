// Keys that stay pressed: they act once, whatever comes under them meanwhile.
#include "app/state/NavigationState.h"
#include "app/state/QuickCleanState.h"
#include "support/TestHome.h"
#include "views/interaction/KeyGuard.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>
#include <tuple>

namespace brimlet::test {
namespace {

enum class Marked : std::uint8_t { no, yes };

void send(QObject& window, QEvent::Type type, int key, Marked asRepeat = Marked::no,
          quint64 milliseconds = 0) {
    const QString text = key == Qt::Key_Space ? QStringLiteral(" ") : QString();
    QKeyEvent event(type, key, Qt::NoModifier, text, asRepeat == Marked::yes);
    event.setTimestamp(milliseconds);
    QCoreApplication::sendEvent(&window, &event);
}

/// Pressed while it lives.
class HeldKey {
public:
    HeldKey(TestHome& home, int key)
        : m_window(home.window().window())
        , m_key(key) {
        send(m_window, QEvent::KeyPress, key);
        repeat();
    }
    ~HeldKey() { send(m_window, QEvent::KeyRelease, m_key); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

    /// What the system sends while the key stays down.
    void repeat(int times = 3) {
        for (int time = 0; time < times; ++time) {
            handleEvents();
            send(m_window, QEvent::KeyRelease, m_key, Marked::yes);
            send(m_window, QEvent::KeyPress, m_key, Marked::yes);
        }
        handleEvents();
    }

private:
    QQuickWindow& m_window;
    int m_key;
};

TEST(HeldKeys, passOneStageOfQuickClean) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        SCOPED_TRACE(key);
        TestHome home;
        home.fill();
        WindowDriver& driver = home.driver();
        ASSERT_TRUE(driver.tabTo("Menu"));
        ASSERT_TRUE(driver.tabTo("Scan"));
        {
            HeldKey held(home, key);
            if (key == Qt::Key_Space) // buttons wait for its release
                send(home.window().window(), QEvent::KeyRelease, key);
            ASSERT_TRUE(home.reachReview());
            held.repeat(40);
            EXPECT_EQ(home.state().quickClean()->smartPhase(), SmartPhase::review);
        }
        EXPECT_EQ(home.state().quickClean()->smartPhase(), SmartPhase::review);
        EXPECT_TRUE(home.disk.exists("Library/Logs/app.log"));
        if (key == Qt::Key_Space)
            continue;
        driver.key(key); // a new press means it
        EXPECT_TRUE(home.reachReport());
    }
}

TEST(HeldKeys, tickABoxOnceAndLeaveASheetOpen) {
    TestHome home;
    home.fill();
    home.state().navigation()->setSection(AppSection::junk);
    WindowDriver& driver = home.driver();
    ASSERT_TRUE(driver.await("App caches", QAccessible::CheckBox));
    ASSERT_TRUE(driver.tabTo("Scan Again"));
    driver.key(Qt::Key_Tab);
    {
        const HeldKey held(home, Qt::Key_Space);
        EXPECT_TRUE(driver.shows("Clean…"));
    }
    ASSERT_TRUE(driver.tabTo("Clean…"));
    {
        const HeldKey held(home, Qt::Key_Return);
        ASSERT_TRUE(eventually([&] { return driver.focused() == "Cancel"; }));
    }
    HeldKey held(home, Qt::Key_Escape);
    EXPECT_TRUE(driver.awaitGone("Clean Junk"));
    held.repeat();
    EXPECT_TRUE(driver.shows("Clean…"));
}

/// Writes down which events reach it.
class Ear : public QWindow {
public:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::KeyPress)
            heard += 'P';
        if (event->type() == QEvent::KeyRelease)
            heard += 'R';
        return QWindow::event(event);
    }
    std::string heard;
};

TEST(HeldKeys, areRecognisedWhereTheirRepeatsLookFresh) {
    struct Case {
        const char* name;
        int key;
        std::vector<std::tuple<QEvent::Type, Marked, quint64>> events;
        const char* heard;
    };
    constexpr auto press = QEvent::KeyPress;
    constexpr auto release = QEvent::KeyRelease;
    const Case cases[] = {
        {"pressed twice",
         Qt::Key_Return,
         {{press, Marked::no, 1},
          {release, Marked::no, 60},
          {press, Marked::no, 90},
          {release, Marked::no, 150}},
         "PRPR"},
        {"marked, then not, then let go",
         Qt::Key_Return,
         {{press, Marked::no, 1},
          {release, Marked::yes, 500},
          {press, Marked::yes, 500},
          {release, Marked::no, 533},
          {press, Marked::no, 533},
          {release, Marked::no, 566},
          {press, Marked::no, 566},
          {release, Marked::no, 580},
          {press, Marked::no, 700}},
         "PRP"},
        {"another key in the same moment",
         Qt::Key_Tab,
         {{press, Marked::no, 1}, {release, Marked::no, 500}, {press, Marked::no, 500}},
         "PRP"},
        {"held since before the window was there",
         Qt::Key_Return,
         {{release, Marked::no, 500},
          {press, Marked::no, 500},
          {release, Marked::yes, 533},
          {press, Marked::yes, 533}},
         ""},
        {"copied for assistive tools",
         Qt::Key_Return,
         {{press, Marked::no, 1},
          {press, Marked::no, 0},
          {release, Marked::no, 60},
          {release, Marked::no, 0},
          {press, Marked::no, 90},
          {press, Marked::no, 0}},
         "PPRRPP"},
        {"moves on while held",
         Qt::Key_Down,
         {{press, Marked::no, 1}, {release, Marked::yes, 500}, {press, Marked::yes, 500}},
         "PRP"},
    };
    for (const Case& each : cases) {
        const KeyGuard guard(RepeatForm::sometimesNot);
        Ear window;
        for (const auto& [type, marked, milliseconds] : each.events)
            send(window, type, each.key, marked, milliseconds);
        EXPECT_EQ(window.heard, each.heard) << each.name;
    }
}

TEST(HeldKeys, startNoShortcutAgain) {
    const KeyGuard guard(RepeatForm::marked);
    Ear window;
    for (const Marked marked : {Marked::no, Marked::yes}) {
        QKeyEvent wanted(QEvent::ShortcutOverride, Qt::Key_R, Qt::ControlModifier, {}, marked == Marked::yes);
        wanted.ignore();
        QCoreApplication::sendEvent(&window, &wanted);
        EXPECT_EQ(wanted.isAccepted(), marked == Marked::yes); // accepted: no shortcut is looked for
    }
}

} // namespace
} // namespace brimlet::test
