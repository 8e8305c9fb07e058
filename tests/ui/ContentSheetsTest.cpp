// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/ContentSheets.h"

#include "model/Store.h"
#include "platform/UserMonths.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"
#include "tests/support/ManualDelay.h"
#include "tests/support/MemoryDefaults.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "ui/BatchScanReviewModel.h"
#include "ui/QuickPickModel.h"
#include "ui/SettingsModel.h"
#include "ui/SubscriptionDetailModel.h"
#include "ui/SubscriptionEditModel.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

using Sheet = ContentSheets::Sheet;

namespace {

class ContentSheetsTest : public testing::Test {
protected:
    /// Puts an entry into the store and shows it.
    Subscription showEntry(const QString &name = u"Morning Run"_s) {
        const Subscription sub = sampleSubscription(name);
        store.add(sub);
        sheets.showDetail(sub.id.toString());
        EXPECT_EQ(sheets.sheet(), Sheet::Detail);
        return sub;
    }

    static QList<Subscription> drafts(const QStringList &names) {
        QList<Subscription> drafts;
        for (const QString &name : names)
            drafts.append(sampleSubscription(name));
        return drafts;
    }

    QStringList stored() const {
        QStringList names;
        for (const Subscription &sub : store.subscriptions())
            names.append(sub.name);
        return names;
    }

    LanguageScope language{LocalizationManager::Lang::en};
    QTemporaryDir folder;
    ManualClock clock{instant("2025-06-10T01:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    UserMonths months{u"en_US"_s};
    Bundle bundle{u":/resources"_s};
    ServiceLogo logos{bundle};
    MemoryDefaults defaults;
    ManualDelay delays;
    Store store{folder.path(), clock, calendar};
    ContentSheets sheets{{store, clock, calendar, months, LocalizationManager::shared(), logos,
                          defaults, delays.delay()}};
    QSignalSpy changes{&sheets, &ContentSheets::sheetChanged};
};

} // namespace

TEST_F(ContentSheetsTest, BeginWithNone) {
    EXPECT_EQ(sheets.sheet(), Sheet::None);
    EXPECT_FALSE(sheets.isAdding());
    EXPECT_FALSE(sheets.showingQuickPick());
    EXPECT_FALSE(sheets.showingBatchReview());
    EXPECT_FALSE(sheets.showingSettings());
    EXPECT_EQ(sheets.editingSub(), std::nullopt);
    EXPECT_EQ(sheets.detailSub(), std::nullopt);
    EXPECT_EQ(sheets.prefillDraft(), std::nullopt);
    EXPECT_TRUE(sheets.batchScanItems().isEmpty());
    sheets.dismiss();
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(ContentSheetsTest, ShowTheEditorForANewEntry) {
    sheets.showEditor();
    EXPECT_EQ(sheets.sheet(), Sheet::Editor);
    EXPECT_TRUE(sheets.isAdding());
    EXPECT_EQ(sheets.prefillDraft(), std::nullopt);
    ASSERT_TRUE(sheets.editor());
    EXPECT_EQ(sheets.editor()->titleText(), u"Add subscription"_s);
    EXPECT_FALSE(sheets.settings());
    sheets.editor()->cancel();
    EXPECT_EQ(sheets.sheet(), Sheet::None);
    EXPECT_FALSE(sheets.isAdding());
    EXPECT_FALSE(sheets.editor());
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(ContentSheetsTest, KeepAModelUntilItsScreenCanHaveEnded) {
    sheets.showEditor();
    const QPointer<SubscriptionEditModel> model = sheets.editor();
    sheets.dismiss();
    EXPECT_TRUE(model);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(model);
}

TEST_F(ContentSheetsTest, OpenNothingElseOverAnOpenSheet) {
    const Subscription sub = showEntry();
    sheets.showEditor();
    sheets.dismiss();
    EXPECT_EQ(sheets.sheet(), Sheet::None);
    sheets.showEditor();
    sheets.showDetail(sub.id.toString());
    sheets.dismiss();
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, ShowAnEntry) {
    const Subscription sub = showEntry();
    EXPECT_EQ(sheets.detailSub(), sub);
    ASSERT_TRUE(sheets.detail());
    EXPECT_EQ(sheets.detail()->name(), u"Morning Run"_s);
    EXPECT_EQ(sheets.editingSub(), std::nullopt);
    sheets.detail()->dismiss();
    EXPECT_EQ(sheets.detailSub(), std::nullopt);
}

TEST_F(ContentSheetsTest, ShowNoEntryThatIsNotThere) {
    sheets.showDetail(QUuid::createUuid().toString());
    sheets.showDetail(u"nonsense"_s);
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, LeadFromTheDetailToTheEditorAMomentLater) {
    const Subscription sub = showEntry();
    sheets.detail()->edit();
    EXPECT_EQ(sheets.sheet(), Sheet::None);
    EXPECT_EQ(sheets.detailSub(), std::nullopt);
    delays.pass(149ms);
    EXPECT_EQ(sheets.sheet(), Sheet::None);
    delays.pass(1ms);
    EXPECT_EQ(sheets.sheet(), Sheet::Editor);
    EXPECT_EQ(sheets.editingSub(), sub);
    EXPECT_FALSE(sheets.isAdding());
    EXPECT_EQ(sheets.editor()->titleText(), u"Edit subscription"_s);
    sheets.editor()->populate();
    EXPECT_EQ(sheets.editor()->name(), u"Morning Run"_s);
}

TEST_F(ContentSheetsTest, LetNoOtherSheetBetweenTheDetailAndTheEditor) {
    const Subscription sub = showEntry();
    sheets.take(drafts({u"Draft"_s}));
    sheets.detail()->edit();
    sheets.showEditor();
    sheets.showQuickPick();
    EXPECT_EQ(sheets.sheet(), Sheet::None);
    delays.pass(150ms);
    EXPECT_EQ(sheets.editingSub(), sub);
    sheets.dismiss();
    EXPECT_EQ(sheets.prefillDraft()->name, u"Draft"_s);
    sheets.dismiss();
    EXPECT_EQ(sheets.sheet(), Sheet::QuickPick);
    sheets.dismiss();
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, ShowTheToggledEntry) {
    Subscription sub = showEntry();
    sheets.detail()->toggle();
    EXPECT_FALSE(store.subscriptions().first().isActive);
    sub.isActive = false;
    EXPECT_EQ(sheets.detailSub(), sub);
    EXPECT_FALSE(sheets.detail()->isActive());
    sheets.detail()->toggle();
    EXPECT_TRUE(sheets.detail()->isActive());
    EXPECT_TRUE(store.subscriptions().first().isActive);
}

TEST_F(ContentSheetsTest, DeleteAnEntryWithItsDetail) {
    const Subscription sub = showEntry();
    store.add(sub);
    store.add(sampleSubscription(u"Other"_s));
    sheets.detail()->deleteSubscription();
    EXPECT_EQ(stored(), QStringList({u"Other"_s}));
    EXPECT_EQ(sheets.sheet(), Sheet::None);
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(ContentSheetsTest, OpenNothingForAScanWithoutDrafts) {
    sheets.take({});
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, PutASingleDraftIntoTheEditor) {
    const QList<Subscription> found = drafts({u"Draft"_s});
    sheets.take(found);
    EXPECT_EQ(sheets.sheet(), Sheet::Editor);
    EXPECT_TRUE(sheets.isAdding());
    EXPECT_EQ(sheets.prefillDraft(), found.first());
    EXPECT_EQ(sheets.editor()->titleText(), u"Confirm scan"_s);
    sheets.editor()->cancel();
    EXPECT_EQ(sheets.prefillDraft(), std::nullopt);
    EXPECT_TRUE(stored().isEmpty());
}

TEST_F(ContentSheetsTest, PutSeveralDraftsIntoTheReview) {
    const QList<Subscription> found = drafts({u"One"_s, u"Two"_s, u"Three"_s});
    sheets.take(found);
    EXPECT_EQ(sheets.sheet(), Sheet::BatchReview);
    EXPECT_TRUE(sheets.showingBatchReview());
    const QList<ScanDraftItem> &items = sheets.batchScanItems();
    ASSERT_EQ(items.size(), 3);
    for (qsizetype i = 0; i < 3; ++i) {
        EXPECT_EQ(items[i].subscription, found[i]);
        EXPECT_TRUE(items[i].isIncluded);
        EXPECT_FALSE(items[i].id.isNull());
        EXPECT_NE(items[i].id, items[(i + 1) % 3].id);
    }
    sheets.batchReview()->setIncluded(1, false);
    sheets.batchReview()->save();
    EXPECT_EQ(stored(), QStringList({u"One"_s, u"Three"_s}));
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, KeepWhatWasEditedInACancelledReview) {
    sheets.take(drafts({u"One"_s, u"Two"_s}));
    sheets.batchReview()->setName(0, u"Edited"_s);
    sheets.batchReview()->cancel();
    EXPECT_FALSE(sheets.showingBatchReview());
    EXPECT_EQ(sheets.batchScanItems().first().subscription.name, u"Edited"_s);
    EXPECT_TRUE(stored().isEmpty());
    sheets.take(drafts({u"Three"_s, u"Four"_s}));
    EXPECT_EQ(sheets.batchScanItems().first().subscription.name, u"Three"_s);
}

TEST_F(ContentSheetsTest, LetWhatAScanFoundWaitForItsTurn) {
    sheets.showEditor();
    sheets.take(drafts({u"Draft"_s}));
    sheets.take(drafts({u"One"_s, u"Two"_s}));
    EXPECT_EQ(sheets.prefillDraft(), std::nullopt);
    EXPECT_TRUE(sheets.showingBatchReview());
    EXPECT_TRUE(sheets.batchScanItems().isEmpty());
    sheets.dismiss();
    EXPECT_EQ(sheets.prefillDraft()->name, u"Draft"_s);
    sheets.dismiss();
    EXPECT_EQ(sheets.sheet(), Sheet::BatchReview);
    EXPECT_EQ(sheets.batchScanItems().size(), 2);
    sheets.dismiss();
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, OfferTheQuickPickAMomentAfterTheWindowAppears) {
    sheets.offerQuickPickIfNeeded();
    delays.pass(399ms);
    EXPECT_FALSE(sheets.showingQuickPick());
    delays.pass(1ms);
    EXPECT_EQ(sheets.sheet(), Sheet::QuickPick);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(ContentSheetsTest, OfferTheQuickPickAgainUntilItWasCompleted) {
    sheets.offerQuickPickIfNeeded();
    delays.pass(400ms);
    sheets.dismiss();
    EXPECT_FALSE(sheets.didCompleteQuickPick());
    sheets.offerQuickPickIfNeeded();
    delays.pass(400ms);
    ASSERT_TRUE(sheets.quickPick());
    sheets.quickPick()->skip();
    EXPECT_TRUE(sheets.didCompleteQuickPick());
    EXPECT_EQ(sheets.sheet(), Sheet::None);
    sheets.offerQuickPickIfNeeded();
    delays.pass(1s);
    EXPECT_EQ(sheets.sheet(), Sheet::None);
    EXPECT_EQ(changes.size(), 4);
}

TEST_F(ContentSheetsTest, OfferNoQuickPickThatWasCompletedMeanwhile) {
    sheets.offerQuickPickIfNeeded();
    delays.pass(300ms);
    defaults.setBoolean(u"didCompleteQuickPick"_s, true);
    delays.pass(1s);
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, OfferTheQuickPickOnceForTwoCalls) {
    sheets.offerQuickPickIfNeeded();
    sheets.offerQuickPickIfNeeded();
    delays.pass(400ms);
    sheets.offerQuickPickIfNeeded();
    delays.pass(400ms);
    sheets.dismiss();
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, OfferNoQuickPickWhileItIsShown) {
    sheets.showQuickPick();
    sheets.offerQuickPickIfNeeded();
    sheets.dismiss();
    delays.pass(400ms);
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, LetTheOfferWaitForItsTurn) {
    sheets.offerQuickPickIfNeeded();
    sheets.showEditor();
    delays.pass(400ms);
    EXPECT_EQ(sheets.sheet(), Sheet::Editor);
    EXPECT_TRUE(sheets.showingQuickPick());
    sheets.dismiss();
    EXPECT_EQ(sheets.sheet(), Sheet::QuickPick);
}

TEST_F(ContentSheetsTest, LeadFromTheSettingsToTheQuickPick) {
    sheets.showSettings();
    EXPECT_TRUE(sheets.showingSettings());
    ASSERT_TRUE(sheets.settings());
    sheets.showSettings();
    sheets.settings()->quickPick();
    EXPECT_EQ(sheets.sheet(), Sheet::QuickPick);
    EXPECT_FALSE(sheets.showingSettings());
    sheets.dismiss();
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, PassOnWhatTheSettingsTell) {
    const QSignalSpy days(&sheets, &ContentSheets::remindDaysBeforeChanged);
    const QSignalSpy tests(&sheets, &ContentSheets::testNotificationRequested);
    sheets.showSettings();
    sheets.settings()->chooseDays(0);
    EXPECT_EQ(days.size(), 1);
    sheets.settings()->sendTest();
    EXPECT_EQ(tests.size(), 1);
    sheets.settings()->close();
    EXPECT_EQ(sheets.sheet(), Sheet::None);
}

TEST_F(ContentSheetsTest, TellTheOpenSheetOfAnotherDay) {
    const Subscription sub = showEntry();
    const QString before = sheets.detail()->dateText();
    clock.set(instant("2027-06-10T01:00:00Z"));
    const QSignalSpy changed(sheets.detail(), &SubscriptionDetailModel::changed);
    sheets.noticeDay();
    EXPECT_EQ(changed.size(), 1);
    EXPECT_NE(sheets.detail()->dateText(), before);
    sheets.dismiss();
    sheets.noticeDay();
    sheets.showEditor();
    const QSignalSpy dates(sheets.editor(), &SubscriptionEditModel::startDateChanged);
    sheets.noticeDay();
    EXPECT_EQ(dates.size(), 1);
}

} // namespace tovarin
