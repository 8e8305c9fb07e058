// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/PanelPlace.h"

#include <gtest/gtest.h>

#include <ostream>

void PrintTo(const QPoint &point, std::ostream *out) {
    *out << '(' << point.x() << ", " << point.y() << ')';
}

namespace tovarin {

namespace {

constexpr QRect screen(0, 0, 1920, 1080);
constexpr QSize panel(400, 500);
constexpr QPoint elsewhere(960, 540);

struct Case {
    const char *situation;
    QRect item;
    QRect available;
    QSize panel;
    QPoint place;
};

void expectPlaces(const std::initializer_list<Case> &cases) {
    for (const Case &c : cases)
        EXPECT_EQ(panelPlace(c.item, elsewhere, c.available, c.panel), c.place) << c.situation;
}

} // namespace

TEST(PanelPlace, IsBesideABarThatKeepsWindowsOff) {
    const QRect belowTopBar(0, 30, 1920, 1050);
    const QRect aboveBottomBar(0, 0, 1920, 1050);
    const QRect rightOfLeftBar(40, 0, 1880, 1080);
    const QRect leftOfRightBar(0, 0, 1880, 1080);
    expectPlaces({
        {"top", {1000, 4, 22, 22}, belowTopBar, panel, {811, 38}},
        {"top, first", {2, 4, 22, 22}, belowTopBar, panel, {8, 38}},
        {"top, last", {1896, 4, 22, 22}, belowTopBar, panel, {1512, 38}},
        {"bottom", {1000, 1054, 22, 22}, aboveBottomBar, panel, {811, 542}},
        {"bottom, first", {2, 1054, 22, 22}, aboveBottomBar, panel, {8, 542}},
        {"bottom, last", {1896, 1054, 22, 22}, aboveBottomBar, panel, {1512, 542}},
        {"left", {9, 500, 22, 22}, rightOfLeftBar, panel, {48, 261}},
        {"left, first", {9, 2, 22, 22}, rightOfLeftBar, panel, {48, 8}},
        {"left, last", {9, 1056, 22, 22}, rightOfLeftBar, panel, {48, 572}},
        {"right", {1889, 500, 22, 22}, leftOfRightBar, panel, {1472, 261}},
        {"right, first", {1889, 2, 22, 22}, leftOfRightBar, panel, {1472, 8}},
        {"right, last", {1889, 1056, 22, 22}, leftOfRightBar, panel, {1472, 572}},
        {"the corner of two bars", {9, 4, 22, 22}, {40, 30, 1880, 1050}, panel, {48, 38}},
        {"the other corner", {1889, 1054, 22, 22}, {0, 0, 1880, 1050}, panel, {1472, 542}},
    });
}

TEST(PanelPlace, IsBesideABarThatLiesAboveWindows) {
    expectPlaces({
        {"top", {1000, 4, 22, 22}, screen, panel, {811, 34}},
        {"bottom", {1000, 1054, 22, 22}, screen, panel, {811, 546}},
        {"left", {9, 500, 22, 22}, screen, panel, {39, 261}},
        {"right", {1889, 500, 22, 22}, screen, panel, {1481, 261}},
        {"top left", {4, 4, 22, 22}, screen, panel, {8, 34}},
        {"top right", {1894, 4, 22, 22}, screen, panel, {1512, 34}},
        {"bottom left", {4, 1054, 22, 22}, screen, panel, {8, 546}},
        {"bottom right", {1894, 1054, 22, 22}, screen, panel, {1512, 546}},
        {"still in a side bar", {1851, 48, 22, 22}, screen, panel, {1443, 8}},
        {"too far in for a side bar", {1850, 48, 22, 22}, screen, panel, {1512, 78}},
        {"too near the top for a side bar", {1851, 47, 22, 22}, screen, panel, {1512, 77}},
        {"too near the bottom for a side bar", {1851, 1011, 22, 22}, screen, panel, {1512, 503}},
    });
}

TEST(PanelPlace, IsBelowAsLongAsThereIsRoom) {
    expectPlaces({
        {"anywhere", {1000, 300, 22, 22}, screen, panel, {811, 330}},
        {"just room", {1000, 542, 22, 22}, screen, panel, {811, 572}},
        {"one too low", {1000, 543, 22, 22}, screen, panel, {811, 35}},
        {"room on neither side, more below",
         {1000, 250, 22, 22},
         {0, 0, 1920, 540},
         panel,
         {811, 32}},
        {"room on neither side, more above",
         {1000, 300, 22, 22},
         {0, 0, 1920, 540},
         panel,
         {811, 8}},
    });
}

TEST(PanelPlace, StaysOnTheScreenOfTheItem) {
    expectPlaces({
        {"left of the first", {-30, 4, 22, 22}, {-1920, 30, 1920, 1050}, panel, {-408, 38}},
        {"far left", {-1918, 4, 22, 22}, {-1920, 30, 1920, 1050}, panel, {-1912, 38}},
        {"above the first", {500, -26, 22, 22}, {0, -1080, 1920, 1050}, panel, {311, -538}},
        {"above and left", {-1271, -400, 22, 22}, {-1240, -1024, 1240, 1024}, panel, {-1232, -639}},
        {"right of the first", {1929, 500, 22, 22}, {1960, 0, 2520, 1440}, panel, {1968, 261}},
    });
}

TEST(PanelPlace, MakesDoWithSmallScreens) {
    const QRect item(300, 210, 16, 16);
    expectPlaces({
        {"just with the margin", item, {0, 0, 416, 516}, panel, {8, 8}},
        {"without the margin", item, {0, 0, 415, 515}, panel, {15, 15}},
        {"exactly", item, {0, 0, 400, 500}, panel, {0, 0}},
        {"too large", item, {10, 20, 399, 499}, panel, {10, 20}},
        {"too wide", {150, 210, 16, 16}, {10, 20, 320, 1000}, panel, {10, 234}},
        {"too high", item, {10, 20, 1000, 240}, panel, {108, 20}},
        {"no screen", item, {}, panel, {0, 0}},
    });
}

TEST(PanelPlace, TakesThePointerForAnItemOfUnknownPlace) {
    const QRect available(0, 30, 1920, 1050);
    for (const QRect &unknown : {QRect(), QRect(0, 0, 0, 0), QRect(500, 500, 22, 0)}) {
        EXPECT_EQ(panelPlace(unknown, {1000, 15}, available, panel), QPoint(800, 38));
        EXPECT_EQ(panelPlace(unknown, {1919, 1079}, screen, panel), QPoint(1512, 571));
        EXPECT_EQ(panelPlace(unknown, {-10, 500}, {-1880, 0, 1860, 1080}, panel),
                  QPoint(-428, 250));
    }
}

TEST(PanelPlace, IsWholeWithItsMarginWhereverTheItemIs) {
    const QRect available(-1240, 40, 1240, 984);
    const QSize small(400, 400);
    const QRect allowed = available.adjusted(8, 8, -8, -8);
    for (int x = -1400; x <= 200; x += 10) {
        for (int y = -100; y <= 1200; y += 10) {
            const QRect item(x, y, 22, 22);
            const QRect shown(panelPlace(item, elsewhere, available, small), small);
            EXPECT_TRUE(allowed.contains(shown)) << x << ", " << y;
            EXPECT_FALSE(shown.intersects(item)) << x << ", " << y;
        }
    }
}

} // namespace tovarin
