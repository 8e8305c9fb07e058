// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/SavedFrame.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr QSize minimum(640, 420);
constexpr QRect screen(0, 30, 1920, 1050); // a bar at its top
constexpr QRect right(1920, 0, 2560, 1440);
constexpr QRect left(-1280, 200, 1280, 1024);

struct Fitting {
    const char *what;
    QRect saved;
    QList<QRect> screens;
    QRect expected;
};

void expectFitted(std::initializer_list<Fitting> cases) {
    for (const Fitting &c : cases)
        EXPECT_EQ(fitted(c.saved, minimum, c.screens), c.expected) << c.what;
}

} // namespace

TEST(SavedFrame, IsOneText) {
    struct Case {
        SavedFrame frame;
        QString text;
    };
    const Case cases[] = {
        {{{120, 80, 960, 640}, false}, u"120 80 960 640 normal"_s},
        {{{120, 80, 960, 640}, true}, u"120 80 960 640 maximised"_s},
        {{{0, 0, 1, 1}, false}, u"0 0 1 1 normal"_s},
        {{{-1280, -5, 960, 640}, false}, u"-1280 -5 960 640 normal"_s},
        {{{32767, -32767, 32767, 32767}, true}, u"32767 -32767 32767 32767 maximised"_s},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(c.frame.text(), c.text);
        EXPECT_EQ(SavedFrame::fromText(c.text), c.frame) << c.text.toStdString();
    }
}

TEST(SavedFrame, IsAbsentInAnyOtherText) {
    for (const char *text : {"",
                             " ",
                             "normal",
                             "120 80 960 640",
                             "120 80 960 640 ",
                             "120 80 960 normal",
                             "120 80 960 640 640 normal",
                             "120 80 960 640 normal maximised",
                             " 120 80 960 640 normal",
                             "120 80 960 640 normal ",
                             "120 80 960 640 normal\n",
                             "120  80 960 640 normal",
                             "120\t80 960 640 normal",
                             "120,80,960,640,normal",
                             "120 80 960 640 Normal",
                             "120 80 960 640 minimised",
                             "120 80 960 640 1",
                             "a 80 960 640 normal",
                             "120 80 NaN 640 normal",
                             "nan nan nan nan normal",
                             "inf 80 960 640 normal",
                             "120.5 80 960 640 normal",
                             "1e2 80 960 640 normal",
                             "+120 80 960 640 normal",
                             "0x78 80 960 640 normal",
                             "--1 80 960 640 normal",
                             "- 80 960 640 normal",
                             "120 80 -960 640 normal",
                             "120 80 960 -640 normal",
                             "120 80 0 640 normal",
                             "120 80 960 0 normal",
                             "32768 80 960 640 normal",
                             "120 -32768 960 640 normal",
                             "120 80 32768 640 normal",
                             "120 80 960 32768 normal",
                             "120 80 99999 640 normal",
                             "120 80 100000 640 normal",
                             "120 80 99999999999999999999 640 normal",
                             "2147483648 80 960 640 normal"})
        EXPECT_EQ(SavedFrame::fromText(QString::fromLatin1(text)), std::nullopt) << text;
    EXPECT_EQ(SavedFrame::fromText(u"\u0661\u0662\u0660 80 960 640 normal"_s), std::nullopt)
        << "digits of another script";
}

TEST(FirstFrame, IsInTheMiddleOfThePrimaryScreen) {
    struct Case {
        const char *what;
        QSize least;
        QList<QRect> screens;
        QRect expected;
    };
    const Case cases[] = {
        {"one screen", minimum, {screen}, {480, 235, 960, 640}},
        {"more of them", minimum, {right, screen, left}, {2720, 400, 960, 640}},
        {"left of the origin", minimum, {left}, {-1120, 392, 960, 640}},
        {"just room", minimum, {{10, 20, 960, 670}}, {10, 50, 960, 640}},
        {"no room for the title bar in the middle", minimum, {{0, 0, 960, 699}}, {0, 30, 960, 640}},
        {"just room for it", minimum, {{0, 0, 960, 700}}, {0, 30, 960, 640}},
        {"more room for it", minimum, {{0, 0, 960, 702}}, {0, 31, 960, 640}},
        {"too narrow", minimum, {{10, 20, 959, 740}}, {10, 70, 959, 640}},
        {"too low", minimum, {{10, 20, 1060, 669}}, {60, 50, 960, 639}},
        {"too small for the minimum", minimum, {{0, 0, 600, 400}}, {0, 0, 600, 400}},
        {"as low as the minimum", minimum, {{0, 0, 640, 450}}, {0, 30, 640, 420}},
        {"too low for a title bar", minimum, {{0, 0, 640, 445}}, {0, 25, 640, 420}},
        {"a larger minimum", {1000, 700}, {screen}, {460, 205, 1000, 700}},
        {"no minimum", {0, 0}, {screen}, {480, 235, 960, 640}},
        {"no screen", minimum, {}, {0, 0, 960, 640}},
    };
    for (const Case &c : cases)
        EXPECT_EQ(firstFrame(c.least, c.screens), c.expected) << c.what;
}

TEST(Fitted, LeavesWhatCanBeTakenHoldOf) {
    for (const QRect &frame : {
             QRect(480, 235, 960, 640),   // in the middle
             QRect(0, 30, 1920, 1050),    // all of it
             QRect(-860, 30, 960, 640),   // 100 points at the left
             QRect(1820, 500, 960, 640),  // 100 points at the right
             QRect(500, 1050, 960, 640),  // 30 points at the bottom
             QRect(1820, 1050, 960, 640), // both
             QRect(100, 100, 3000, 2000), // larger than the screen
         })
        expectFitted({{"one screen", frame, {screen}, frame},
                      {"the last one", frame, {right.translated(9000, 0), screen}, frame}});
    // On two screens, as long as one of them shows enough.
    expectFitted({
        {"across", {1500, 100, 960, 640}, {screen, right}, {1500, 100, 960, 640}},
        {"on the other", {3000, 700, 960, 640}, {screen, right}, {3000, 700, 960, 640}},
        {"left of the origin", {-1200, 300, 960, 640}, {screen, left}, {-1200, 300, 960, 640}},
    });
}

TEST(Fitted, BringsTheOthersBackWhole) {
    expectFitted({
        {"99 points at the left", {-861, 100, 960, 640}, {screen}, {0, 100, 960, 640}},
        {"99 points at the right", {1821, 100, 960, 640}, {screen}, {960, 100, 960, 640}},
        {"29 points at the bottom", {500, 1051, 960, 640}, {screen}, {500, 440, 960, 640}},
        {"its top under the bar", {500, 29, 960, 640}, {screen}, {500, 60, 960, 640}},
        {"its top above the screen", {500, -600, 960, 640}, {screen}, {500, 60, 960, 640}},
        {"far away", {9000, 9000, 960, 640}, {screen}, {960, 440, 960, 640}},
        {"far away on the other side", {-9000, -9000, 960, 640}, {screen}, {0, 60, 960, 640}},
        {"the farthest", {32767, -32767, 32767, 32767}, {screen}, {0, 60, 1920, 1020}},
        {"too large", {5000, 5000, 3000, 2000}, {screen}, {0, 60, 1920, 1020}},
        {"too wide", {5000, 5000, 3000, 640}, {screen}, {0, 440, 1920, 640}},
        {"the screen is too low for a title bar",
         {5000, -5000, 960, 640},
         {{0, 0, 1000, 430}},
         {40, 10, 960, 420}},
        {"the screen is smaller than the minimum",
         {5000, 5000, 960, 640},
         {{10, 20, 500, 400}},
         {10, 20, 500, 400}},
    });
}

TEST(Fitted, ChoosesTheScreenThatHasMostOfItElseTheNearest) {
    expectFitted({
        {"99 points, 1 on the other", {1919, -50, 960, 640}, {screen, right}, {1920, 30, 960, 640}},
        {"most on the first", {1000, 1060, 1000, 640}, {screen, right}, {1920, 800, 1000, 640}},
        {"nearer to the right one", {5000, 500, 960, 640}, {screen, right}, {3520, 500, 960, 640}},
        {"nearer to the left one", {-3000, 500, 960, 640}, {screen, left}, {-1280, 500, 960, 640}},
        {"as near to both",
         {-500, -2000, 1000, 640},
         {{0, 0, 1920, 1080}, {-1920, 0, 1920, 1080}},
         {0, 30, 1000, 640}},
        {"whichever is the primary one",
         {-500, -2000, 1000, 640},
         {{-1920, 0, 1920, 1080}, {0, 0, 1920, 1080}},
         {-1000, 30, 1000, 640}},
    });
}

TEST(Fitted, KeepsTheMinimumAndNeedsAScreen) {
    expectFitted({
        {"too small", {100, 100, 300, 200}, {screen}, {100, 100, 640, 420}},
        {"too small and away", {9000, 100, 300, 200}, {screen}, {1280, 100, 640, 420}},
        {"no screen", {9000, 100, 960, 640}, {}, {9000, 100, 960, 640}},
    });
    EXPECT_EQ(fitted({1900, 100, 20, 10}, {0, 0}, {screen}), QRect(1900, 100, 20, 10))
        << "a window smaller than the handle, wholly visible";
    EXPECT_EQ(fitted({1901, 100, 20, 10}, {0, 0}, {screen}), QRect(1900, 100, 20, 10));
}

TEST(FittedSize, CountsWithoutThePosition) {
    struct Case {
        const char *what;
        QSize saved;
        QList<QRect> screens;
        QSize expected;
    };
    const Case cases[] = {
        {"room", {960, 640}, {screen}, {960, 640}},
        {"just room", {1920, 1050}, {screen}, {1920, 1050}},
        {"too wide", {1921, 640}, {screen}, {1920, 640}},
        {"too high", {960, 1051}, {screen}, {960, 1050}},
        {"room on another", {2500, 1400}, {screen, right}, {2500, 1400}},
        {"room on none", {2500, 1500}, {screen, right}, {1920, 1050}},
        {"too small", {300, 200}, {screen}, {640, 420}},
        {"the screen is smaller than the minimum", {300, 200}, {{0, 0, 500, 400}}, {500, 400}},
        {"no screen", {9000, 200}, {}, {9000, 420}},
    };
    for (const Case &c : cases)
        EXPECT_EQ(fittedSize(c.saved, minimum, c.screens), c.expected) << c.what;
}

} // namespace tovarin
