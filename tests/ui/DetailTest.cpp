// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The detail's sheet, handled as a user does.

#include "platform/UserCalendar.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/ui/SheetStage.h"
#include "ui/SubscriptionDetailModel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <deque>

using namespace Qt::Literals::StringLiterals;
using namespace std::string_view_literals;

namespace tovarin {

namespace {

class DetailTest : public LanguageTest {
protected:
    void open(const Subscription &sub) {
        stage.reset();
        detail.emplace(sub, clock, calendar, LocalizationManager::shared(), logos);
        spies.clear();
        using Model = SubscriptionDetailModel;
        for (const auto signal : {&Model::dismissed, &Model::editRequested, &Model::toggleRequested,
                                  &Model::deleteRequested})
            spies.emplace_back(&*detail, signal);
        stage.emplace(u"SubscriptionDetailView"_s,
                      QVariantMap{{u"detail"_s, QVariant::fromValue(&*detail)}});
    }

    /// How often the sheet has asked to close, to edit, to pause or resume, to delete.
    QList<qsizetype> asked() const {
        QList<qsizetype> counts;
        for (const QSignalSpy &spy : spies)
            counts.append(spy.size());
        return counts;
    }

    QQuickItem &item(const char *name) { return stage->item(name); }
    qreal scrolled() { return item("middle").property("contentY").toReal(); }

    /// An entry with more than fits.
    static Subscription wordy() {
        Subscription sub = sampleSubscription();
        for (int line = 1; line <= 60; ++line)
            sub.notes += u"line %1\n"_s.arg(line);
        return sub;
    }

    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    ServiceLogo logos{Bundle(u":/resources"_s)};
    std::optional<SubscriptionDetailModel> detail;
    std::deque<QSignalSpy> spies;
    std::optional<SheetStage> stage;
};

} // namespace

TEST_P(DetailTest, ShowsAnEntry) {
    Subscription sub = sampleSubscription(u"Quillbird"_s);
    sub.notes = u"one\ntwo"_s;
    open(sub);
    EXPECT_EQ(stage->texts(), isZh() ? (QStringList{u"[ 详情 ]"_s,
                                                    u"Q"_s,
                                                    u"Quillbird"_s,
                                                    u"-¥30"_s,
                                                    u"下次扣费 2025/07/01"_s,
                                                    u"编辑"_s,
                                                    u"停用"_s,
                                                    u"复制"_s,
                                                    u"付费方式"_s,
                                                    u"订阅续费"_s,
                                                    u"续费周期"_s,
                                                    u"每月"_s,
                                                    u"折合每月"_s,
                                                    u"¥30"_s,
                                                    u"币种"_s,
                                                    u"CNY"_s,
                                                    u"状态"_s,
                                                    u"使用中"_s,
                                                    u"备注"_s,
                                                    u"one\ntwo"_s,
                                                    u"删除这个订阅"_s})
                                     : (QStringList{u"[ DETAILS ]"_s,
                                                    u"Q"_s,
                                                    u"Quillbird"_s,
                                                    u"-¥30"_s,
                                                    u"Next charge 2025/07/01"_s,
                                                    u"Edit"_s,
                                                    u"Pause"_s,
                                                    u"Copy"_s,
                                                    u"Billing"_s,
                                                    u"Subscription"_s,
                                                    u"Cycle"_s,
                                                    u"Monthly"_s,
                                                    u"Per month"_s,
                                                    u"$4.17"_s,
                                                    u"Currency"_s,
                                                    u"CNY"_s,
                                                    u"Status"_s,
                                                    u"Active"_s,
                                                    u"Notes"_s,
                                                    u"one\ntwo"_s,
                                                    u"Delete subscription"_s}));
    EXPECT_EQ(stage->value("sheet", "label"), pair(u"详情"_s, u"Details"_s));
}

TEST_P(DetailTest, ShowsAPastPurchase) {
    Subscription sub = sampleSubscription(QString());
    sub.billingType = BillingType::oneTime;
    sub.isActive = false;
    open(sub);
    EXPECT_EQ(stage->texts(),
              isZh()
                  ? (QStringList{u"[ 详情 ]"_s, u"•"_s, u"未命名"_s, u"-¥30"_s, u"编辑"_s,
                                 u"启用"_s, u"复制"_s, u"付费方式"_s, u"单次买断"_s, u"币种"_s,
                                 u"CNY"_s, u"状态"_s, u"已停用"_s, u"删除这个订阅"_s})
                  : (QStringList{u"[ DETAILS ]"_s, u"•"_s, u"Untitled"_s, u"-¥30"_s, u"Edit"_s,
                                 u"Resume"_s, u"Copy"_s, u"Billing"_s, u"One-time"_s, u"Currency"_s,
                                 u"CNY"_s, u"Status"_s, u"Paused"_s, u"Delete subscription"_s}));
    EXPECT_FALSE(item("date").isVisible());
    EXPECT_TRUE(item("icon").property("dimmed").toBool());
}

TEST_P(DetailTest, AsksForWhatIsClicked) {
    open(sampleSubscription());
    using Counts = QList<qsizetype>;
    stage->click(item("edit"));
    EXPECT_EQ(asked(), (Counts{0, 1, 0, 0}));
    stage->click(item("toggle"));
    EXPECT_EQ(asked(), (Counts{0, 1, 1, 0}));
    stage->click(item("delete"));
    EXPECT_EQ(asked(), (Counts{0, 1, 1, 1}));
    QGuiApplication::clipboard()->setText(u"old"_s);
    stage->click(item("copy"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              pair(u"Music Plus ¥30 每月"_s, u"Music Plus ¥30 Monthly"_s));
    EXPECT_EQ(asked(), (Counts{0, 1, 1, 1}));
    stage->click(item("close"));
    EXPECT_EQ(asked(), (Counts{1, 1, 1, 1}));
    EXPECT_TRUE(stage->isOpen());
}

TEST_P(DetailTest, IsUsedByTheKeyboard) {
    open(sampleSubscription());
    using Counts = QList<qsizetype>;
    QGuiApplication::clipboard()->setText(u"old"_s);
    struct {
        QString name;
        Counts asked;
    } const places[] = {{u"close"_s, {2, 0, 0, 0}},
                        {u"edit"_s, {2, 2, 0, 0}},
                        {u"toggle"_s, {2, 2, 2, 0}},
                        {u"copy"_s, {2, 2, 2, 0}},
                        {u"delete"_s, {2, 2, 2, 2}}};
    for (const auto &[name, counts] : places) {
        ASSERT_EQ(stage->focused(), name);
        stage->press(Qt::Key_Space);
        stage->press(Qt::Key_Return);
        EXPECT_EQ(asked(), counts) << name.toStdString();
        EXPECT_EQ(QGuiApplication::clipboard()->text() == u"old"_s,
                  name != u"copy"_s && name != u"delete"_s);
        stage->press(Qt::Key_Tab);
    }
    EXPECT_EQ(stage->focused(), u"close"_s);
    stage->press(Qt::Key_Backtab);
    EXPECT_EQ(stage->focused(), u"delete"_s);
    stage->press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !stage->isOpen(); }));
}

TEST_P(DetailTest, FollowsTheRecordUnderTheKeyboard) {
    Subscription sub = sampleSubscription();
    open(sub);
    ASSERT_TRUE(stage->tabTo(u"toggle"_s));
    const QImage active = stage->settle();
    sub.isActive = false;
    detail->setSubscription(sub);
    EXPECT_NE(stage->settle(), active);
    EXPECT_EQ(stage->value("toggle", "title"), pair(u"启用"_s, u"Resume"_s));
    EXPECT_EQ(stage->focused(), u"toggle"_s);
    EXPECT_TRUE(stage->texts().contains(pair(u"已停用"_s, u"Paused"_s)));
    EXPECT_FALSE(item("date").isVisible());
    sub.isActive = true;
    detail->setSubscription(sub);
    EXPECT_EQ(stage->settle(), active);
    EXPECT_EQ(stage->value("toggle", "title"), pair(u"停用"_s, u"Pause"_s));
}

TEST_P(DetailTest, ShowsWhatThePressWouldDo) {
    for (const bool isActive : {true, false}) {
        Subscription sub = sampleSubscription();
        sub.isActive = isActive;
        open(sub);
        const QString symbol = isActive ? u"pause"_s : u"play"_s;
        bool found = false;
        for (const QQuickItem *child : item("toggle").findChildren<QQuickItem *>())
            found |= child->property("name") == symbol && child->isVisible();
        EXPECT_TRUE(found) << symbol.toStdString();
    }
}

TEST_P(DetailTest, FollowsTheLanguage) {
    Subscription sub = sampleSubscription();
    sub.notes = u"n"_s;
    open(sub);
    ASSERT_TRUE(stage->tabTo(u"copy"_s));
    const LanguageScope other(otherLang());
    stage->settle();
    EXPECT_EQ(stage->texts().first(), pair(u"[ DETAILS ]"_s, u"[ 详情 ]"_s));
    EXPECT_EQ(stage->texts().last(), pair(u"Delete subscription"_s, u"删除这个订阅"_s));
    EXPECT_EQ(stage->value("edit", "title"), pair(u"Edit"_s, u"编辑"_s));
    EXPECT_EQ(stage->value("copy", "title"), pair(u"Copy"_s, u"复制"_s));
    EXPECT_EQ(stage->value("close", "title"), pair(u"Close"_s, u"关闭"_s));
    EXPECT_EQ(stage->value("date", "text"),
              pair(u"Next charge 2025/07/01"_s, u"下次扣费 2025/07/01"_s));
    EXPECT_EQ(stage->screen().property("label"), pair(u"Details"_s, u"详情"_s));
    EXPECT_EQ(stage->focused(), u"copy"_s);
}

TEST_P(DetailTest, DrawsTheFigureAsLargeAsItMay) {
    open(sampleSubscription());
    const QFont font = item("amount").property("font").value<QFont>();
    EXPECT_EQ(font.pixelSize(), 40);
    EXPECT_EQ(font.weight(), QFont::Bold);
    EXPECT_EQ(font.family(), u"Poppins Tabular"_s);
    EXPECT_EQ(item("amount").property("color").value<QColor>(), QColor(u"#E8E8E8"_s));
    EXPECT_EQ(item("date").property("color").value<QColor>(), QColor(u"#8A8A8A"_s));
    EXPECT_EQ(item("date").property("font").value<QFont>().pixelSize(), 13);
    EXPECT_EQ(item("date").property("font").value<QFont>().weight(), QFont::Normal);
    const qreal height = item("amount").height();

    Subscription sub = sampleSubscription();
    sub.amount = 123'456'789'012.34;
    open(sub);
    EXPECT_FALSE(item("amount").property("truncated").toBool());
    EXPECT_LE(item("amount").property("paintedWidth").toReal(), item("amount").width());
    EXPECT_EQ(item("amount").property("lineCount"), 1);
    EXPECT_EQ(item("amount").height(), height);

    // Not below the half of it: what is longer yet ends in an ellipsis.
    sub.amount = 1e60;
    open(sub);
    EXPECT_TRUE(item("amount").property("truncated").toBool());
    EXPECT_EQ(item("amount").property("minimumPixelSize"), 20);
    EXPECT_EQ(item("amount").property("lineCount"), 1);
}

TEST_P(DetailTest, CutsNothingShortButLongNames) {
    for (const BillingType type : allBillingTypes) {
        Subscription sub = wordy();
        sub.billingType = type;
        sub.startDate = clock.now();
        open(sub);
        const QQuickItem *const cut = stage->itemWith("truncated", true);
        EXPECT_FALSE(cut) << cut->property("text").toString().toStdString();
    }
    open(sampleSubscription(u"A name that takes two lines, as it says so very much"_s));
    EXPECT_EQ(item("name").property("lineCount"), 2);
    EXPECT_FALSE(item("name").property("truncated").toBool());
    open(sampleSubscription(QString(500, u'长')));
    EXPECT_EQ(item("name").property("lineCount"), 3);
    EXPECT_TRUE(item("name").property("truncated").toBool());
    EXPECT_EQ(Stage::accessible(item("name"))->text(QAccessible::Name), QString(500, u'长'));
}

TEST_P(DetailTest, PutsValuesAtTheRightAndSeveralLinesUnderEachOther) {
    for (const auto &[notes, alignment] :
         {std::pair(u"one line"_s, Qt::AlignRight), std::pair(u"one\ntwo"_s, Qt::AlignLeft),
          std::pair(u"wrapped "_s.repeated(20), Qt::AlignLeft)}) {
        Subscription sub = sampleSubscription();
        sub.notes = notes;
        open(sub);
        const QQuickItem *const value = stage->itemWith("text", notes);
        ASSERT_TRUE(value);
        EXPECT_EQ(value->property("horizontalAlignment").toInt(), int(alignment));
        const QQuickItem *const currency = stage->itemWith("text", u"CNY"_s);
        EXPECT_EQ(currency->property("horizontalAlignment").toInt(), int(Qt::AlignRight));
        EXPECT_EQ(value->mapToScene({value->width(), 0}).x(),
                  currency->mapToScene({currency->width(), 0}).x());
        EXPECT_GE(value->height(), value->property("contentHeight").toReal());
    }
}

TEST_P(DetailTest, IsAsHighAsItHasToBe) {
    open(sampleSubscription());
    EXPECT_EQ(stage->screen().implicitWidth(), 460);
    const qreal height = stage->screen().implicitHeight();
    EXPECT_LT(height, 620);
    // All of it is in sight.
    EXPECT_LE(item("middle").property("contentHeight").toReal(), item("middle").height());
    stage->press(Qt::Key_End);
    EXPECT_EQ(scrolled(), 0);
    Subscription sub = sampleSubscription();
    sub.notes = u"n"_s;
    open(sub);
    EXPECT_GT(stage->screen().implicitHeight(), height);
    open(wordy());
    EXPECT_EQ(stage->screen().implicitHeight(), 620);
}

TEST_P(DetailTest, IsScrolledByKeys) {
    open(wordy());
    const qreal page = item("middle").height();
    const qreal end = item("middle").property("contentHeight").toReal() - page;
    ASSERT_GT(end, page);
    struct {
        Qt::Key key;
        qreal place;
    } const steps[] = {
        {Qt::Key_Up, 0},     {Qt::Key_Down, 48}, {Qt::Key_PageDown, page}, {Qt::Key_PageUp, 48},
        {Qt::Key_PageUp, 0}, {Qt::Key_End, end}, {Qt::Key_Down, end},      {Qt::Key_Up, end - 48},
        {Qt::Key_Home, 0},   {Qt::Key_A, 0},
    };
    for (const auto &[key, place] : steps) {
        stage->press(key);
        EXPECT_NEAR(scrolled(), place, 0.01) << key;
    }
    EXPECT_EQ(stage->focused(), u"close"_s);
    // What the keyboard is at is in sight.
    stage->press(Qt::Key_End);
    stage->press(Qt::Key_Tab);
    ASSERT_EQ(stage->focused(), u"edit"_s);
    EXPECT_LT(scrolled(), end);
    EXPECT_GE(SheetStage::top(item("edit")), SheetStage::top(item("middle")));
    EXPECT_LE(SheetStage::bottom(item("edit")), SheetStage::bottom(item("middle")));
    EXPECT_LE(SheetStage::bottom(item("middle")), SheetStage::top(item("delete")));
}

TEST_P(DetailTest, BearsSmallWindowsAndLongTexts) {
    Subscription sub = wordy();
    sub.name = QString(5000, u'x');
    sub.currency = QString(5000, u'y');
    sub.notes += QString(5000, u'长');
    sub.amount = 1e300;
    open(sub);
    for (const QSize size : {QSize(320, 240), QSize(520, 400), QSize(1600, 1000)}) {
        stage->resize(size);
        EXPECT_LE(SheetStage::bottom(item("delete")), size.height());
        EXPECT_LE(item("name").mapToScene({item("name").width(), 0}).x(), size.width());
    }
    stage->click(item("delete"));
    EXPECT_EQ(asked().last(), 1);
}

TEST_P(DetailTest, TakesNoTextForMarkup) {
    Subscription sub = sampleSubscription(u"<b>bold</b> &amp;"_s);
    sub.notes = u"<img src='x'>"_s;
    sub.currency = u"<i>"_s;
    open(sub);
    for (const QString &text : {sub.name, sub.notes, sub.currency})
        EXPECT_TRUE(stage->texts().contains(text)) << text.toStdString();
    EXPECT_EQ(item("name").property("textFormat").toInt(), int(Qt::PlainText));
}

TEST_P(DetailTest, WarnsByTheLookOfItsButton) {
    open(sampleSubscription());
    QTest::mouseMove(&stage->window(), {1, 1});
    stage->settle();
    const auto *const ground = item("delete").property("background").value<QQuickItem *>();
    QColor tint(u"#F28A2E"_s);
    tint.setAlphaF(0.08F);
    EXPECT_EQ(ground->property("color").value<QColor>(), tint);
    EXPECT_EQ(ground->property("border").value<QObject *>()->property("width"), 1);
    EXPECT_EQ(item("delete").width(), stage->screen().width() - 48);
}

TEST_P(DetailTest, TellsAllOfItToAScreenReader) {
    Subscription sub = sampleSubscription();
    sub.notes = u"one\ntwo"_s;
    open(sub);
    const QStringList english{
        u"Dialog Details"_s,          u"StaticText [ DETAILS ]"_s,
        u"Button Close [press]"_s,    u"StaticText Music Plus"_s,
        u"StaticText -¥30"_s,         u"StaticText Next charge 2025/07/01"_s,
        u"Button Edit [press]"_s,     u"Button Pause [press]"_s,
        u"Button Copy [press]"_s,     u"StaticText Billing"_s,
        u"StaticText Subscription"_s, u"StaticText Cycle"_s,
        u"StaticText Monthly"_s,      u"StaticText Per month"_s,
        u"StaticText $4.17"_s,        u"StaticText Currency"_s,
        u"StaticText CNY"_s,          u"StaticText Status"_s,
        u"StaticText Active"_s,       u"StaticText Notes"_s,
        u"StaticText one\ntwo"_s,     u"Button Delete subscription [press]"_s};
    const QStringList chinese{u"Dialog 详情"_s,         u"StaticText [ 详情 ]"_s,
                              u"Button 关闭 [press]"_s, u"StaticText Music Plus"_s,
                              u"StaticText -¥30"_s,     u"StaticText 下次扣费 2025/07/01"_s,
                              u"Button 编辑 [press]"_s, u"Button 停用 [press]"_s,
                              u"Button 复制 [press]"_s, u"StaticText 付费方式"_s,
                              u"StaticText 订阅续费"_s, u"StaticText 续费周期"_s,
                              u"StaticText 每月"_s,     u"StaticText 折合每月"_s,
                              u"StaticText ¥30"_s,      u"StaticText 币种"_s,
                              u"StaticText CNY"_s,      u"StaticText 状态"_s,
                              u"StaticText 使用中"_s,   u"StaticText 备注"_s,
                              u"StaticText one\ntwo"_s, u"Button 删除这个订阅 [press]"_s};
    EXPECT_EQ(stage->told(), isZh() ? chinese : english);
    for (const char *button : {"close", "edit", "toggle", "copy", "delete"}) {
        QGuiApplication::clipboard()->setText(u"old"_s);
        EXPECT_TRUE(Stage::pressByScreenReader(item(button))) << button;
        EXPECT_EQ(QGuiApplication::clipboard()->text() != u"old"_s, button == "copy"sv);
    }
    EXPECT_EQ(asked(), (QList<qsizetype>{1, 1, 1, 1}));
}

INSTANTIATE_TEST_SUITE_P(, DetailTest, bothLanguages(), languageName);

} // namespace tovarin
