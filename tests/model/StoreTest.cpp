// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Store.h"

#include "model/SubscriptionJson.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class StoreTest : public testing::Test {
protected:
    QString folder() const { return m_home.filePath(u"data"_s); }
    QString path() const { return folder() + u"/Tovarin/subscriptions.json"_s; }

    std::unique_ptr<Store> open() const {
        return std::make_unique<Store>(folder(), m_clock, m_calendar);
    }

    QByteArray bytes() const {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file";
    }

    void write(const QByteArray &content) const {
        ASSERT_TRUE(QDir().mkpath(folder() + u"/Tovarin"_s));
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

private:
    QTemporaryDir m_home;
    ManualClock m_clock{instant("2025-04-01T12:00:00Z")};
    UserCalendar m_calendar = calendarIn("UTC");
};

QByteArray encoded(const QList<Subscription> &list) {
    return encodeSubscriptions(list).value();
}

} // namespace

TEST_F(StoreTest, MakesItsFolderAndNoFileAtTheFirstStart) {
    const auto store = open();
    EXPECT_TRUE(QFileInfo(folder() + u"/Tovarin"_s).isDir());
    EXPECT_EQ(QDir(folder() + u"/Tovarin"_s).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
              QStringList());
    EXPECT_TRUE(store->subscriptions().isEmpty());
}

TEST_F(StoreTest, LoadsTheList) {
    const QList list = {sampleSubscription(u"a"_s), sampleSubscription(u"b"_s)};
    write(encoded(list));
    EXPECT_EQ(open()->subscriptions(), list);
    EXPECT_EQ(bytes(), encoded(list));
}

TEST_F(StoreTest, LeavesAFileThatDoesNotDecodeUntilTheNextChange) {
    QByteArray content = encoded({sampleSubscription(), sampleSubscription()});
    content.replace("\"monthly\"", "\"daily\"");
    write(content);
    const auto store = open();
    EXPECT_TRUE(store->subscriptions().isEmpty());
    EXPECT_EQ(bytes(), content);
    const Subscription sub = sampleSubscription();
    store->add(sub);
    EXPECT_EQ(bytes(), encoded({sub}));
}

TEST_F(StoreTest, StartsEmptyWithAnEmptyFile) {
    write("");
    EXPECT_TRUE(open()->subscriptions().isEmpty());
    EXPECT_EQ(bytes(), "");
}

TEST_F(StoreTest, AddsAtTheEndAndSaves) {
    const auto store = open();
    const Subscription first = sampleSubscription(u"first"_s);
    const Subscription second = sampleSubscription(u"second"_s);
    store->add(first);
    EXPECT_EQ(bytes(), encoded({first}));
    store->add(second);
    EXPECT_EQ(store->subscriptions(), (QList{first, second}));
    EXPECT_EQ(bytes(), encoded({first, second}));
}

TEST_F(StoreTest, AddsSeveralInTheirOrderWithOneAnnouncement) {
    const auto store = open();
    store->add(sampleSubscription(u"first"_s));
    int announcements = 0;
    QObject::connect(store.get(), &Store::subscriptionsWillChange, [&] { ++announcements; });
    store->addAll({sampleSubscription(u"b"_s), sampleSubscription(u"a"_s)});
    ASSERT_EQ(store->subscriptions().size(), 3);
    EXPECT_EQ(store->subscriptions()[1].name, u"b"_s);
    EXPECT_EQ(store->subscriptions()[2].name, u"a"_s);
    EXPECT_EQ(announcements, 1);
    EXPECT_EQ(bytes(), encoded(store->subscriptions()));
}

TEST_F(StoreTest, UpdatesTheFirstEntryWithTheId) {
    const auto store = open();
    Subscription sub = sampleSubscription(u"old"_s);
    const Subscription other = sampleSubscription(u"other"_s);
    store->addAll({other, sub, sub});
    Subscription changed = sub;
    changed.name = u"new"_s;
    changed.amount = 99;
    changed.notes = u"notes"_s;
    changed.isActive = false;
    store->update(changed);
    EXPECT_EQ(store->subscriptions(), (QList{other, changed, sub}));
    EXPECT_EQ(bytes(), encoded({other, changed, sub}));
}

TEST_F(StoreTest, TogglesTheStoredFlagOfTheFirstEntryWithTheId) {
    const auto store = open();
    Subscription stale = sampleSubscription();
    store->addAll({stale, stale});
    stale.isActive = false;
    stale.name = u"not taken over"_s;
    store->toggleActive(stale);
    EXPECT_FALSE(store->subscriptions()[0].isActive);
    EXPECT_TRUE(store->subscriptions()[1].isActive);
    EXPECT_EQ(store->subscriptions()[0].name, u"Music Plus"_s);
    EXPECT_EQ(bytes(), encoded(store->subscriptions()));
    store->toggleActive(stale);
    EXPECT_TRUE(store->subscriptions()[0].isActive);
}

TEST_F(StoreTest, DeletesEveryEntryWithTheIdAndKeepsTheOrderOfTheRest) {
    const auto store = open();
    const Subscription a = sampleSubscription(u"a"_s);
    const Subscription b = sampleSubscription(u"b"_s);
    const Subscription c = sampleSubscription(u"c"_s);
    store->addAll({c, b, a, b, b});
    store->deleteSubscription(store->subscriptions()[1]);
    EXPECT_EQ(store->subscriptions(), (QList{c, a}));
    EXPECT_EQ(bytes(), encoded({c, a}));
    store->deleteSubscription(c);
    store->deleteSubscription(a);
    EXPECT_EQ(bytes(), "[]");
}

TEST_F(StoreTest, DoesNothingForAnIdThatIsNotThere) {
    const auto store = open();
    store->add(sampleSubscription());
    write("someone else's bytes");
    int announcements = 0;
    QObject::connect(store.get(), &Store::subscriptionsWillChange, [&] { ++announcements; });
    store->update(sampleSubscription());
    store->toggleActive(sampleSubscription());
    EXPECT_EQ(store->subscriptions().size(), 1);
    EXPECT_EQ(announcements, 0);
    EXPECT_EQ(bytes(), "someone else's bytes");
    // Deleting saves all the same.
    store->deleteSubscription(sampleSubscription());
    EXPECT_EQ(bytes(), encoded(store->subscriptions()));
}

TEST_F(StoreTest, TakesAnotherListWithoutSavingIt) {
    const auto store = open();
    const Subscription sub = sampleSubscription();
    store->setSubscriptions({sub});
    EXPECT_EQ(store->subscriptions(), QList{sub});
    EXPECT_EQ(bytes(), "no file");
    store->save();
    EXPECT_EQ(bytes(), encoded({sub}));
}

TEST_F(StoreTest, ReloadsToTheSameListButForPartsOfASecond) {
    Subscription sub = sampleSubscription();
    sub.startDate += std::chrono::milliseconds(500);
    sub.serviceID = u"service"_s;
    sub.notes = u"注 \"/\\\n"_s;
    open()->add(sub);
    Subscription expected = sub;
    expected.startDate -= std::chrono::milliseconds(500);
    EXPECT_EQ(open()->subscriptions(), QList{expected});
}

TEST_F(StoreTest, TellsObserversBeforeAndAfterEachChange) {
    const auto store = open();
    QStringList told;
    const auto names = [&] {
        QStringList list;
        for (const Subscription &sub : store->subscriptions())
            list.append(sub.name + (sub.isActive ? u""_s : u" paused"_s));
        return list.join(u'+') + (bytes() == encoded(store->subscriptions()) ? u" saved"_s : u""_s);
    };
    QObject::connect(store.get(), &Store::subscriptionsWillChange,
                     [&] { told.append(u"before: "_s + names()); });
    QObject::connect(store.get(), &Store::subscriptionsDidChange,
                     [&] { told.append(u"after: "_s + names()); });
    Subscription sub = sampleSubscription(u"a"_s);
    store->add(sub);
    sub.name = u"b"_s;
    store->update(sub);
    store->toggleActive(sub);
    store->deleteSubscription(sub);
    store->setSubscriptions({sub});
    EXPECT_EQ(told, (QStringList{u"before: "_s, u"after: a saved"_s, u"before: a saved"_s,
                                 u"after: b saved"_s, u"before: b saved"_s,
                                 u"after: b paused saved"_s, u"before: b paused saved"_s,
                                 u"after:  saved"_s, u"before:  saved"_s, u"after: b"_s}));
}

TEST_F(StoreTest, GivesASubscriberTheCurrentListFirst) {
    const auto store = open();
    store->add(sampleSubscription(u"a"_s));
    QList<qsizetype> sizes;
    {
        const QObject context;
        store->observe(&context,
                       [&](const QList<Subscription> &list) { sizes.append(list.size()); });
        EXPECT_EQ(sizes, QList<qsizetype>{1});
        store->add(sampleSubscription(u"b"_s));
        store->deleteSubscription(store->subscriptions().first());
    }
    store->add(sampleSubscription(u"c"_s));
    EXPECT_EQ(sizes, (QList<qsizetype>{1, 2, 1}));
}

} // namespace tovarin
