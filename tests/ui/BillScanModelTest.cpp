// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/BillScanModel.h"

#include "tests/scan/job/ScanRun.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/Printing.h"
#include "tests/support/ScriptedPanel.h"
#include "tests/support/WaitFor.h"

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// A panel in which the user chooses these files, while something else happens.
class SlowPanel final : public OpenPanel {
public:
    QList<QUrl> run(const Request &) override {
        ++runs;
        meanwhile();
        return choice;
    }

    std::function<void()> meanwhile;
    QList<QUrl> choice;
    int runs = 0;
};

class BillScanModelTest : public testing::Test {
protected:
    BillScanModelTest() {
        QObject::connect(&model, &BillScanModel::changed, [this] { states.append(state()); });
        QObject::connect(&model, &BillScanModel::draftsFound,
                         [this](const QList<Subscription> &drafts) {
                             for (const Subscription &draft : drafts)
                                 found.append(draft.name);
                             ++tellings;
                         });
    }

    /// What the scan button shows.
    QString state() const {
        if (model.isScanning())
            return u"%1/%2"_s.arg(model.filesDone()).arg(model.filesTotal());
        return model.foundNothing() ? u"nothing"_s : u"idle"_s;
    }

    void scanToTheEnd() {
        ASSERT_TRUE(model.isScanning());
        ASSERT_TRUE(waitFor([this] { return !model.isScanning(); }));
    }

    LanguageScope language{LocalizationManager::Lang::en};
    ScanJob job{standInScanner(), amply};
    ScriptedPanel panel{{}};
    BillScanModel model{job, panel};
    QStringList states;
    QStringList found; ///< The names of the drafts.
    int tellings = 0;
};

} // namespace

TEST_F(BillScanModelTest, TellsTheDraftsOfTheChosenFilesInTheirOrder) {
    panel.choice = filesNamed({u"bill b"_s, u"crash"_s, u"bill a"_s});
    model.scanReceiptImages();
    scanToTheEnd();
    EXPECT_EQ(found, QStringList({u"bill b"_s, u"bill a"_s}));
    EXPECT_EQ(tellings, 1);
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
    EXPECT_EQ(tellings, 0);

    panel.choice = filesNamed({u"bill"_s});
    states.clear();
    model.scanReceiptImages();
    scanToTheEnd();
    EXPECT_EQ(states, QStringList({u"0/1"_s, u"1/1"_s, u"idle"_s}));
    EXPECT_EQ(found, QStringList({u"bill"_s}));
}

TEST_F(BillScanModelTest, KeepsTheNoteWhenNoFileIsChosen) {
    panel.choice = filesNamed({u"crash"_s});
    model.scanReceiptImages();
    scanToTheEnd();
    panel.choice = {};
    model.scanReceiptImages();
    EXPECT_TRUE(model.foundNothing());
}

TEST_F(BillScanModelTest, TellsDraftsWithoutNameOrAmountToo) {
    panel.choice = filesNamed({u"unnamed"_s, u"unpriced"_s});
    model.scanReceiptImages();
    scanToTheEnd();
    EXPECT_EQ(found, QStringList({QString(), u"unpriced"_s}));
    EXPECT_FALSE(model.foundNothing());
}

TEST_F(BillScanModelTest, ReadsDroppedFilesThatAreOnThisMachine) {
    EXPECT_TRUE(model.handleDrop(QList<QUrl>{QUrl(u"https://example.com/bill.png"_s)} +
                                 filesNamed({u"bill"_s})));
    scanToTheEnd();
    EXPECT_EQ(found, QStringList({u"bill"_s}));
    EXPECT_EQ(states.first(), u"0/1"_s);
    EXPECT_EQ(panel.requests.size(), 0);
}

TEST_F(BillScanModelTest, RefusesWhatIsNoLocalFile) {
    const QUrl address(u"https://example.com/bill.png"_s);
    EXPECT_FALSE(model.canRead({}));
    EXPECT_FALSE(model.canRead({address, QUrl()}));
    EXPECT_TRUE(model.canRead({address, QUrl(u"file:///bill.png"_s)}));
    EXPECT_FALSE(model.handleDrop({QUrl(u"https://example.com/bill.png"_s), QUrl()}));
    EXPECT_FALSE(model.handleDrop({}));
    EXPECT_EQ(states, QStringList());
    EXPECT_FALSE(job.isRunning());
}

TEST_F(BillScanModelTest, ReadsFilesThatAreHandedOverWhileItScansAfterwards) {
    model.readFiles(filesNamed({u"bill one"_s}));
    model.readFiles(filesNamed({u"bill two"_s}));
    model.readFiles(filesNamed({u"bill three"_s}) + QList<QUrl>{QUrl(u"https://example.com"_s)});
    EXPECT_EQ(model.filesTotal(), 1);
    ASSERT_TRUE(waitFor([this] { return tellings == 1; }));
    EXPECT_TRUE(model.isScanning());
    EXPECT_EQ(model.filesTotal(), 2);
    scanToTheEnd();
    EXPECT_EQ(found, QStringList({u"bill one"_s, u"bill two"_s, u"bill three"_s}));
    EXPECT_EQ(tellings, 2);
    model.readFiles({QUrl(u"https://example.com"_s)});
    EXPECT_FALSE(model.isScanning());
}

TEST_F(BillScanModelTest, LetsNoMoreThanTenThousandFilesWait) {
    const QList<QUrl> many(6000, filesNamed({u"bill two"_s}).first());
    model.readFiles(filesNamed({u"bill one"_s}));
    model.readFiles(many);
    model.readFiles(QList<QUrl>(6000, QUrl(u"https://example.com"_s)));
    model.readFiles(many);
    model.readFiles(many);
    ASSERT_TRUE(waitFor([this] { return tellings == 1; }));
    EXPECT_EQ(model.filesTotal(), 10000);
}

TEST_F(BillScanModelTest, AsksAfterThePressIsOver) {
    panel.choice = filesNamed({u"bill"_s});
    model.pressScan();
    EXPECT_EQ(panel.requests.size(), 0);
    ASSERT_TRUE(waitFor([this] { return tellings == 1; }));
    EXPECT_EQ(panel.requests.size(), 1);
    EXPECT_EQ(found, QStringList({u"bill"_s}));
}

TEST_F(BillScanModelTest, AsksOnceWhileThePanelIsOpen) {
    SlowPanel slow;
    BillScanModel asking(job, slow);
    slow.meanwhile = [&] {
        asking.scanReceiptImages();
        asking.pressScan();
        QCoreApplication::processEvents();
    };
    asking.scanReceiptImages();
    EXPECT_EQ(slow.runs, 1);
    EXPECT_FALSE(asking.isScanning());
    slow.meanwhile = [] {};
    asking.scanReceiptImages();
    EXPECT_EQ(slow.runs, 2);
}

TEST_F(BillScanModelTest, ReadsTheChosenFilesAfterAScanThatBeganMeanwhile) {
    SlowPanel slow;
    BillScanModel asking(job, slow);
    QStringList names;
    QObject::connect(&asking, &BillScanModel::draftsFound, [&](const QList<Subscription> &drafts) {
        for (const Subscription &draft : drafts)
            names.append(draft.name);
    });
    slow.choice = filesNamed({u"bill two"_s});
    slow.meanwhile = [&] { asking.readFiles(filesNamed({u"bill one"_s})); };
    asking.scanReceiptImages();
    EXPECT_TRUE(asking.isScanning());
    ASSERT_TRUE(waitFor([&] { return names.size() == 2; }));
    EXPECT_EQ(names, QStringList({u"bill one"_s, u"bill two"_s}));
}

TEST_F(BillScanModelTest, RefusesMoreWhileItScans) {
    panel.choice = filesNamed({u"bill one"_s});
    model.scanReceiptImages();
    EXPECT_FALSE(model.handleDrop(filesNamed({u"bill two"_s})));
    model.scanReceiptImages();
    EXPECT_EQ(panel.requests.size(), 1);
    scanToTheEnd();
    EXPECT_EQ(found, QStringList({u"bill one"_s}));
}

} // namespace tovarin
