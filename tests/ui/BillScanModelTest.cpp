// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/BillScanModel.h"

#include "model/Store.h"
#include "tests/scan/job/ScanRun.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/support/ScriptedPanel.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class BillScanModelTest : public testing::Test {
protected:
    BillScanModelTest() {
        QObject::connect(&model, &BillScanModel::changed, [this] { states.append(state()); });
    }

    /// What the scan button shows.
    QString state() const {
        if (model.isScanning())
            return u"%1/%2"_s.arg(model.filesDone()).arg(model.filesTotal());
        return model.foundNothing() ? u"nothing"_s : u"idle"_s;
    }

    void scanToTheEnd() {
        ASSERT_TRUE(model.isScanning());
        ASSERT_TRUE(waitUntil([this] { return !model.isScanning(); }));
    }

    QStringList names() const {
        QStringList names;
        for (const Subscription &sub : store.subscriptions())
            names.append(sub.name);
        return names;
    }

    LanguageScope language{LocalizationManager::Lang::en};
    QTemporaryDir folder;
    ManualClock clock{instant("2025-06-10T01:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    Store store{folder.path(), clock, calendar};
    ScanJob job{standInScanner(), amply};
    ScriptedPanel panel{{}};
    BillScanModel model{job, panel, store};
    QStringList states;
};

} // namespace

TEST_F(BillScanModelTest, PutsTheDraftsOfTheChosenFilesAtTheEndOfTheListInTheirOrder) {
    store.add(sampleSubscription(u"Kept"_s));
    panel.choice = filesNamed({u"bill b"_s, u"crash"_s, u"bill a"_s});
    model.scanReceiptImages();
    scanToTheEnd();
    EXPECT_EQ(names(), QStringList({u"Kept"_s, u"bill b"_s, u"bill a"_s}));
    EXPECT_EQ(states, QStringList({u"0/3"_s, u"1/3"_s, u"2/3"_s, u"3/3"_s, u"idle"_s}));
    ASSERT_EQ(panel.requests.size(), 1);
    EXPECT_TRUE(panel.requests.first().allowMultiple);
}

TEST_F(BillScanModelTest, DoesNothingWhenNoFileIsChosen) {
    model.scanReceiptImages();
    EXPECT_EQ(panel.requests.size(), 1);
    EXPECT_EQ(states, QStringList());
    EXPECT_FALSE(job.isRunning());
}

TEST_F(BillScanModelTest, TellsWhenNothingWasFoundUntilTheNextScan) {
    panel.choice = filesNamed({u"crash"_s});
    model.scanReceiptImages();
    scanToTheEnd();
    EXPECT_TRUE(model.foundNothing());
    EXPECT_EQ(names(), QStringList());

    panel.choice = filesNamed({u"bill"_s});
    states.clear();
    model.scanReceiptImages();
    scanToTheEnd();
    EXPECT_EQ(states, QStringList({u"0/1"_s, u"1/1"_s, u"idle"_s}));
    EXPECT_EQ(names(), QStringList({u"bill"_s}));
}

TEST_F(BillScanModelTest, KeepsTheNoteWhenNoFileIsChosen) {
    panel.choice = filesNamed({u"crash"_s});
    model.scanReceiptImages();
    scanToTheEnd();
    panel.choice = {};
    model.scanReceiptImages();
    EXPECT_TRUE(model.foundNothing());
}

TEST_F(BillScanModelTest, LeavesDraftsWithoutNameOrAmountOut) {
    panel.choice = filesNamed({u"unnamed"_s, u"bill"_s, u"unpriced"_s});
    model.scanReceiptImages();
    scanToTheEnd();
    EXPECT_EQ(names(), QStringList({u"bill"_s}));
    EXPECT_FALSE(model.foundNothing());
}

TEST_F(BillScanModelTest, ReadsDroppedFilesThatAreOnThisMachine) {
    EXPECT_TRUE(model.handleDrop(QList<QUrl>{QUrl(u"https://example.com/bill.png"_s)} +
                                 filesNamed({u"bill"_s})));
    scanToTheEnd();
    EXPECT_EQ(names(), QStringList({u"bill"_s}));
    EXPECT_EQ(states.first(), u"0/1"_s);
    EXPECT_EQ(panel.requests.size(), 0);
}

TEST_F(BillScanModelTest, RefusesWhatIsNoLocalFile) {
    EXPECT_FALSE(model.handleDrop({QUrl(u"https://example.com/bill.png"_s), QUrl()}));
    EXPECT_FALSE(model.handleDrop({}));
    EXPECT_EQ(states, QStringList());
    EXPECT_FALSE(job.isRunning());
}

TEST_F(BillScanModelTest, RefusesMoreWhileItScans) {
    panel.choice = filesNamed({u"bill one"_s});
    model.scanReceiptImages();
    EXPECT_FALSE(model.handleDrop(filesNamed({u"bill two"_s})));
    model.scanReceiptImages();
    EXPECT_EQ(panel.requests.size(), 1);
    scanToTheEnd();
    EXPECT_EQ(names(), QStringList({u"bill one"_s}));
}

} // namespace tovarin
