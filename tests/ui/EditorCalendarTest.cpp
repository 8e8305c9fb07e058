// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/Printing.h"
#include "tests/ui/EditorTest.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST_P(EditorTest, VisitsTheOpenCalendarOnce) {
    open({sampleSubscription(), std::nullopt});
    stage->click(item("date"));
    ASSERT_TRUE(form->dateExpanded());
    QStringList visited;
    for (int i = 0; i < 4; ++i) {
        stage->press(Qt::Key_Tab);
        visited.append(stage->window().activeFocusItem()->property("title").toString());
    }
    EXPECT_EQ(visited, (QStringList{pair(u"上个月"_s, u"Previous month"_s),
                                    pair(u"下个月"_s, u"Next month"_s),
                                    u"Saturday, March 1, 2025"_s, QString()}));
    EXPECT_EQ(stage->focused(), u"active"_s);
    for (int i = 0; i < 4; ++i)
        stage->press(Qt::Key_Backtab);
    EXPECT_EQ(stage->focused(), u"date"_s);
}

TEST_P(EditorTest, ChoosesADayByClicks) {
    open({sampleSubscription(), std::nullopt});
    openCalendar();
    stage->click(cell(u"Wednesday, March 12, 2025"_s));
    EXPECT_EQ(selectedDay(), u"2025/03/12"_s);
    EXPECT_EQ(form->startDate(), instant("2025-03-11T16:00:00Z"));
    EXPECT_EQ(item("date").property("value"), u"2025/03/12"_s);
    stage->click(cell(u"Saturday, April 5, 2025"_s));
    EXPECT_EQ(selectedDay(), u"2025/04/05"_s);
    EXPECT_TRUE(stage->texts().contains(u"April 2025"_s));
    stage->click(*stage->itemWith("title", pair(u"上个月"_s, u"Previous month"_s)));
    EXPECT_TRUE(stage->texts().contains(u"March 2025"_s));
    stage->click(*stage->itemWith("title", pair(u"下个月"_s, u"Next month"_s)));
    stage->click(*stage->itemWith("title", pair(u"下个月"_s, u"Next month"_s)));
    EXPECT_TRUE(stage->texts().contains(u"May 2025"_s));
    EXPECT_EQ(selectedDay(), u"2025/04/05"_s);
    stage->click(item("date"));
    EXPECT_FALSE(item("calendar").isVisible());
}

TEST_P(EditorTest, DrawsDaysByWhatTheyAre) {
    Subscription sub = sampleSubscription();
    sub.startDate = instant("2025-06-20T00:00:00Z");
    open({sub, std::nullopt});
    openCalendar();
    const QColor clear(0, 0, 0, 0);
    struct {
        QString day;
        QString number;
        QColor text;
        int weight;
        QColor fill;
        int outline;
    } const cases[] = {
        {u"Friday, June 20, 2025"_s, u"20"_s, u"#151008"_s, QFont::DemiBold, u"#F6C94A"_s, 0},
        {u"Tuesday, June 10, 2025"_s, u"10"_s, u"#E8E8E8"_s, QFont::Medium,
         QColor::fromRgbF(1, 1, 1, 0.1F), 1},
        {u"Sunday, June 1, 2025"_s, u"1"_s, u"#E8E8E8"_s, QFont::Medium, clear, 0},
        {u"Saturday, July 12, 2025"_s, u"12"_s, u"#555555"_s, QFont::Medium, clear, 0},
    };
    for (const auto &[day, number, text, weight, fill, outline] : cases) {
        const QQuickItem &drawn = cell(day);
        const auto *const label = drawn.property("contentItem").value<QQuickItem *>();
        const auto *const ground = drawn.property("background").value<QQuickItem *>();
        const auto font = label->property("font").value<QFont>();
        EXPECT_EQ(drawn.height(), 36);
        EXPECT_EQ(label->property("text"), number);
        EXPECT_EQ(label->property("color").value<QColor>(), text) << number.toStdString();
        EXPECT_EQ(font.family(), u"Poppins"_s);
        EXPECT_EQ(font.pixelSize(), 14);
        EXPECT_EQ(font.weight(), weight) << number.toStdString();
        const auto color = ground->property("color").value<QColor>();
        // What is clear has no colour.
        EXPECT_EQ(color.alpha(), fill.alpha()) << number.toStdString();
        EXPECT_TRUE(color == fill || fill.alpha() == 0) << number.toStdString();
        EXPECT_EQ(ground->property("border").value<QObject *>()->property("width"), outline);
    }
    // Today, when it is selected, is drawn as selected.
    stage->click(cell(u"Tuesday, June 10, 2025"_s));
    QTest::mouseMove(&stage->window(), {1, 1});
    stage->settle();
    const QQuickItem &today = cell(u"Tuesday, June 10, 2025"_s);
    const auto *const ground = today.property("background").value<QQuickItem *>();
    EXPECT_EQ(ground->property("color").value<QColor>(), QColor(u"#F6C94A"_s));
    EXPECT_EQ(ground->property("border").value<QObject *>()->property("width"), 0);
}

TEST_P(EditorTest, ChoosesADayByKeys) {
    open({sampleSubscription(), std::nullopt});
    for (int i = 0; i < 6; ++i)
        stage->press(Qt::Key_Tab);
    ASSERT_EQ(stage->focused(), u"date"_s);
    stage->press(Qt::Key_Return);
    for (int i = 0; i < 3; ++i)
        stage->press(Qt::Key_Tab);
    struct {
        Qt::Key key;
        QString day;
    } const steps[] = {
        {Qt::Key_Right, u"2025/03/02"_s},    {Qt::Key_Down, u"2025/03/09"_s},
        {Qt::Key_Left, u"2025/03/08"_s},     {Qt::Key_Up, u"2025/03/01"_s},
        {Qt::Key_Left, u"2025/02/28"_s},     {Qt::Key_Right, u"2025/03/01"_s},
        {Qt::Key_Home, u"2025/02/23"_s},     {Qt::Key_End, u"2025/03/01"_s},
        {Qt::Key_PageUp, u"2025/02/01"_s},   {Qt::Key_PageDown, u"2025/03/01"_s},
        {Qt::Key_PageDown, u"2025/04/01"_s},
    };
    for (const auto &[key, day] : steps) {
        stage->press(key);
        EXPECT_EQ(selectedDay(), day) << key;
        const QQuickItem *const at = stage->window().activeFocusItem();
        EXPECT_TRUE(at->property("isSelected").toBool()) << key;
        EXPECT_TRUE(at->property("visualFocus").toBool()) << key;
    }
    EXPECT_EQ(dismissed->size(), 0);
    // The selected day again.
    stage->press(Qt::Key_Return);
    EXPECT_EQ(selectedDay(), u"2025/04/01"_s);
    EXPECT_EQ(dismissed->size(), 0);
}

TEST_P(EditorTest, TellsTheDaysToAScreenReader) {
    Subscription sub = sampleSubscription();
    sub.startDate = instant("2025-06-01T00:00:00Z");
    open({sub, std::nullopt});
    EXPECT_TRUE(Stage::pressByScreenReader(item("date")));
    stage->settle();
    ASSERT_TRUE(form->dateExpanded());
    int days = 0;
    for (const CalendarDay &day : form->calendar()->calendarDays()) {
        QQuickItem &seen = cell(months.fullDate(day.date));
        const QAccessibleInterface *const it = Stage::accessible(seen);
        ASSERT_TRUE(it);
        EXPECT_EQ(it->role(), QAccessible::Button);
        EXPECT_EQ(it->text(QAccessible::Name), months.fullDate(day.date));
        EXPECT_EQ(it->text(QAccessible::Description),
                  day.isToday ? pair(u"今天"_s, u"Today"_s) : QString());
        EXPECT_EQ(bool(it->state().selected), day.isSelected);
        ++days;
    }
    EXPECT_EQ(days, 42);
    EXPECT_TRUE(Stage::pressByScreenReader(cell(u"Saturday, July 12, 2025"_s)));
    EXPECT_EQ(selectedDay(), u"2025/07/12"_s);
}

TEST_P(EditorTest, BringsTheOpenCalendarIntoSight) {
    open();
    EXPECT_LT(SheetStage::bottom(item("date")), SheetStage::top(item("cancel")));
    const qreal before = SheetStage::top(item("name"));
    for (int i = 0; i < 2; ++i) {
        openCalendar();
        EXPECT_LT(SheetStage::top(item("name")), before);
        EXPECT_LE(SheetStage::bottom(item("calendar")), SheetStage::top(item("cancel")));
        EXPECT_GE(SheetStage::top(item("calendar")), 60);
        stage->click(item("date"));
        stage->settle();
        EXPECT_FALSE(item("calendar").isVisible());
    }
}

} // namespace tovarin
