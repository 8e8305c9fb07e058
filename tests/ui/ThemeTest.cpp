// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/Theme.h"

#include "tests/support/Printing.h"
#include "tests/ui/Stage.h"

#include <QColor>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(Theme, NamesTheFontOfAWeight) {
    EXPECT_EQ(Theme::poppinsName(QFont::Black), u"Poppins-Bold"_s);
    EXPECT_EQ(Theme::poppinsName(QFont::ExtraBold), u"Poppins-Bold"_s);
    EXPECT_EQ(Theme::poppinsName(QFont::Bold), u"Poppins-Bold"_s);
    EXPECT_EQ(Theme::poppinsName(QFont::DemiBold), u"Poppins-SemiBold"_s);
    EXPECT_EQ(Theme::poppinsName(QFont::Medium), u"Poppins-Medium"_s);
    for (const QFont::Weight weight : {QFont::Normal, QFont::Light, QFont::ExtraLight, QFont::Thin})
        EXPECT_EQ(Theme::poppinsName(weight), u"Poppins-Regular"_s) << weight;
}

TEST(Theme, HasItsColours) {
    struct {
        const char *name;
        int red, green, blue;
        double opacity;
    } const colours[] = {
        {"bg", 0, 0, 0, 1},
        {"card", 9, 9, 10, 1},
        {"cardHi", 17, 17, 19, 1},
        {"text", 232, 232, 232, 1},
        {"textSecondary", 138, 138, 138, 1},
        {"textTertiary", 85, 85, 85, 1},
        {"duckYellow", 246, 201, 74, 1},
        {"beakOrange", 242, 138, 46, 1},
        {"accent", 246, 201, 74, 1},
        {"onAccent", 21, 16, 8, 1},
        {"hairline", 255, 255, 255, 0.14},
        {"lineStrong", 255, 255, 255, 0.28},
        {"warmHairline", 246, 201, 74, 0.48},
    };
    Stage stage(u"property var theme: Theme; objectName: 'root'"_s);
    const auto *const theme =
        stage.window().contentItem()->childItems().first()->property("theme").value<QObject *>();
    ASSERT_TRUE(theme);
    for (const auto &[name, red, green, blue, opacity] : colours) {
        const QColor colour = theme->property(name).value<QColor>();
        EXPECT_EQ(colour.red(), red) << name;
        EXPECT_EQ(colour.green(), green) << name;
        EXPECT_EQ(colour.blue(), blue) << name;
        EXPECT_NEAR(colour.alphaF(), opacity, 1e-4) << name;
    }
}

TEST(HUDSurface, HasAStrongerVariant) {
    Stage stage(
        u"HUDSurface { objectName: 'plain'; width: 80; height: 40; cornerRadius: 12 }"
        "HUDSurface { objectName: 'high'; y: 50; width: 80; height: 40; highlighted: true }"_s);
    EXPECT_EQ(stage.value("plain", "color").value<QColor>(), QColor(9, 9, 10));
    EXPECT_EQ(stage.value("plain", "radius"), 12);
    EXPECT_EQ(stage.value("high", "color").value<QColor>(), QColor(17, 17, 19));
    const QImage image = stage.settle();
    // The line, a point wide, over the window's own ground.
    const auto over = [](QColor line, QColor ground) {
        const auto mixed = [a = line.alphaF()](float top, float below) {
            return a * top + (1 - a) * below;
        };
        return QColor::fromRgbF(mixed(line.redF(), ground.redF()),
                                mixed(line.greenF(), ground.greenF()),
                                mixed(line.blueF(), ground.blueF()));
    };
    const auto near = [](QColor one, QColor other) {
        return std::abs(one.red() - other.red()) <= 3 &&
               std::abs(one.green() - other.green()) <= 3 &&
               std::abs(one.blue() - other.blue()) <= 3;
    };
    const QColor plain = over(QColor::fromRgbF(1, 1, 1, 0.14F), QColor(15, 15, 17));
    const QColor high =
        over(QColor::fromRgbF(246 / 255.F, 201 / 255.F, 74 / 255.F, 0.48F), QColor(15, 15, 17));
    EXPECT_TRUE(near(image.pixelColor(0, 20), plain))
        << image.pixelColor(0, 20).name().toStdString();
    EXPECT_TRUE(near(image.pixelColor(0, 70), high))
        << image.pixelColor(0, 70).name().toStdString();
    EXPECT_EQ(image.pixelColor(1, 20), QColor(9, 9, 10));
}

} // namespace tovarin
