// How the system wants applications to look: light or dark, text size, reduced motion,
// the direction of writing.
//
// Follows the desktop's settings portal where there is one, and the palette and the font that the toolkit has
// from the system, while the program runs. Main thread.
#pragma once

#include <optional>
#include <QDBusVariant>
#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace brimlet {

enum class ColorScheme { light, dark };

class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool dark READ dark NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY changed)
    Q_PROPERTY(bool rightToLeft READ rightToLeft NOTIFY changed)
    Q_PROPERTY(double textScale READ textScale NOTIFY changed)

public:
    /// With `fixed` the system's choice of colours is ignored.
    explicit Appearance(std::optional<ColorScheme> fixed, QObject* parent = nullptr);

    static Appearance* create(QQmlEngine* engine, QJSEngine*);

    bool dark() const;
    bool reducedMotion() const { return m_reducedMotion; }
    bool rightToLeft() const; ///< lines begin at the right, and so does the layout

    /// The user's text size over the size that the design is drawn for, 1 to 2: the system's font, times the
    /// factor by which the desktop enlarges all text.
    double textScale() const;

    void fixColorScheme(std::optional<ColorScheme> fixed);
    void setReducedMotion(bool reduced);
    /// With `fixed` the system's text size is ignored.
    void fixTextScale(std::optional<double> fixed);

    bool eventFilter(QObject* watched,
                     QEvent* event) override; ///< hears of a changed palette, font or direction

signals:
    void changed();

private:
    void askPortal();
    void applyPortalValue(const QString& space, const QString& key, const QVariant& value);

private slots:
    void portalSettingChanged(const QString& space, const QString& key, const QDBusVariant& value);

private:
    std::optional<ColorScheme> m_fixed;
    std::optional<ColorScheme> m_portal; // empty: no preference, or no portal
    bool m_reducedMotion = false;
    std::optional<double> m_fixedTextScale;
    double m_textFactor = 1;
};

} // namespace brimlet
