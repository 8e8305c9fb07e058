// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/Printing.h"
#include "tests/ui/QuickPickModelTest.h"

#include <QAbstractItemModelTester>

#include <array>
#include <cstring>
#include <limits>
#include <string_view>
#include <sys/inotify.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// How often another file has taken this name in a folder.
class Replacements {
public:
    explicit Replacements(const QString &folder) : m_watch(inotify_init1(IN_NONBLOCK)) {
        if (inotify_add_watch(m_watch, qPrintable(folder), IN_MOVED_TO) < 0)
            qFatal("%s cannot be watched", qPrintable(folder));
    }
    ~Replacements() { close(m_watch); }
    Replacements(const Replacements &) = delete;
    Replacements &operator=(const Replacements &) = delete;

    int of(const char *name) const {
        int count = 0;
        alignas(inotify_event) std::array<char, 4096> buffer{};
        ssize_t size = 0;
        while ((size = read(m_watch, buffer.data(), buffer.size())) > 0) {
            for (const char *at = buffer.data(); at < buffer.data() + size;) {
                inotify_event event{};
                std::memcpy(&event, at, sizeof event);
                count += std::string_view(at + sizeof event) == name ? 1 : 0;
                at += sizeof event + event.len;
            }
        }
        return count;
    }

private:
    int m_watch;
};

QStringList rowNames(const QuickPickModel &pick) {
    QStringList names;
    for (const ConfirmItem &item : pick.confirmRows())
        names.append(item.subscription.name);
    return names;
}

} // namespace

TEST_P(QuickPickModelTest, MakesTheRowsInTheOrderOfTheCatalog) {
    QAbstractItemModelTester tester(pick.rows(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    QSignalSpy steps(&pick, &QuickPickModel::stepChanged);
    pick.setRegion(ServiceRegion::global);
    for (const QString &id : {u"nordvpn"_s, u"netflix"_s, u"icloud"_s})
        pick.toggle(preset(id));
    for (const QString &id : {u"notion-cn"_s, u"m365-cn"_s, u"iqiyi"_s})
        pick.toggle(preset(id));
    pick.chooseTier(cellOf(u"icloud"_s), 1);
    pick.goConfirm();
    EXPECT_EQ(pick.step(), 2);
    EXPECT_EQ(steps.size(), 1);
    EXPECT_TRUE(pick.canSave());
    EXPECT_EQ(rowNames(pick),
              (QStringList{pair(u"爱奇艺 VIP"_s, u"iQIYI VIP"_s), u"Microsoft 365"_s,
                           u"Notion · Plus"_s, u"Netflix"_s, u"iCloud+ · 200GB"_s, u"NordVPN"_s}));
    EXPECT_EQ(pick.rows()->roleNames().size(), 6);
    EXPECT_EQ(pick.count(), 6);
    EXPECT_EQ(row(0, QuickPickRows::LogoIDRole), QString());
    EXPECT_EQ(row(0, QuickPickRows::IconRole), u"play.rectangle"_s);
    EXPECT_EQ(row(1, QuickPickRows::NameRole), u"Microsoft 365"_s);
    EXPECT_EQ(row(1, QuickPickRows::LogoIDRole), u"m365-cn"_s);
    EXPECT_EQ(row(1, QuickPickRows::AmountRole), 398);
    EXPECT_EQ(row(1, QuickPickRows::CycleLabelRole), pair(u"每年"_s, u"Yearly"_s));
    EXPECT_EQ(row(1, QuickPickRows::LacksAmountRole), false);
    EXPECT_EQ(row(4, QuickPickRows::AmountRole), 2.99);
    EXPECT_EQ(row(4, QuickPickRows::CycleLabelRole), pair(u"每月"_s, u"Monthly"_s));
}

TEST_P(QuickPickModelTest, MakesWholeSubscriptions) {
    pick.toggle(preset(u"cursor"_s));
    pick.goConfirm();
    ASSERT_EQ(pick.confirmRows().size(), 1);
    const auto &[from, sub] = pick.confirmRows().first();
    EXPECT_EQ(from, preset(u"cursor"_s));
    EXPECT_FALSE(sub.id.isNull());
    EXPECT_EQ(sub, (Subscription{.id = sub.id,
                                 .name = u"Cursor · Pro"_s,
                                 .amount = 20,
                                 .currency = u"USD"_s,
                                 .billingType = BillingType::recurring,
                                 .cycle = BillingCycle::monthly,
                                 .startDate = clock.now(),
                                 .category = u"AI/工具"_s,
                                 .notes = pair(u"快速添加"_s, u"Quick pick"_s),
                                 .isActive = true,
                                 .serviceID = u"cursor"_s}));
}

TEST_P(QuickPickModelTest, MakesTheRowsAnewEachTime) {
    QSignalSpy steps(&pick, &QuickPickModel::stepChanged);
    pick.toggle(preset(u"iqiyi"_s));
    pick.goConfirm();
    const QUuid first = pick.confirmRows().first().subscription.id;
    pick.setAmount(0, 99);
    pick.back();
    EXPECT_EQ(pick.step(), 1);
    EXPECT_EQ(steps.size(), 2);
    EXPECT_TRUE(pick.selected().contains(u"iqiyi"_s));
    EXPECT_EQ(dismissed.size(), 0);
    clock.set(instant("2025-06-10T20:00:00Z"));
    pick.toggle(preset(u"netflix"_s));
    pick.goConfirm();
    ASSERT_EQ(pick.confirmRows().size(), 2);
    const Subscription &again = pick.confirmRows().first().subscription;
    EXPECT_NE(again.id, first);
    EXPECT_EQ(again.amount, 30);
    EXPECT_EQ(again.startDate, instant("2025-06-10T20:00:00Z"));
}

TEST_P(QuickPickModelTest, AsksForAnAmountUntilItIsAboveZero) {
    pick.toggleCell(cellOf(u"chatgpt-cn"_s));
    pick.chooseTier(cellOf(u"chatgpt-cn"_s), 2);
    pick.goConfirm();
    EXPECT_EQ(rowNames(pick), QStringList{pair(u"ChatGPT · 其他"_s, u"ChatGPT · Other"_s)});
    QSignalSpy changes(pick.rows(), &QuickPickRows::dataChanged);
    struct {
        double amount;
        bool lacks;
    } const cases[] = {{0, true}, {-1, true}, {0.01, false}, {-0.0, true}, {25, false}};
    for (const auto &[amount, lacks] : cases) {
        pick.setAmount(0, amount);
        EXPECT_EQ(row(0, QuickPickRows::AmountRole), amount);
        EXPECT_EQ(row(0, QuickPickRows::LacksAmountRole), lacks) << amount;
    }
    // The first one was no change.
    EXPECT_EQ(changes.size(), 4);
    EXPECT_EQ(changes[0][2].value<QList<int>>(),
              (QList<int>{QuickPickRows::AmountRole, QuickPickRows::LacksAmountRole}));
}

TEST_P(QuickPickModelTest, AddsTheRowsAtTheEndAndWritesTheFileOnce) {
    addToStore(u"Music Plus"_s);
    const Replacements written(folder.path() + u"/Tovarin"_s);
    QSignalSpy changes(&store, &Store::subscriptionsDidChange);
    int storedAtCompletion = 0;
    bool doneAtCompletion = false;
    QuickPickModel watched(store, clock, LocalizationManager::shared(), logos, defaults, [&] {
        storedAtCompletion = static_cast<int>(store.subscriptions().size());
        doneAtCompletion = defaults.values() == done;
    });
    QSignalSpy closed(&watched, &QuickPickModel::dismissed);
    watched.toggle(preset(u"iqiyi"_s));
    watched.toggle(preset(u"netflix"_s));
    watched.goConfirm();
    watched.setAmount(1, 9.5);
    watched.saveAll();
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(written.of("subscriptions.json"), 1);
    EXPECT_EQ(storedNames(),
              (QStringList{u"Music Plus"_s, pair(u"爱奇艺 VIP"_s, u"iQIYI VIP"_s), u"Netflix"_s}));
    EXPECT_EQ(store.subscriptions()[1], watched.confirmRows()[0].subscription);
    EXPECT_EQ(store.subscriptions()[2], watched.confirmRows()[1].subscription);
    EXPECT_EQ(store.subscriptions()[2].amount, 9.5);
    EXPECT_EQ(Store(folder.path(), clock, calendar).subscriptions(), store.subscriptions());
    EXPECT_EQ(storedAtCompletion, 3);
    EXPECT_TRUE(doneAtCompletion);
    EXPECT_EQ(defaults.values(), done);
    EXPECT_EQ(closed.size(), 1);
}

TEST_P(QuickPickModelTest, BeginsAtTheMomentOfConfirmingInAnyZone) {
    for (const char *zone : {"Pacific/Kiritimati", "America/Sao_Paulo", "Pacific/Pago_Pago"}) {
        calendar = calendarIn(zone);
        pick.toggle(preset(u"iqiyi"_s));
        pick.goConfirm();
        EXPECT_EQ(pick.confirmRows().first().subscription.startDate,
                  instant("2025-06-09T20:00:00Z"))
            << zone;
        pick.toggle(preset(u"iqiyi"_s));
    }
    calendar = calendarIn("Pacific/Kiritimati");
    pick.toggle(preset(u"iqiyi"_s));
    pick.goConfirm();
    pick.saveAll();
    // There it is the tenth already.
    EXPECT_EQ(calendar.day(store.subscriptions().first().startDate), civilDay("2025-06-10"));
    EXPECT_EQ(store.subscriptions().first().daysUntilNextCharge(clock.now(), calendar), 0);
}

TEST_P(QuickPickModelTest, AddsNamesakesOfTheBatch) {
    pick.toggle(preset(u"chatgpt"_s));
    pick.toggle(preset(u"chatgpt-cn"_s));
    pick.goConfirm();
    pick.saveAll();
    EXPECT_EQ(storedNames(), (QStringList{u"ChatGPT · Go"_s, u"ChatGPT · Go"_s}));
    EXPECT_EQ(store.subscriptions()[0].serviceID, u"chatgpt-cn"_s);
    EXPECT_EQ(store.subscriptions()[1].serviceID, u"chatgpt"_s);
    EXPECT_EQ(completions, 1);
}

TEST_P(QuickPickModelTest, LeavesOutWhatLacksItsAmount) {
    pick.toggle(preset(u"iqiyi"_s));
    pick.toggle(preset(u"netflix"_s));
    pick.toggle(preset(u"spotify"_s));
    pick.goConfirm();
    pick.setAmount(0, 0);
    pick.setAmount(1, -5);
    pick.saveAll();
    EXPECT_EQ(storedNames(), QStringList{u"Spotify Premium"_s});
    EXPECT_EQ(completions, 1);
}

TEST_P(QuickPickModelTest, ClosesWithoutAWordWhereNothingIsLeft) {
    pick.toggleCell(cellOf(u"chatgpt-cn"_s));
    pick.chooseTier(cellOf(u"chatgpt-cn"_s), 2);
    pick.goConfirm();
    QSignalSpy changes(&store, &Store::subscriptionsDidChange);
    const Replacements written(folder.path() + u"/Tovarin"_s);
    pick.saveAll();
    EXPECT_EQ(changes.size(), 0);
    EXPECT_EQ(written.of("subscriptions.json"), 0);
    EXPECT_TRUE(store.subscriptions().isEmpty());
    EXPECT_EQ(defaults.values(), done);
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(dismissed.size(), 1);
}

TEST_P(QuickPickModelTest, AddsNoNamesakeOfAStoredEntry) {
    pick.toggle(preset(u"netflix"_s));
    pick.toggle(preset(u"icloud"_s));
    pick.goConfirm();
    addToStore(u"NETFLIX"_s);
    addToStore(u"iCloud+ · 2TB"_s);
    pick.saveAll();
    EXPECT_EQ(storedNames(), (QStringList{u"NETFLIX"_s, u"iCloud+ · 2TB"_s, u"iCloud+ · 50GB"_s}));
}

TEST_P(QuickPickModelTest, ChoosesWhatCanBeAdded) {
    const auto named = [](const QString &name, double amount = 5) {
        Subscription sub = sampleSubscription(name);
        sub.amount = amount;
        return sub;
    };
    const QList<Subscription> stored{named(u"Straße"_s), named(u" padded "_s), named(u"zero"_s, 0)};
    struct {
        Subscription row;
        bool isLeft;
    } const cases[] = {
        {named(u"new"_s), true},
        {named(u"new"_s, 0.001), true},
        {named(u"new"_s, 0), false},
        {named(u"new"_s, -1), false},
        {named(u"new"_s, std::numeric_limits<double>::quiet_NaN()), false},
        {named(QString()), false},
        {named(u" \t\u00A0\u3000"_s), false},
        {named(u"\n"_s), true},
        {named(u"STRAßE"_s), false},
        {named(u"strasse"_s), true},
        {named(u"padded"_s), true},
        {named(u" PADDED "_s), false},
        {named(u"Zero"_s), false},
    };
    for (const auto &[sub, isLeft] : cases)
        EXPECT_EQ(QuickPickModel::addable({sub}, stored).size(), isLeft ? 1 : 0)
            << sub.name.toStdString() << ' ' << sub.amount;
    const QList<Subscription> twins{named(u"twin"_s), named(u"a"_s), named(u"TWIN"_s)};
    EXPECT_EQ(QuickPickModel::addable(twins, stored), twins);
    EXPECT_EQ(QuickPickModel::addable({}, stored), QList<Subscription>());
}

} // namespace tovarin
