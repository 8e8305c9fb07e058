// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The editor's sheet, handled as a user does.

#include "model/Store.h"
#include "platform/UserMonths.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/ui/Stage.h"
#include "ui/SubscriptionEditModel.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString sheetWithoutForm = u"Sheet { objectName: 'sheet'; label: 'Editor';"
                                 " FocusScope { objectName: 'content'; anchors.fill: parent;"
                                 " focus: true } }"_s;

class EditorTest : public LanguageTest {
protected:
    /// Opens the sheet and puts the form on it.
    void open(SubscriptionEditModel::Source source = {}) {
        form.emplace(std::move(source), store, clock, calendar, months,
                     LocalizationManager::shared());
        dismissed.emplace(&*form, &SubscriptionEditModel::dismissed);
        stage.emplace(sheetWithoutForm, QSize(640, 700));
        QMetaObject::invokeMethod(&stage->object("sheet"), "open");
        ASSERT_TRUE(
            QTest::qWaitFor([this] { return stage->object("sheet").property("opened").toBool(); }));
        QQmlComponent component(&stage->engine(), QUrl(u"qrc:/Tovarin/SubscriptionEditView.qml"_s));
        QQuickItem &content = stage->item("content");
        view = qobject_cast<QQuickItem *>(component.createWithInitialProperties(
            {{u"edit"_s, QVariant::fromValue(&*form)}}, qmlContext(&content)));
        ASSERT_TRUE(view) << component.errorString().toStdString();
        view->setParent(&content);
        view->setParentItem(&content);
        view->setSize(content.size());
        view->setFocus(true);
        stage->settle();
        stage->settle();
    }

    QQuickItem &item(const char *name) { return stage->item(name); }

    /// The cell of a day, by its full name.
    QQuickItem &cell(const QString &fullDate) {
        QQuickItem *const found = stage->itemWith("fullDate", fullDate);
        if (!found)
            qFatal("there is no %s", qPrintable(fullDate));
        return *found;
    }

    void tabTo(const QString &name) {
        for (int i = 0; i < 20 && stage->focused() != name; ++i)
            stage->press(Qt::Key_Tab);
        ASSERT_EQ(stage->focused(), name);
    }

    /// Opens the calendar, which then comes into sight as a whole.
    void openCalendar() {
        stage->click(item("date"));
        ASSERT_TRUE(item("calendar").isVisible());
        ASSERT_TRUE(QTest::qWaitFor([this] {
            stage->settle();
            return bottom("calendar") <= top("cancel");
        }));
    }

    /// Where an item begins and ends on the window.
    qreal top(const char *name) { return item(name).mapToScene({0, 0}).y(); }
    qreal bottom(const char *name) { return item(name).mapToScene({0, item(name).height()}).y(); }

    QString selectedDay() const { return form->startDateText(); }

    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    UserMonths months{u"en_US"_s};
    Store store{folder.path(), clock, calendar};
    std::optional<SubscriptionEditModel> form;
    std::optional<QSignalSpy> dismissed;
    std::optional<Stage> stage;
    QQuickItem *view = nullptr;
};

} // namespace

TEST_P(EditorTest, ShowsTheFormOfANewEntry) {
    open();
    EXPECT_EQ(stage->texts(),
              isZh()
                  ? (QStringList{u"[ 添加订阅 ]"_s, u"基本信息"_s, u"名称"_s, u"如 ChatGPT Plus"_s,
                                 u"金额"_s,         u"0.00"_s,     u"CNY"_s,  u"分类"_s,
                                 u"AI/工具"_s,      u"付费方式"_s, u"类型"_s, u"订阅续费"_s,
                                 u"单次买断"_s,     u"周期"_s,     u"每月"_s, u"首次扣费"_s,
                                 u"2025/06/10"_s,   u"仍在使用"_s, u"备注"_s, u"可选备注"_s,
                                 u"取消"_s,         u"保存"_s})
                  : (QStringList{u"[ Add subscription ]"_s,
                                 u"Basics"_s,
                                 u"Name"_s,
                                 u"e.g. ChatGPT Plus"_s,
                                 u"Amount"_s,
                                 u"0.00"_s,
                                 u"USD"_s,
                                 u"Category"_s,
                                 u"AI & Tools"_s,
                                 u"Billing"_s,
                                 u"Type"_s,
                                 u"Subscription"_s,
                                 u"One-time"_s,
                                 u"Cycle"_s,
                                 u"Monthly"_s,
                                 u"First charge"_s,
                                 u"2025/06/10"_s,
                                 u"Still active"_s,
                                 u"Notes"_s,
                                 u"Optional notes"_s,
                                 u"Cancel"_s,
                                 u"Save"_s}));
    EXPECT_EQ(stage->focused(), u"name"_s);
}

TEST_P(EditorTest, SavesWhatIsTypedByReturn) {
    open();
    stage->type(u"Netflix"_s);
    EXPECT_EQ(form->name(), u"Netflix"_s);
    stage->press(Qt::Key_Return);
    EXPECT_EQ(dismissed->size(), 0);
    EXPECT_FALSE(item("save").isEnabled());
    stage->press(Qt::Key_Tab);
    ASSERT_EQ(stage->focused(), u"amount"_s);
    stage->type(u"15,4"_s);
    stage->press(Qt::Key_Return);
    EXPECT_EQ(dismissed->size(), 0);
    EXPECT_EQ(store.subscriptions().size(), 0);
    stage->press(Qt::Key_Backspace);
    stage->press(Qt::Key_Backspace);
    EXPECT_TRUE(item("save").isEnabled());
    stage->press(Qt::Key_Return);
    EXPECT_EQ(dismissed->size(), 1);
    ASSERT_EQ(store.subscriptions().size(), 1);
    EXPECT_EQ(store.subscriptions().first().name, u"Netflix"_s);
    EXPECT_EQ(store.subscriptions().first().amount, 15);
}

TEST_P(EditorTest, MarksAnAmountThatCannotBeSaved) {
    open();
    EXPECT_TRUE(item("amount").property("acceptable").toBool());
    for (const auto &[text, acceptable] :
         {std::pair{u"15,5"_s, false}, {u"15.5"_s, true}, {u"0"_s, false}, {u"-3"_s, false}}) {
        item("amount").setProperty("text", text);
        EXPECT_EQ(item("amount").property("acceptable").toBool(), acceptable) << text.toStdString();
    }
}

TEST_P(EditorTest, LeavesReturnToTheNotes) {
    open({std::nullopt, sampleSubscription()});
    tabTo(u"notes"_s);
    stage->type(u"a"_s);
    stage->press(Qt::Key_Return);
    stage->type(u"b"_s);
    EXPECT_EQ(form->notes(), u"a\nb"_s);
    EXPECT_EQ(dismissed->size(), 0);
}

TEST_P(EditorTest, IsVisitedInOrderByTab) {
    open({sampleSubscription(), std::nullopt});
    QStringList visited{stage->focused()};
    for (int i = 0; i < 11; ++i) {
        stage->press(Qt::Key_Tab);
        visited.append(stage->focused());
    }
    EXPECT_EQ(visited, (QStringList{u"name"_s, u"amount"_s, u"currency"_s, u"category"_s, u"type"_s,
                                    u"cycle"_s, u"date"_s, u"active"_s, u"notes"_s, u"delete"_s,
                                    u"cancel"_s, u"save"_s}));
    stage->press(Qt::Key_Tab);
    EXPECT_EQ(stage->focused(), u"name"_s);
    stage->press(Qt::Key_Backtab);
    EXPECT_EQ(stage->focused(), u"save"_s);
    // What the keyboard is at is in sight.
    stage->press(Qt::Key_Backtab);
    stage->press(Qt::Key_Backtab);
    stage->press(Qt::Key_Backtab);
    ASSERT_EQ(stage->focused(), u"notes"_s);
    // With the end of its section.
    EXPECT_LE(bottom("notes") + 14, top("cancel") - 16);
}

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

TEST_P(EditorTest, ClosesByEscapeAndByCancel) {
    const Subscription sub = sampleSubscription();
    store.add(sub);
    open({sub, std::nullopt});
    stage->type(u"x"_s);
    stage->click(item("cancel"));
    EXPECT_EQ(dismissed->size(), 1);
    stage->press(Qt::Key_Escape);
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return !stage->object("sheet").property("visible").toBool(); }));
    EXPECT_EQ(store.subscriptions(), QList{sub});
}

TEST_P(EditorTest, SavesAndDeletesByButtons) {
    const Subscription sub = sampleSubscription();
    store.add(sub);
    open({sub, std::nullopt});
    stage->press(Qt::Key_End);
    stage->type(u"!"_s);
    stage->click(item("save"));
    EXPECT_EQ(dismissed->size(), 1);
    EXPECT_EQ(store.subscriptions().first().name, u"Music Plus!"_s);
    EXPECT_EQ(store.subscriptions().first().id, sub.id);
    EXPECT_TRUE(Stage::pressByScreenReader(item("delete")));
    EXPECT_EQ(dismissed->size(), 2);
    EXPECT_EQ(store.subscriptions().size(), 0);
}

TEST_P(EditorTest, OffersDeletionOnlyForAnEntry) {
    open({std::nullopt, sampleSubscription()});
    EXPECT_FALSE(item("delete").isVisible());
    EXPECT_TRUE(stage->texts().contains(pair(u"[ 确认识别结果 ]"_s, u"[ Confirm scan ]"_s)));
}

TEST_P(EditorTest, FollowsTheType) {
    open();
    stage->click(*stage->itemWith("modelData", pair(u"单次买断"_s, u"One-time"_s)));
    EXPECT_EQ(form->billingType(), BillingType::oneTime);
    EXPECT_EQ(item("date").property("title"), pair(u"购买日"_s, u"Purchase date"_s));
    EXPECT_TRUE(stage->texts().contains(pair(u"购买日"_s, u"Purchase date"_s)));
    EXPECT_FALSE(stage->texts().contains(pair(u"周期"_s, u"Cycle"_s)));
    EXPECT_FALSE(item("cycle").isVisible());
    stage->click(*stage->itemWith("modelData", pair(u"订阅续费"_s, u"Subscription"_s)));
    EXPECT_EQ(item("date").property("title"), pair(u"首次扣费"_s, u"First charge"_s));
    EXPECT_TRUE(item("cycle").isVisible());
}

TEST_P(EditorTest, ChoosesByThePickers) {
    open();
    for (int i = 0; i < 3; ++i)
        stage->press(Qt::Key_Tab);
    ASSERT_EQ(stage->focused(), u"category"_s);
    stage->press(Qt::Key_Down);
    EXPECT_EQ(form->category(), u"影音"_s);
    EXPECT_TRUE(stage->texts().contains(pair(u"影音"_s, u"Video"_s)));
    stage->press(Qt::Key_Backtab);
    stage->press(Qt::Key_End);
    EXPECT_EQ(form->currency(), u"GBP"_s);
    for (int i = 0; i < 3; ++i)
        stage->press(Qt::Key_Tab);
    ASSERT_EQ(stage->focused(), u"cycle"_s);
    stage->press(Qt::Key_Up);
    EXPECT_EQ(form->cycle(), BillingCycle::weekly);
    for (int i = 0; i < 2; ++i)
        stage->press(Qt::Key_Tab);
    ASSERT_EQ(stage->focused(), u"active"_s);
    stage->press(Qt::Key_Space);
    EXPECT_FALSE(form->isActive());
}

TEST_P(EditorTest, KeepsAnUnknownCategoryAndFollowsTheLanguage) {
    Subscription sub = sampleSubscription();
    sub.category = u"视频"_s;
    open({sub, std::nullopt});
    EXPECT_EQ(item("category").property("displayText"), pair(u"视频"_s, u"Video"_s));
    EXPECT_EQ(item("category").property("currentIndex"), -1);
    const LanguageScope other(otherLang());
    stage->settle();
    EXPECT_EQ(item("category").property("displayText"), pair(u"Video"_s, u"视频"_s));
    EXPECT_EQ(item("category").property("currentIndex"), -1);
    EXPECT_EQ(item("cycle").property("currentIndex"), 1);
    EXPECT_EQ(item("cycle").property("displayText"), pair(u"Monthly"_s, u"每月"_s));
    EXPECT_EQ(form->category(), u"视频"_s);
    EXPECT_TRUE(stage->texts().contains(pair(u"[ Edit subscription ]"_s, u"[ 编辑订阅 ]"_s)));
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

TEST_P(EditorTest, KeepsWhatTheFieldsCannotShow) {
    Subscription sub = sampleSubscription(u"two\nlines \u202E and <b>markup</b>"_s);
    sub.notes = u"one\r\ntwo\u2028three\u0000four"_s;
    sub.currency = u"chf"_s;
    store.add(sub);
    open({sub, std::nullopt});
    stage->click(item("save"));
    EXPECT_EQ(store.subscriptions(), QList{sub});
}

TEST_P(EditorTest, BearsSmallWindowsAndLongTexts) {
    Subscription sub = sampleSubscription(QString(5000, u'长'));
    sub.notes = u"a line\n"_s.repeated(500);
    sub.category = QString(5000, u'x');
    sub.currency = QString(5000, u'y');
    sub.amount = 123'456'789'012.34;
    open({sub, std::nullopt});
    form->setDateExpanded(true);
    for (const QSize size : {QSize(320, 240), QSize(520, 400), QSize(1600, 1000)}) {
        stage->window().resize(size);
        stage->settle();
        view->setSize(stage->item("content").size());
        stage->settle();
    }
    stage->click(item("save"));
    EXPECT_EQ(store.subscriptions().size(), 0);
    EXPECT_EQ(dismissed->size(), 1);
}

TEST_P(EditorTest, BringsTheOpenCalendarIntoSight) {
    open();
    EXPECT_LT(bottom("date"), top("cancel"));
    const qreal before = top("name");
    for (int i = 0; i < 2; ++i) {
        openCalendar();
        EXPECT_LT(top("name"), before);
        EXPECT_LE(bottom("calendar"), top("cancel"));
        EXPECT_GE(top("calendar"), 60);
        stage->click(item("date"));
        stage->settle();
        EXPECT_FALSE(item("calendar").isVisible());
    }
}

TEST_P(EditorTest, SavesOnceByAHeldKey) {
    open({std::nullopt, sampleSubscription()});
    QKeyEvent heldFromBefore(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(&stage->window(), &heldFromBefore);
    EXPECT_EQ(dismissed->size(), 0);
    for (int saved = 1; saved <= 2; ++saved) {
        stage->hold(saved == 1 ? Qt::Key_Return : Qt::Key_Enter);
        EXPECT_EQ(dismissed->size(), saved);
        EXPECT_EQ(store.subscriptions().size(), saved);
    }
}

TEST_P(EditorTest, CutsNoLabelShort) {
    for (const BillingType type : allBillingTypes) {
        Subscription sub = sampleSubscription();
        sub.billingType = type;
        stage.reset();
        open({sub, std::nullopt});
        form->setDateExpanded(true);
        stage->settle();
        const QQuickItem *const cut = stage->itemWith("truncated", true);
        EXPECT_FALSE(cut) << cut->property("text").toString().toStdString();
    }
}

TEST_P(EditorTest, TellsItsControlsToAScreenReader) {
    Subscription sub = sampleSubscription();
    sub.isActive = false;
    open({sub, std::nullopt});
    struct {
        const char *item;
        QAccessible::Role role;
        QString name;
        QString description;
    } const cases[] = {
        {"name", QAccessible::EditableText, pair(u"名称"_s, u"Name"_s), {}},
        {"amount", QAccessible::EditableText, pair(u"金额"_s, u"Amount"_s), {}},
        {"currency", QAccessible::ComboBox, pair(u"币种"_s, u"Currency"_s), u"CNY"_s},
        {"category", QAccessible::ComboBox, pair(u"分类"_s, u"Category"_s),
         pair(u"音乐"_s, u"Music"_s)},
        {"type", QAccessible::Grouping, pair(u"类型"_s, u"Type"_s), {}},
        {"cycle", QAccessible::ComboBox, pair(u"周期"_s, u"Cycle"_s),
         pair(u"每月"_s, u"Monthly"_s)},
        {"date", QAccessible::Button, pair(u"首次扣费"_s, u"First charge"_s), u"2025/03/01"_s},
        {"active", QAccessible::CheckBox, pair(u"仍在使用"_s, u"Still active"_s), {}},
        {"delete", QAccessible::Button, pair(u"删除"_s, u"Delete"_s), {}},
        {"cancel", QAccessible::Button, pair(u"取消"_s, u"Cancel"_s), {}},
        {"save", QAccessible::Button, pair(u"保存"_s, u"Save"_s), {}},
    };
    for (const auto &[name, role, text, description] : cases) {
        const QAccessibleInterface *const seen = Stage::accessible(item(name));
        ASSERT_TRUE(seen) << name;
        EXPECT_EQ(seen->role(), role) << name;
        EXPECT_EQ(seen->text(QAccessible::Name), text) << name;
        EXPECT_EQ(seen->text(QAccessible::Description), description) << name;
    }
    EXPECT_TRUE(Stage::pressByScreenReader(item("active")));
    EXPECT_TRUE(form->isActive());
    EXPECT_TRUE(Stage::pressByScreenReader(item("save")));
    EXPECT_EQ(dismissed->size(), 1);
}

INSTANTIATE_TEST_SUITE_P(, EditorTest, bothLanguages(), languageName);

} // namespace tovarin
