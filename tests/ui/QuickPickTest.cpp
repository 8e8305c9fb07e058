// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/ui/QuickPickTest.h"

#include "catalog/ServiceCatalog.h"
#include "tests/support/Printing.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

void QuickPickTest::open(QSize size) {
    stage.reset();
    dismissed.reset();
    pick.emplace(store, clock, LocalizationManager::shared(), logos, defaults, nullptr);
    dismissed.emplace(&*pick, &QuickPickModel::dismissed);
    stage.emplace(u"QuickPickView"_s, QVariantMap{{u"quickPick"_s, QVariant::fromValue(&*pick)}},
                  size);
}

void QuickPickTest::review(const QStringList &ids) {
    open();
    for (const QString &id : ids)
        pick->toggle(preset(id));
    stage->settle();
    stage->click(item("continue"));
    stage->settle();
}

QQuickItem &QuickPickTest::cell(int number) {
    return stage->inSight(u"cell%1"_s.arg(number));
}

QQuickItem &QuickPickTest::row(int number) {
    return stage->inSight(u"row%1"_s.arg(number));
}

QQuickItem &QuickPickTest::ofCell(const char *service, const char *name) {
    return SheetStage::piece(cell(cellOf(QString::fromLatin1(service))), QString::fromLatin1(name));
}

QQuickItem &QuickPickTest::ofRow(int number, const char *name) {
    return SheetStage::piece(row(number), QString::fromLatin1(name));
}

bool QuickPickTest::isInSight(const QQuickItem &it, const char *area) {
    return SheetStage::top(it) >= SheetStage::top(item(area)) &&
           SheetStage::bottom(it) <= SheetStage::bottom(item(area));
}

TEST_P(QuickPickTest, SkipsInEitherStep) {
    open();
    stage->click(ofCell("iqiyi", "button"));
    stage->click(item("skip"));
    EXPECT_EQ(dismissed->size(), 1);
    review({u"iqiyi"_s});
    EXPECT_TRUE(stage->tabTo(u"skip"_s));
    stage->press(Qt::Key_Space);
    EXPECT_EQ(dismissed->size(), 1);
    EXPECT_TRUE(store.subscriptions().isEmpty());
    EXPECT_EQ(defaults.boolean(u"didCompleteQuickPick"_s), true);
}

TEST_P(QuickPickTest, LeavesEscapeToTheSheet) {
    open();
    stage->press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !stage->isOpen(); }));
    EXPECT_EQ(dismissed->size(), 0);
    EXPECT_EQ(defaults.boolean(u"didCompleteQuickPick"_s), std::nullopt);
}

TEST_P(QuickPickTest, CutsNoTextShort) {
    for (const ServiceRegion region : allServiceRegions) {
        open();
        pick->setRegion(region);
        for (const ServicePreset &one : ServiceCatalog::presets(region))
            pick->toggle(one);
        for (int tier = 0; tier < 3; ++tier) {
            for (int i = 0; i < pick->cells()->rowCount(); ++i)
                pick->chooseTier(i, tier);
            stage->settle();
            const QQuickItem *const cut = stage->itemWith("truncated", true);
            EXPECT_FALSE(cut) << cut->property("text").toString().toStdString();
        }
        stage->click(item("continue"));
        const QQuickItem *const cut = stage->itemWith("truncated", true);
        EXPECT_FALSE(cut) << cut->property("text").toString().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(, QuickPickTest, bothLanguages(), languageName);

} // namespace tovarin
