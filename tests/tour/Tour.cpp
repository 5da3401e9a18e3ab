#include "tour/Tour.h"

#include <cstdio>
#include <QImage>
#include <QQuickWindow>
#include <QTest>

namespace brimlet::test {

namespace {

constexpr int settleMilliseconds = 150;
constexpr int patienceMilliseconds = 30'000;

} // namespace

bool waitUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, patienceMilliseconds);
}

int Tour::walk() {
    int missing = 0;
    int number = 0;
    for (const Stop& stop : stops()) {
        stop.act(m_app);
        ++number;
        for (const auto& [scheme, name] :
             {std::pair(ColorScheme::light, "light"), {ColorScheme::dark, "dark"}}) {
            m_app.appearance().fixColorScheme(scheme);
            const QString picture =
                QStringLiteral("%1-%2-%3.png").arg(number, 2, 10, QLatin1Char('0')).arg(stop.name, name);
            if (!keepPicture(picture)) {
                std::fprintf(stderr, "tour: %s could not be taken\n", qPrintable(picture));
                ++missing;
            }
        }
    }
    return missing;
}

bool Tour::keepPicture(const QString& name) {
    QTest::qWait(settleMilliseconds);
    const QImage picture = m_app.window().window()->grabWindow();
    return !picture.isNull() && picture.save(m_folder.filePath(name));
}

} // namespace brimlet::test
