// Lets a key act once each time it is pressed, however long it is held: what repeats while it is held moves
// and writes, and reaches nothing else. So no button is pressed, no row ticked and no stage passed by a key
// that was pressed for what stood there before. Main thread; watches all windows of the application.
#pragma once

#include <cstdint>
#include <optional>
#include <QObject>
#include <QSet>

class QKeyEvent;

namespace brimlet {

/// How the window system tells the repeats of a held key.
enum class RepeatForm : std::uint8_t {
    marked,      ///< every one is marked as a repeat
    sometimesNot ///< some look like a release and a press, both of the same millisecond
};

class KeyGuard : public QObject {
public:
    explicit KeyGuard(RepeatForm form, QObject* parent = nullptr);

    /// The form of the window system that the application runs on.
    static RepeatForm formOfWindowSystem();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isRepeat(const QKeyEvent& press) const;
    bool holdsBack(QKeyEvent& event);

    struct Release {
        int key = 0;
        quint64 milliseconds = 0;
    };

    RepeatForm m_form;
    std::optional<Release> m_lastRelease;
    QSet<int> m_pressed; ///< keys whose press went through, not yet released
};

} // namespace brimlet
