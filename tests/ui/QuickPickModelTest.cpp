// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/QuickPickModel.h"

#include "catalog/ServiceCatalog.h"
#include "model/Store.h"
#include "platform/UserCalendar.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryDefaults.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <string_view>
#include <sys/inotify.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const ServicePreset &preset(const QString &id) {
    const ServicePreset *const found = ServiceCatalog::preset(id);
    if (!found)
        qFatal("there is no %s", qPrintable(id));
    return *found;
}

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

class QuickPickModelTest : public LanguageTest {
protected:
    void addToStore(const QString &name) { store.add(sampleSubscription(name)); }

    /// Where the service stands in the list that is shown.
    int cellOf(const QString &id) const {
        const QList<QuickPickCells::Cell> &cells = pick.cells()->cells();
        const auto found = std::ranges::find(cells, id, &QuickPickCells::Cell::presetID);
        if (found == cells.end())
            qFatal("%s is not shown", qPrintable(id));
        return static_cast<int>(found - cells.begin());
    }
    const QuickPickCells::Cell &cell(const QString &id) const {
        return pick.cells()->cells()[cellOf(id)];
    }
    QString price(const QString &id) const { return pick.cardPriceLabel(preset(id)); }
    QVariant row(int row, int role) const { return pick.rows()->index(row).data(role); }

    QStringList rowNames() const {
        QStringList names;
        for (const ConfirmItem &item : pick.confirmRows())
            names.append(item.subscription.name);
        return names;
    }
    QStringList storedNames() const {
        QStringList names;
        for (const Subscription &sub : store.subscriptions())
            names.append(sub.name);
        return names;
    }

    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Pacific/Kiritimati");
    Store store{folder.path(), clock, calendar};
    Bundle bundle{u":/resources"_s};
    ServiceLogo logos{bundle};
    MemoryDefaults defaults;
    int completions = 0;
    mutable QuickPickModel pick{store, clock,    LocalizationManager::shared(),
                                logos, defaults, [this] { ++completions; }};
    QSignalSpy dismissed{&pick, &QuickPickModel::dismissed};
    const QMap<QString, QString> done{{u"didCompleteQuickPick"_s, u"true"_s}};
};

} // namespace

TEST_P(QuickPickModelTest, BeginsInChinaWithNothingTicked) {
    EXPECT_EQ(pick.step(), 1);
    EXPECT_EQ(pick.region(), ServiceRegion::china);
    EXPECT_EQ(pick.regionIndex(), 0);
    EXPECT_TRUE(pick.selected().isEmpty());
    EXPECT_TRUE(pick.confirmRows().isEmpty());
    EXPECT_FALSE(pick.canConfirm());
    EXPECT_FALSE(pick.canSave());
    EXPECT_EQ(pick.regionNames(), isZh() ? (QStringList{u"国内常用"_s, u"国际常用"_s})
                                         : (QStringList{u"China"_s, u"Global"_s}));
    EXPECT_TRUE(defaults.values().isEmpty());
}

TEST_P(QuickPickModelTest, ShowsAllServicesOfARegionInOrder) {
    QAbstractItemModelTester tester(pick.cells(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (const ServiceRegion region : allServiceRegions) {
        pick.setRegion(region);
        const QList<ServicePreset> &presets = ServiceCatalog::presets(region);
        ASSERT_EQ(pick.cells()->rowCount(), presets.size());
        for (int i = 0; i < pick.cells()->rowCount(); ++i) {
            const QModelIndex at = pick.cells()->index(i);
            const ServicePreset &shown = presets[i];
            EXPECT_EQ(at.data(QuickPickCells::NameRole), pair(shown.nameZh, shown.nameEn));
            EXPECT_EQ(at.data(QuickPickCells::PriceLabelRole), pick.cardPriceLabel(shown));
            EXPECT_EQ(at.data(QuickPickCells::IconRole), shown.icon);
            EXPECT_EQ(at.data(QuickPickCells::LogoIDRole),
                      logos.image(shown.id).isNull() ? QString() : shown.id);
            EXPECT_EQ(at.data(QuickPickCells::IsTickedRole), false);
            EXPECT_EQ(at.data(QuickPickCells::IsInStoreRole), false);
            EXPECT_EQ(at.data(QuickPickCells::CanBePickedRole), true);
            EXPECT_EQ(at.data(QuickPickCells::TierIndexRole), shown.tiers ? 0 : -1);
        }
    }
    EXPECT_EQ(cell(u"netflix"_s).logoID, u"netflix"_s);
}

TEST_P(QuickPickModelTest, ChangesTheRegionAndKeepsTheTicks) {
    QSignalSpy regions(&pick, &QuickPickModel::regionChanged);
    pick.toggleCell(cellOf(u"iqiyi"_s));
    pick.chooseRegion(1);
    EXPECT_EQ(pick.region(), ServiceRegion::global);
    EXPECT_EQ(pick.regionIndex(), 1);
    EXPECT_EQ(pick.cells()->rowCount(), 21);
    for (const int none : {-1, 2})
        pick.chooseRegion(none);
    pick.chooseRegion(1);
    EXPECT_EQ(regions.size(), 1);
    pick.chooseRegion(0);
    EXPECT_EQ(pick.cells()->rowCount(), 20);
    EXPECT_TRUE(cell(u"iqiyi"_s).isTicked);
}

TEST_P(QuickPickModelTest, TicksAtTheFirstTierAndTakesTheTickAway) {
    QSignalSpy selections(&pick, &QuickPickModel::selectedChanged);
    pick.toggle(preset(u"iqiyi"_s));
    pick.toggle(preset(u"chatgpt"_s));
    EXPECT_EQ(selections.size(), 2);
    EXPECT_TRUE(pick.canConfirm());
    ASSERT_EQ(pick.selected().size(), 2);
    EXPECT_EQ(pick.selected()[u"iqiyi"_s].preset, preset(u"iqiyi"_s));
    EXPECT_EQ(pick.selected()[u"iqiyi"_s].tierID, std::nullopt);
    EXPECT_EQ(pick.selected()[u"chatgpt"_s].preset, preset(u"chatgpt"_s));
    EXPECT_EQ(pick.selected()[u"chatgpt"_s].tierID, u"go"_s);
    pick.toggle(preset(u"iqiyi"_s));
    EXPECT_EQ(pick.selected().keys(), QStringList{u"chatgpt"_s});
    pick.toggle(preset(u"chatgpt"_s));
    EXPECT_FALSE(pick.canConfirm());
    EXPECT_EQ(selections.size(), 4);
}

TEST_P(QuickPickModelTest, ForgetsTheTierWithTheTick) {
    pick.toggleCell(cellOf(u"icloud-cn"_s));
    pick.chooseTier(cellOf(u"icloud-cn"_s), 2);
    EXPECT_EQ(pick.selected()[u"icloud-cn"_s].tierID, u"2tb"_s);
    pick.toggleCell(cellOf(u"icloud-cn"_s));
    EXPECT_EQ(cell(u"icloud-cn"_s).tierIndex, 0);
    pick.toggleCell(cellOf(u"icloud-cn"_s));
    EXPECT_EQ(pick.selected()[u"icloud-cn"_s].tierID, u"50"_s);
}

TEST_P(QuickPickModelTest, DoesNothingForWhatIsNotThere) {
    for (const int none : {-1, 20, 1000}) {
        pick.toggleCell(none);
        pick.chooseTier(none, 0);
        pick.setAmount(none, 5);
    }
    EXPECT_TRUE(pick.selected().isEmpty());
    QSignalSpy selections(&pick, &QuickPickModel::selectedChanged);
    pick.chooseTier(cellOf(u"icloud-cn"_s), 1); // It is not ticked.
    pick.toggleCell(cellOf(u"icloud-cn"_s));
    for (const int none : {-1, 3})
        pick.chooseTier(cellOf(u"icloud-cn"_s), none);
    EXPECT_EQ(pick.selected()[u"icloud-cn"_s].tierID, u"50"_s);
    pick.toggleCell(cellOf(u"iqiyi"_s));
    pick.chooseTier(cellOf(u"iqiyi"_s), 0); // It has none.
    EXPECT_EQ(pick.selected()[u"iqiyi"_s].tierID, std::nullopt);
    EXPECT_EQ(selections.size(), 2);
}

TEST_P(QuickPickModelTest, FindsTheTierOfAPickedService) {
    const ServicePreset &tiered = preset(u"cursor"_s);
    const QList<ServiceTier> tiers = *tiered.tiers;
    EXPECT_EQ((PickedService{tiered, u"ultra"_s}).tier(tiered), tiers[1]);
    EXPECT_EQ((PickedService{tiered, u"custom"_s}).tier(tiered), tiers[2]);
    EXPECT_EQ((PickedService{tiered, u"ULTRA"_s}).tier(tiered), tiers[0]);
    EXPECT_EQ((PickedService{tiered, u""_s}).tier(tiered), tiers[0]);
    EXPECT_EQ((PickedService{tiered, std::nullopt}).tier(tiered), tiers[0]);
    ServicePreset other = tiered;
    other.tiers.reset();
    EXPECT_EQ((PickedService{other, u"ultra"_s}).tier(other), std::nullopt);
    other.tiers = QList<ServiceTier>();
    EXPECT_EQ((PickedService{other, u"ultra"_s}).tier(other), std::nullopt);
}

TEST_P(QuickPickModelTest, SaysWhatAServiceCosts) {
    struct {
        QString id;
        QString zh;
        QString en;
    } const cases[] = {
        {u"iqiyi"_s, u"¥30/月"_s, u"¥30/mo"_s},
        {u"m365-cn"_s, u"¥398/年"_s, u"¥398/yr"_s},
        {u"netflix"_s, u"$15.49/月"_s, u"$15.49/mo"_s},
        {u"icloud-cn"_s, u"¥6 起/月"_s, u"From ¥6/mo"_s},
        {u"icloud"_s, u"$0.99 起/月"_s, u"From $0.99/mo"_s},
        {u"chatgpt"_s, u"$8 起/月"_s, u"From $8/mo"_s},
        {u"notion-cn"_s, u"$10 起/月"_s, u"From $10/mo"_s},
    };
    for (const auto &[id, zh, en] : cases)
        EXPECT_EQ(price(id), pair(zh, en)) << id.toStdString();
}

TEST_P(QuickPickModelTest, SaysWhatTheChosenTierCosts) {
    const int at = cellOf(u"chatgpt-cn"_s);
    pick.toggleCell(at);
    EXPECT_EQ(price(u"chatgpt-cn"_s), pair(u"$8/月"_s, u"$8/mo"_s));
    pick.chooseTier(at, 1);
    EXPECT_EQ(price(u"chatgpt-cn"_s), pair(u"$20/月"_s, u"$20/mo"_s));
    EXPECT_EQ(cell(u"chatgpt-cn"_s).priceLabel, pair(u"$20/月"_s, u"$20/mo"_s));
    pick.chooseTier(at, 2);
    EXPECT_EQ(price(u"chatgpt-cn"_s), pair(u"金额自定"_s, u"Custom price"_s));
    EXPECT_EQ(cell(u"chatgpt-cn"_s).tierIndex, 2);
    pick.toggleCell(at);
    EXPECT_EQ(price(u"chatgpt-cn"_s), pair(u"$8 起/月"_s, u"From $8/mo"_s));
}

TEST_P(QuickPickModelTest, SaysWhatOtherPresetsWouldCost) {
    ServicePreset made = preset(u"netflix"_s);
    made.id = u"made"_s;
    for (const BillingCycle cycle :
         {BillingCycle::weekly, BillingCycle::quarterly, BillingCycle::yearly}) {
        made.cycle = cycle;
        EXPECT_EQ(pick.cardPriceLabel(made), pair(u"$15.49/年"_s, u"$15.49/yr"_s));
    }
    made.amount = 0;
    EXPECT_EQ(pick.cardPriceLabel(made), pair(u"$0/年"_s, u"$0/yr"_s));
    made.amount = 7;
    made.tiers = QList<ServiceTier>();
    EXPECT_EQ(pick.cardPriceLabel(made), pair(u"$7/年"_s, u"$7/yr"_s));
    made.tiers = {{{.id = u"one"_s, .labelZh = u"一"_s, .labelEn = u"One"_s, .amount = 5}}};
    EXPECT_EQ(pick.cardPriceLabel(made), pair(u"$5/年"_s, u"$5/yr"_s));
    made.tiers->append({.id = u"two"_s, .labelZh = u"二"_s, .labelEn = u"Two"_s, .amount = 6});
    EXPECT_EQ(pick.cardPriceLabel(made), pair(u"$5 起/年"_s, u"From $5/yr"_s));
    for (const double nothing : {0.0, -1.0}) {
        made.tiers->first().amount = nothing;
        EXPECT_EQ(pick.cardPriceLabel(made), pair(u"金额自定"_s, u"Custom price"_s));
    }
}

TEST_P(QuickPickModelTest, NamesTheTiers) {
    EXPECT_EQ(cell(u"icloud-cn"_s).tierLabels,
              (QStringList{u"50GB · ¥6"_s, u"200GB · ¥21"_s, u"2TB · ¥68"_s}));
    EXPECT_EQ(cell(u"notion-cn"_s).tierLabels,
              (QStringList{u"Plus · $10"_s, u"Business · $20"_s,
                           pair(u"其他 · 自定"_s, u"Other · custom"_s)}));
    EXPECT_EQ(cell(u"iqiyi"_s).tierLabels, QStringList());
    const ServiceTier tier{
        .id = u"t"_s, .labelZh = u"学生"_s, .labelEn = u"Student"_s, .amount = 0.5};
    EXPECT_EQ(pick.tierPickerLabel(tier, preset(u"iqiyi"_s)),
              pair(u"学生 · ¥0.50"_s, u"Student · ¥0.50"_s));
    ServiceTier free = tier;
    free.amount = -1;
    EXPECT_EQ(pick.tierPickerLabel(free, preset(u"iqiyi"_s)),
              pair(u"其他 · 自定"_s, u"Other · custom"_s));
}

TEST_P(QuickPickModelTest, KnowsWhatIsInTheStore) {
    pick.setRegion(ServiceRegion::global);
    addToStore(u"my NETFLIX, shared"_s);
    EXPECT_TRUE(cell(u"netflix"_s).isInStore);
    EXPECT_FALSE(cell(u"netflix"_s).canBePicked());
    pick.toggleCell(cellOf(u"netflix"_s));
    EXPECT_TRUE(pick.selected().isEmpty());
    // Coarse, and meant so.
    addToStore(u"Climax Club"_s);
    EXPECT_TRUE(cell(u"max"_s).isInStore);
    // A part of the name is not the name.
    addToStore(u"Spotify"_s);
    EXPECT_FALSE(cell(u"spotify"_s).isInStore);
    addToStore(QString());
    EXPECT_FALSE(cell(u"spotify"_s).isInStore);
    // The displayed name counts alone.
    pick.setRegion(ServiceRegion::china);
    addToStore(u"爱奇艺 vip 家庭"_s);
    EXPECT_EQ(cell(u"iqiyi"_s).isInStore, isZh());
    addToStore(u"QQ music vip"_s);
    EXPECT_EQ(cell(u"qq-music"_s).isInStore, !isZh());
}

TEST_P(QuickPickModelTest, DoesNotKnowAServiceByItsIDAlone) {
    Subscription renamed = sampleSubscription(u"Films"_s);
    renamed.serviceID = u"netflix"_s;
    store.add(renamed);
    pick.setRegion(ServiceRegion::global);
    EXPECT_FALSE(cell(u"netflix"_s).isInStore);
}

TEST_P(QuickPickModelTest, FollowsTheStore) {
    pick.setRegion(ServiceRegion::global);
    pick.toggleCell(cellOf(u"netflix"_s));
    QSignalSpy changes(pick.cells(), &QuickPickCells::dataChanged);
    QSignalSpy resets(pick.cells(), &QuickPickCells::modelReset);
    addToStore(u"Netflix"_s);
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), cellOf(u"netflix"_s));
    EXPECT_EQ(changes[0][2].value<QList<int>>(), QList<int>{QuickPickCells::IsInStoreRole});
    // What is ticked can be unticked, but not ticked again.
    EXPECT_TRUE(cell(u"netflix"_s).canBePicked());
    pick.toggleCell(cellOf(u"netflix"_s));
    EXPECT_FALSE(cell(u"netflix"_s).isTicked);
    EXPECT_FALSE(cell(u"netflix"_s).canBePicked());
    pick.toggleCell(cellOf(u"netflix"_s));
    EXPECT_FALSE(cell(u"netflix"_s).isTicked);
    store.deleteSubscription(store.subscriptions().first());
    EXPECT_TRUE(cell(u"netflix"_s).canBePicked());
    EXPECT_EQ(resets.size(), 0);
}

TEST_P(QuickPickModelTest, FollowsTheLanguage) {
    addToStore(u"腾讯视频 VIP"_s);
    pick.toggleCell(cellOf(u"icloud-cn"_s));
    pick.toggleCell(cellOf(u"notion-cn"_s));
    pick.chooseTier(cellOf(u"notion-cn"_s), 2);
    pick.goConfirm();
    QSignalSpy texts(&pick, &QuickPickModel::languageChanged);
    QSignalSpy resets(pick.cells(), &QuickPickCells::modelReset);
    QSignalSpy cycles(pick.rows(), &QuickPickRows::dataChanged);
    const LanguageScope other(otherLang());
    EXPECT_EQ(texts.size(), 1);
    EXPECT_EQ(resets.size(), 0);
    EXPECT_EQ(pick.regionNames(), isZh() ? (QStringList{u"China"_s, u"Global"_s})
                                         : (QStringList{u"国内常用"_s, u"国际常用"_s}));
    EXPECT_EQ(cell(u"iqiyi"_s).name, pair(u"iQIYI VIP"_s, u"爱奇艺 VIP"_s));
    EXPECT_EQ(cell(u"iqiyi"_s).priceLabel, pair(u"¥30/mo"_s, u"¥30/月"_s));
    EXPECT_EQ(cell(u"tencent-video"_s).isInStore, !isZh());
    EXPECT_EQ(cell(u"notion-cn"_s).tierLabels.last(), pair(u"Other · custom"_s, u"其他 · 自定"_s));
    EXPECT_EQ(cell(u"notion-cn"_s).tierIndex, 2);
    ASSERT_EQ(cycles.size(), 1);
    EXPECT_EQ(row(0, QuickPickRows::CycleLabelRole), pair(u"Monthly"_s, u"每月"_s));
    // What will be stored stays.
    EXPECT_EQ(row(1, QuickPickRows::NameRole), pair(u"Notion · 其他"_s, u"Notion · Other"_s));
}

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
    EXPECT_EQ(rowNames(),
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
    EXPECT_EQ(rowNames(), QStringList{pair(u"ChatGPT · 其他"_s, u"ChatGPT · Other"_s)});
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

TEST_P(QuickPickModelTest, TellsTheOpenerThatItIsDone) {
    pick.toggle(preset(u"iqiyi"_s));
    pick.goConfirm();
    pick.saveAll();
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(dismissed.size(), 1);
}

TEST_P(QuickPickModelTest, NeedsNobodyToTell) {
    QuickPickModel alone(store, clock, LocalizationManager::shared(), logos, defaults, nullptr);
    QSignalSpy closed(&alone, &QuickPickModel::dismissed);
    alone.toggle(preset(u"iqiyi"_s));
    alone.goConfirm();
    alone.saveAll();
    EXPECT_EQ(closed.size(), 1);
    EXPECT_EQ(store.subscriptions().size(), 1);
    EXPECT_EQ(defaults.values(), done);
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

TEST_P(QuickPickModelTest, SkipsWithoutAddingAnything) {
    for (const bool inStepTwo : {false, true}) {
        MemoryDefaults fresh;
        QuickPickModel skipped(store, clock, LocalizationManager::shared(), logos, fresh,
                               [this] { ++completions; });
        QSignalSpy closed(&skipped, &QuickPickModel::dismissed);
        skipped.toggle(preset(u"iqiyi"_s));
        if (inStepTwo)
            skipped.goConfirm();
        skipped.skip();
        EXPECT_EQ(fresh.values(), done);
        EXPECT_EQ(closed.size(), 1);
    }
    EXPECT_EQ(completions, 0);
    EXPECT_TRUE(store.subscriptions().isEmpty());
}

TEST_P(QuickPickModelTest, LeavesTheSettingUntilItIsGoneThrough) {
    pick.toggle(preset(u"iqiyi"_s));
    pick.goConfirm();
    pick.back();
    EXPECT_TRUE(defaults.values().isEmpty());
    EXPECT_TRUE(store.subscriptions().isEmpty());
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

INSTANTIATE_TEST_SUITE_P(, QuickPickModelTest, bothLanguages(), languageName);

} // namespace tovarin
