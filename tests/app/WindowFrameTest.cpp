// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/WindowFrame.h"

#include "tests/support/MemoryDefaults.h"
#include "tests/support/Printing.h"
#include "tests/support/WaitFor.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString key = u"TovarinMainWindow.frame"_s;

/// Counts what would be writes to the disk.
class CountingDefaults final : public UserDefaults {
public:
    CountingDefaults() = default;
    explicit CountingDefaults(const QString &frame) : m_values({{key, frame}}) {}

    std::optional<QString> text(const QString &name) const override { return m_values.text(name); }
    void setText(const QString &name, const QString &value) override {
        ++m_writes;
        m_values.setText(name, value);
    }

    /// The one text that there is; empty without one.
    QString frame() const {
        EXPECT_LE(m_values.values().size(), 1);
        return m_values.text(key).value_or(QString());
    }
    int writes() const { return m_writes; }

private:
    MemoryDefaults m_values;
    int m_writes = 0;
};

/// A window as the program has it.
struct TestWindow : QWindow {
    TestWindow() { setMinimumSize({640, 420}); }
};

/// One start of the program, with the window on the display.
struct Start {
    explicit Start(UserDefaults &defaults,
                   WindowFrame::Positions positions = WindowFrame::positionsHere())
        : frame(window, u"TovarinMainWindow"_s, defaults, positions) {
        window.setVisible(true);
        settle();
    }

    TestWindow window;
    WindowFrame frame;
};

/// The test's display has two screens of 1920 x 1080, side by side; see window_main.cpp.
class WindowFrameTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(QGuiApplication::screens().size(), 2);
        ASSERT_EQ(QGuiApplication::screens()[0]->availableGeometry(), QRect(0, 0, 1920, 1080));
        ASSERT_EQ(QGuiApplication::screens()[1]->availableGeometry(), QRect(1920, 0, 1920, 1080));
    }
};

} // namespace

TEST_F(WindowFrameTest, IsInTheMiddleTheFirstTime) {
    CountingDefaults defaults;
    const Start start(defaults);
    EXPECT_EQ(start.window.geometry(), QRect(480, 220, 960, 640));
    EXPECT_EQ(start.window.windowStates(), Qt::WindowNoState);
}

TEST_F(WindowFrameTest, TakesABrokenTextForNone) {
    for (const char *text : {"", "letters", "NaN NaN NaN NaN normal", "10 20 800", "10 20 800 600",
                             "10 20 -800 600 normal", "10 20 800 99999999999 normal"}) {
        CountingDefaults defaults(QString::fromLatin1(text));
        const Start start(defaults);
        EXPECT_EQ(start.window.geometry(), QRect(480, 220, 960, 640)) << text;
    }
}

TEST_F(WindowFrameTest, ReturnsWhereItWas) {
    struct Case {
        const char *what;
        QString saved;
        QRect expected;
    };
    const Case cases[] = {
        {"anywhere", u"100 200 800 600 normal"_s, {100, 200, 800, 600}},
        {"the other screen", u"2500 200 800 600 normal"_s, {2500, 200, 800, 600}},
        {"a screen that is gone", u"4200 200 800 600 normal"_s, {3040, 200, 800, 600}},
        {"a smaller one than allowed", u"100 200 80 60 normal"_s, {100, 200, 640, 420}},
    };
    for (const Case &c : cases) {
        CountingDefaults defaults(c.saved);
        {
            const Start start(defaults);
            EXPECT_EQ(start.window.geometry(), c.expected) << c.what;
        }
        EXPECT_EQ(defaults.frame(), c.saved) << c.what << ": nothing was moved by the user";
        EXPECT_EQ(defaults.writes(), 0) << c.what;
    }
}

TEST_F(WindowFrameTest, IsSavedOnceAMoveIsOver) {
    CountingDefaults defaults;
    Start start(defaults);
    for (int i = 1; i <= 50; ++i) {
        start.window.setPosition(100 + i, 200);
        start.window.resize(800 + i, 600);
        settle();
    }
    EXPECT_EQ(defaults.writes(), 0);
    EXPECT_TRUE(waitFor([&] { return defaults.writes() > 0; }));
    settle();
    EXPECT_EQ(defaults.frame(), u"150 200 850 600 normal"_s);
    EXPECT_EQ(defaults.writes(), 1);

    start.window.setPosition(2000, 300);
    EXPECT_TRUE(waitFor([&] { return defaults.writes() > 1; }));
    EXPECT_EQ(defaults.frame(), u"2000 300 850 600 normal"_s);
    const Start next(defaults);
    EXPECT_EQ(next.window.geometry(), QRect(2000, 300, 850, 600));
}

TEST_F(WindowFrameTest, IsSavedAtOnceWhenTheWindowGoes) {
    struct Case {
        const char *what;
        void (*end)(QWindow &);
    };
    const Case cases[] = {
        {"hidden", [](QWindow &window) { window.hide(); }},
        {"closed", [](QWindow &window) { EXPECT_TRUE(window.close()); }},
    };
    for (const Case &c : cases) {
        CountingDefaults defaults;
        {
            Start start(defaults);
            start.window.setGeometry(10, 20, 800, 600);
            settle();
            EXPECT_EQ(defaults.writes(), 0) << c.what;
            c.end(start.window);
            EXPECT_EQ(defaults.frame(), u"10 20 800 600 normal"_s) << c.what;

            start.window.setGeometry(30, 40, 700, 500);
            settle();
        }
        EXPECT_EQ(defaults.frame(), u"10 20 800 600 normal"_s)
            << c.what << ": what happens while it is hidden does not count";
        EXPECT_EQ(defaults.writes(), 1) << c.what;
    }
}

TEST_F(WindowFrameTest, IsSavedAtTheEnd) {
    CountingDefaults defaults;
    {
        Start start(defaults);
        start.window.setGeometry(10, 20, 800, 600);
        settle();
        EXPECT_EQ(defaults.writes(), 0);
    }
    EXPECT_EQ(defaults.frame(), u"10 20 800 600 normal"_s);
}

TEST_F(WindowFrameTest, IsNotSavedAnewForAMoveThereAndBack) {
    CountingDefaults defaults(u"10 20 800 600 normal"_s);
    {
        Start start(defaults);
        start.window.setPosition(50, 60);
        start.window.setPosition(10, 20);
        settle();
    }
    EXPECT_EQ(defaults.writes(), 0);
}

TEST_F(WindowFrameTest, KeepsTheFrameThatItHadBefore) {
    for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowFullScreen}) {
        CountingDefaults defaults(u"10 20 800 600 normal"_s);
        Start start(defaults);
        start.window.setWindowState(state);
        settle();
        EXPECT_EQ(start.window.size(), QSize(1920, 1080));
        EXPECT_TRUE(waitFor([&] { return defaults.writes() > 0; }));
        EXPECT_EQ(defaults.frame(), u"10 20 800 600 maximised"_s);

        const Start next(defaults);
        EXPECT_EQ(next.window.windowStates(), Qt::WindowMaximized);
        EXPECT_EQ(next.window.size(), QSize(1920, 1080));

        start.window.setWindowState(Qt::WindowNoState);
        settle();
        EXPECT_TRUE(waitFor([&] { return defaults.writes() > 1; }));
        EXPECT_EQ(defaults.frame(), u"10 20 800 600 normal"_s);
    }
}

TEST_F(WindowFrameTest, LearnsNothingWhileMinimised) {
    for (const char *saved : {"10 20 800 600 normal", "10 20 800 600 maximised"}) {
        CountingDefaults defaults(QString::fromLatin1(saved));
        {
            Start start(defaults);
            start.window.setWindowState(Qt::WindowMinimized);
            start.window.setPosition(50, 60);
            settle();
        }
        EXPECT_EQ(defaults.frame(), QString::fromLatin1(saved));
        EXPECT_EQ(defaults.writes(), 0);
    }
}

TEST_F(WindowFrameTest, CountsOnlyTheSizeWherePositionsAreHidden) {
    constexpr auto hidden = WindowFrame::Positions::hidden;
    CountingDefaults defaults(u"2500 200 800 600 normal"_s);
    {
        Start start(defaults, hidden);
        EXPECT_EQ(start.window.size(), QSize(800, 600));
        EXPECT_NE(start.window.position(), QPoint(2500, 200));
        start.window.setPosition(0, 0);
        start.window.resize(900, 700);
        settle();
    }
    EXPECT_EQ(defaults.frame(), u"2500 200 900 700 normal"_s) << "for another display server";
    {
        Start start(defaults, hidden);
        start.window.setWindowState(Qt::WindowMaximized);
        settle();
    }
    EXPECT_EQ(defaults.frame(), u"2500 200 900 700 maximised"_s);

    CountingDefaults huge(u"9000 9000 5000 4000 normal"_s);
    EXPECT_EQ(Start(huge, hidden).window.size(), QSize(1920, 1080));
    CountingDefaults none;
    EXPECT_EQ(Start(none, hidden).window.size(), QSize(960, 640));
}

TEST_F(WindowFrameTest, KnowsWhetherPositionsAreTold) {
    EXPECT_EQ(QGuiApplication::platformName(), u"offscreen"_s);
    EXPECT_EQ(WindowFrame::positionsHere(), WindowFrame::Positions::told);
}

} // namespace tovarin
