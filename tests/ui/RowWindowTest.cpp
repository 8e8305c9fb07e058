// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/RowWindow.h"

#include "tests/support/Printing.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStringListModel>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

QStringList letters(int count) {
    QStringList list;
    for (int i = 0; i < count; ++i)
        list.append(QString(QChar(u'a' + i)));
    return list;
}

QString rows(const RowWindow &window) {
    QString text;
    for (int i = 0; i < window.rowCount(); ++i)
        text += window.index(i).data().toString();
    return text;
}

class RowWindowTest : public testing::Test {
protected:
    RowWindowTest() {
        window.setLength(3);
        window.setSource(&source);
    }

    QStringListModel source{letters(8)};
    RowWindow window;
    QAbstractItemModelTester tester{&window, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(RowWindowTest, ShowsSomeRows) {
    EXPECT_EQ(rows(window), u"abc"_s);
    window.setWantedFirst(4);
    EXPECT_EQ(rows(window), u"efg"_s);
    EXPECT_EQ(window.first(), 4);
}

TEST_F(RowWindowTest, StaysWithinTheSource) {
    window.setWantedFirst(7);
    EXPECT_EQ(rows(window), u"fgh"_s);
    EXPECT_EQ(window.first(), 5);
    EXPECT_EQ(window.wantedFirst(), 7);
    window.setWantedFirst(-3);
    EXPECT_EQ(rows(window), u"abc"_s);
    window.setLength(100);
    EXPECT_EQ(rows(window), u"abcdefgh"_s);
    window.setLength(-1);
    EXPECT_EQ(rows(window), QString());
}

TEST_F(RowWindowTest, KeepsItsRowsWhileItMoves) {
    QSignalSpy inserted(&window, &RowWindow::rowsInserted);
    QSignalSpy removed(&window, &RowWindow::rowsRemoved);
    QSignalSpy reset(&window, &RowWindow::modelReset);
    QSignalSpy changed(&window, &RowWindow::dataChanged);
    for (int first = 1; first <= 5; ++first)
        window.setWantedFirst(first);
    EXPECT_EQ(inserted.size() + removed.size() + reset.size(), 0);
    EXPECT_EQ(changed.size(), 5);
    window.setWantedFirst(7);
    EXPECT_EQ(changed.size(), 5);
}

TEST_F(RowWindowTest, FollowsTheSource) {
    window.setWantedFirst(5);
    source.setStringList(letters(4));
    EXPECT_EQ(rows(window), u"bcd"_s);
    source.setStringList(letters(2));
    EXPECT_EQ(rows(window), u"ab"_s);
    source.setStringList({});
    EXPECT_EQ(rows(window), QString());
    source.setStringList(letters(8));
    EXPECT_EQ(rows(window), u"fgh"_s);
    source.setData(source.index(6), u"!"_s);
    EXPECT_EQ(rows(window), u"f!h"_s);
    source.removeRows(0, 2);
    EXPECT_EQ(rows(window), u"f!h"_s);
    EXPECT_EQ(window.first(), 3);
}

TEST_F(RowWindowTest, TellsWhatTheSourceChanged) {
    QSignalSpy changed(&window, &RowWindow::dataChanged);
    source.setStringList({u"x"_s, u"y"_s, u"z"_s, u"w"_s});
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(rows(window), u"xyz"_s);
}

TEST_F(RowWindowTest, MayHaveNoSourceOrAnother) {
    window.setWantedFirst(2);
    window.setSource(nullptr);
    EXPECT_EQ(rows(window), QString());
    QStringListModel other({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s});
    window.setSource(&other);
    EXPECT_EQ(rows(window), u"345"_s);
    source.setStringList({});
    EXPECT_EQ(rows(window), u"345"_s);
}

} // namespace tovarin
