#include "app/Appearance.h"

#include "app/EngineSingleton.h"

#include <algorithm>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QFontInfo>
#include <QGuiApplication>
#include <QPalette>

namespace brimlet {

namespace {

constexpr auto portalService = "org.freedesktop.portal.Desktop";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";
constexpr auto portalInterface = "org.freedesktop.portal.Settings";
constexpr auto appearanceSpace = "org.freedesktop.appearance";
constexpr auto desktopSpace = "org.gnome.desktop.interface";

/// The point size that a desktop sets by default; the design's sizes belong to it.
constexpr double usualPointSize = 11;

/// A portal may wrap its answer in one variant more than it should.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

Appearance::Appearance(std::optional<ColorScheme> fixed, QObject* parent)
    : QObject(parent)
    , m_fixed(fixed) {
    askPortal();
    qGuiApp->installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::layoutDirectionChanged, this, &Appearance::changed);
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
    const bool looks =
        event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::ApplicationFontChange;
    if (watched == qGuiApp && looks)
        emit changed();
    return QObject::eventFilter(watched, event);
}

Appearance* Appearance::create(QQmlEngine* engine, QJSEngine*) {
    return engineSingleton<Appearance>(engine);
}

bool Appearance::dark() const {
    if (const auto scheme = m_fixed ? m_fixed : m_portal)
        return *scheme == ColorScheme::dark;
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

bool Appearance::rightToLeft() const {
    return QGuiApplication::isRightToLeft();
}

void Appearance::fixColorScheme(std::optional<ColorScheme> fixed) {
    m_fixed = fixed;
    emit changed();
}

void Appearance::setReducedMotion(bool reduced) {
    m_reducedMotion = reduced;
    emit changed();
}

void Appearance::fixTextScale(std::optional<double> fixed) {
    m_fixedTextScale = fixed;
    emit changed();
}

double Appearance::textScale() const {
    const double font = QFontInfo(QGuiApplication::font()).pointSizeF() / usualPointSize;
    return std::clamp(m_fixedTextScale.value_or(font * m_textFactor), 1.0, 2.0);
}

void Appearance::askPortal() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(QString(), portalPath, portalInterface, QStringLiteral("SettingChanged"), this,
                SLOT(portalSettingChanged(QString, QString, QDBusVariant)));
    const std::pair<const char*, const char*> settings[] = {{appearanceSpace, "color-scheme"},
                                                            {desktopSpace, "enable-animations"},
                                                            {desktopSpace, "text-scaling-factor"}};
    for (const auto& [space, key] : settings) {
        QDBusMessage read = QDBusMessage::createMethodCall(portalService, portalPath, portalInterface,
                                                           QStringLiteral("Read"));
        read << QString::fromLatin1(space) << QString::fromLatin1(key);
        auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(read), this);
        connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, space = space, key = key] {
            const QDBusPendingReply<QDBusVariant> reply = *answer;
            if (!reply.isError())
                applyPortalValue(space, key, reply.value().variant());
            answer->deleteLater();
        });
    }
}

void Appearance::portalSettingChanged(const QString& space, const QString& key, const QDBusVariant& value) {
    applyPortalValue(space, key, value.variant());
}

void Appearance::applyPortalValue(const QString& space, const QString& key, const QVariant& value) {
    const QVariant plain = unwrapped(value);
    if (space == QLatin1String(appearanceSpace) && key == QLatin1String("color-scheme")) {
        const uint number = plain.toUInt(); // 0 no preference, 1 dark, 2 light
        m_portal = number == 1   ? std::optional(ColorScheme::dark)
                   : number == 2 ? std::optional(ColorScheme::light)
                                 : std::nullopt;
        emit changed();
    } else if (space == QLatin1String(desktopSpace) && key == QLatin1String("enable-animations")) {
        setReducedMotion(!plain.toBool());
    } else if (space == QLatin1String(desktopSpace) && key == QLatin1String("text-scaling-factor")) {
        const double factor = plain.toDouble();
        m_textFactor = factor > 0 ? factor : 1;
        emit changed();
    }
}

} // namespace brimlet
