// The two colour sets.
#include "app/EngineSingleton.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <QQmlComponent>

namespace brimlet {
namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

/// Relative luminance as the accessibility guidelines define it.
double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// What a translucent colour looks like on a surface.
QColor over(const QColor& color, const QColor& surface) {
    const auto mix = [&](float top, float below) {
        return top * color.alphaF() + below * (1 - color.alphaF());
    };
    return QColor::fromRgbF(mix(color.redF(), surface.redF()), mix(color.greenF(), surface.greenF()),
                            mix(color.blueF(), surface.blueF()));
}

QColor withAlpha(QColor color, double alpha) {
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

TEST(Theme, textsStandOutFromTheirSurfaces) {
    test::TestApp app;
    test::TestWindow window(app);
    QQmlComponent reader(&window.engine());
    reader.setData("import QtQml; import Brimlet; QtObject { property QtObject theme: Theme }", {});
    const std::unique_ptr<QObject> holder(reader.create());
    ASSERT_NE(holder, nullptr) << reader.errorString().toStdString();
    const auto* theme = holder->property("theme").value<QObject*>();
    const auto token = [&](const char* name) { return theme->property(name).value<QColor>(); };
    const double tint = theme->property("tint").toDouble();

    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        window.appearance().fixColorScheme(scheme);
        const auto check = [&](const char* text, const QColor& surface, const std::string& where) {
            EXPECT_GE(contrast(token(text), surface), 4.5)
                << text << " on " << where << (scheme == ColorScheme::dark ? ", dark" : ", light");
        };
        for (const char* surface : {"window", "sidebar", "card", "floating"}) {
            const QColor base = token(surface);
            for (const char* text :
                 {"text", "textSecondary", "accentText", "dangerText", "safeText", "reviewText"})
                check(text, base, surface);
            check("text", over(token("hover"), base), std::string("hovered ") + surface);
            check("text", over(token("selection"), base), std::string("selected ") + surface);
            check("accentText", over(token("selection"), base), std::string("selected ") + surface);
        }
        const QColor card = token("card");
        check("safeText", over(withAlpha(token("safe"), tint), card), "a safe badge");
        check("reviewText", over(withAlpha(token("review"), tint), card), "a review badge");
        check("dangerText", over(withAlpha(token("danger"), tint), card), "a protected badge");
        check("textOnAccent", token("accent"), "the accent");
        check("textOnAccent", token("dangerFill"), "a confirming button");
    }
}

TEST(Theme, followsTheChosenColors) {
    test::TestApp app;
    test::TestWindow window(app);
    window.appearance().fixColorScheme(ColorScheme::light);
    EXPECT_EQ(window.window().color(), QColor("#f5f5f8"));
    window.appearance().fixColorScheme(ColorScheme::dark);
    EXPECT_EQ(window.window().color(), QColor("#16171d"));
}

} // namespace
} // namespace brimlet
