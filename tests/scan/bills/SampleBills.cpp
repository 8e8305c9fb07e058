// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/scan/bills/SampleBills.h"

#include "tests/support/Printing.h"

#include <QDir>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString goldenEnding = u".golden.json"_s;

QStringList filesBelow(auto isWanted) {
    const QDir root(QString::fromUtf8(SAMPLE_BILLS));
    QStringList files;
    for (QDirIterator it(root.path(), QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString file = root.relativeFilePath(it.next());
        if (isWanted(file))
            files.append(file);
    }
    files.sort();
    return files;
}

QString dayText(CivilDay day) {
    const std::chrono::year_month_day date(day);
    return QDate(int(date.year()), int(unsigned(date.month())), int(unsigned(date.day())))
        .toString(Qt::ISODate);
}

QString joined(const QJsonValue &lines) {
    return lines.toVariant().toStringList().join(u'\n');
}

qsizetype editDistance(const QString &from, const QString &to) {
    std::vector<qsizetype> row(static_cast<std::size_t>(to.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < from.size(); ++i) {
        qsizetype diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 1; j < row.size(); ++j) {
            const bool same = from[i] == to[static_cast<qsizetype>(j) - 1];
            const qsizetype changed = diagonal + (same ? 0 : 1);
            diagonal = std::exchange(row[j], std::min({changed, row[j] + 1, row[j - 1] + 1}));
        }
    }
    return row.back();
}

void expectNearly(const QString &found, const QString &golden, bool isExact) {
    const qsizetype allowed = isExact ? 0 : std::max<qsizetype>(2, golden.size() / 100);
    EXPECT_LE(editDistance(golden, found), allowed) << "found:\n"
                                                    << qPrintable(found) << "\nwanted:\n"
                                                    << qPrintable(golden);
}

bool isExact(const QJsonObject &golden) {
    return golden[u"readBy"_s].toString() != byRecognition;
}

} // namespace

QStringList sampleBills() {
    return filesBelow(
        [](const QString &file) { return file != u"README.md"_s && !file.endsWith(u".json"_s); });
}

QStringList samplesWithGolden() {
    QStringList files = filesBelow([](const QString &file) { return file.endsWith(goldenEnding); });
    for (QString &file : files)
        file.chop(goldenEnding.size());
    return files;
}

QString samplePath(const QString &sample) {
    return QString::fromUtf8(SAMPLE_BILLS) + u'/' + sample;
}

QString goldenPath(const QString &sample) {
    return samplePath(sample) + goldenEnding;
}

std::optional<QJsonObject> golden(const QString &sample) {
    QFile file(goldenPath(sample));
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << "no golden file for " << qPrintable(sample);
    const QByteArray json = file.readAll();
    if (json == goldenJson(std::nullopt))
        return std::nullopt;
    const QJsonObject answer = QJsonDocument::fromJson(json).object();
    EXPECT_EQ(answer.keys(), (QStringList{u"draft"_s, u"readBy"_s, u"text"_s}))
        << qPrintable(sample);
    return answer;
}

QByteArray goldenJson(const std::optional<QJsonObject> &answer) {
    return answer ? QJsonDocument(*answer).toJson() : "null\n"_ba;
}

QJsonObject goldenDraft(const Subscription &draft, const UserCalendar &calendar, Instant begin,
                        Instant end) {
    const bool isNow = begin <= draft.startDate && draft.startDate <= end;
    const CivilDay day = calendar.day(draft.startDate);
    EXPECT_TRUE(isNow || draft.startDate == calendar.startOfDay(day));
    return {{u"name"_s, draft.name},
            {u"amount"_s, draft.amount},
            {u"currency"_s, draft.currency},
            {u"billingType"_s, rawValue(draft.billingType)},
            {u"cycle"_s, rawValue(draft.cycle)},
            {u"startDate"_s, isNow ? u"now"_s : dayText(day)},
            {u"category"_s, draft.category},
            {u"notes"_s, QJsonArray::fromStringList(draft.notes.split(u'\n'))},
            {u"isActive"_s, draft.isActive},
            {u"serviceID"_s, draft.serviceID ? QJsonValue(*draft.serviceID) : QJsonValue()}};
}

void expectDraft(const QJsonObject &found, const QJsonObject &golden) {
    QJsonObject foundFields = found[u"draft"_s].toObject();
    QJsonObject goldenFields = golden[u"draft"_s].toObject();
    expectNearly(joined(foundFields.take(u"notes"_s)), joined(goldenFields.take(u"notes"_s)),
                 isExact(golden));
    EXPECT_EQ(QJsonDocument(foundFields).toJson(), QJsonDocument(goldenFields).toJson());
}

void expectText(const QJsonObject &found, const QJsonObject &golden) {
    EXPECT_EQ(found[u"readBy"_s].toString(), golden[u"readBy"_s].toString());
    expectNearly(joined(found[u"text"_s]), joined(golden[u"text"_s]), isExact(golden));
}

} // namespace tovarin
