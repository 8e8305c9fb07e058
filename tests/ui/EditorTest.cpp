// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/ui/EditorTest.h"

#include "tests/support/Printing.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

void EditorTest::open(SubscriptionEditModel::Source source) {
    form.emplace(std::move(source), store, clock, calendar, months, LocalizationManager::shared());
    dismissed.emplace(&*form, &SubscriptionEditModel::dismissed);
    stage.emplace(u"SubscriptionEditView"_s, QVariantMap{{u"edit"_s, QVariant::fromValue(&*form)}});
    stage->screen().setFocus(true);
    stage->settle();
}

void EditorTest::openCalendar() {
    stage->click(item("date"));
    ASSERT_TRUE(item("calendar").isVisible());
    ASSERT_TRUE(QTest::qWaitFor([this] {
        stage->settle();
        return SheetStage::bottom(item("calendar")) <= SheetStage::top(item("cancel"));
    }));
}

QQuickItem &EditorTest::cell(const QString &fullDate) {
    QQuickItem *const found = stage->itemWith("fullDate", fullDate);
    if (!found)
        qFatal("there is no %s", qPrintable(fullDate));
    return *found;
}

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
    ASSERT_TRUE(stage->tabTo(u"notes"_s));
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
    EXPECT_LE(SheetStage::bottom(item("notes")) + 14, SheetStage::top(item("cancel")) - 16);
}

TEST_P(EditorTest, ClosesByEscapeAndByCancel) {
    const Subscription sub = sampleSubscription();
    store.add(sub);
    open({sub, std::nullopt});
    stage->type(u"x"_s);
    stage->click(item("cancel"));
    EXPECT_EQ(dismissed->size(), 1);
    stage->press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !stage->isOpen(); }));
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
    for (const QSize size : {QSize(320, 240), QSize(520, 400), QSize(1600, 1000)})
        stage->resize(size);
    stage->click(item("save"));
    EXPECT_EQ(store.subscriptions().size(), 0);
    EXPECT_EQ(dismissed->size(), 1);
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
