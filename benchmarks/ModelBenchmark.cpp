// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/LocalizationManager.h"
#include "model/CurrencyRates.h"
#include "model/Store.h"
#include "model/SubscriptionJson.h"
#include "platform/Clock.h"
#include "platform/DurableFile.h"
#include "platform/UserCalendar.h"
#include "ui/ContentModel.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <malloc.h>
#include <map>
#include <random>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class FixedClock final : public Clock {
public:
    Instant now() const override { return std::chrono::sys_days(2025y / 11 / 21) + 12h; }
};

/// Entries as people have them: all cycles, begun at any moment of the last twenty years, some
/// paused, some one-time, some with notes as a bill leaves them.
QList<Subscription> makeList(int count) {
    const QString services[] = {u"Music Plus"_s, u"云存储空间"_s, u"Video Family"_s,
                                u"Editor Pro"_s};
    const QString categories[] = {u"音乐"_s, u"云存储"_s, u"影音"_s, u"AI/工具"_s};
    std::mt19937 random(20251121);
    const Instant newest = FixedClock().now();
    QList<Subscription> list;
    list.reserve(count);
    for (int i = 0; i < count; ++i) {
        const auto age = std::chrono::minutes(random() % (20 * 365 * 1440));
        const unsigned service = random() % 4;
        Subscription sub{
            .id = QUuid::createUuid(),
            .name = services[service] + u' ' + QString::number(i),
            .amount = double(random() % 40'000) / 100,
            .currency = CurrencyRates::supported[random() % 6].toString(),
            .billingType = random() % 10 == 0 ? BillingType::oneTime : BillingType::recurring,
            .cycle = allBillingCycles[random() % 4],
            .startDate = std::chrono::floor<std::chrono::seconds>(newest - age),
            .category = categories[service],
            .notes = random() % 4 == 0 ? u"Order 2025/11/21 \"monthly\"\n合计 ¥30"_s : QString(),
            .isActive = random() % 10 != 0,
            .serviceID = random() % 2 == 0 ? std::optional(u"service"_s) : std::nullopt};
        list.append(std::move(sub));
    }
    return list;
}

const QList<Subscription> &listOf(qint64 count) {
    static std::map<qint64, QList<Subscription>> lists;
    auto &list = lists[count];
    if (list.isEmpty())
        list = makeList(int(count));
    return list;
}

QByteArray fileOf(qint64 count) {
    return encodeSubscriptions(listOf(count)).value();
}

/// A store in a folder of its own, with so many entries in its file.
struct StoredList {
    explicit StoredList(qint64 count) {
        Store store(home.path(), clock, calendar);
        store.addAll(listOf(count));
    }

    QTemporaryDir home;
    FixedClock clock;
    UserCalendar calendar{u"en_US"_s, UserZone(QTimeZone("Europe/Berlin"))};
};

void setBytes(benchmark::State &state, const QByteArray &json) {
    state.SetBytesProcessed(state.iterations() * json.size());
}

void decodeByQt(benchmark::State &state) {
    const QByteArray json = fileOf(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(json));
    setBytes(state, json);
}

void decode(benchmark::State &state) {
    const QByteArray json = fileOf(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(decodeSubscriptions(json));
    setBytes(state, json);
}

void load(benchmark::State &state) {
    const StoredList stored(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(Store(stored.home.path(), stored.clock, stored.calendar));
}

void encodeByQt(benchmark::State &state) {
    const QJsonDocument document = QJsonDocument::fromJson(fileOf(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(document.toJson(QJsonDocument::Indented));
}

void encode(benchmark::State &state) {
    const QList<Subscription> &list = listOf(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(encodeSubscriptions(list));
}

/// Encoding, writing, and waiting until it is on the disk.
void save(benchmark::State &state) {
    const StoredList stored(state.range(0));
    const Store store(stored.home.path(), stored.clock, stored.calendar);
    for (auto _ : state)
        store.save();
}

/// What the main window works out at a change: totals, due-soon list, sorted list.
void derive(benchmark::State &state) {
    const StoredList stored(state.range(0));
    const Store store(stored.home.path(), stored.clock, stored.calendar);
    const ServiceLogo logos(Bundle(QStringLiteral(":/resources")));
    const ContentModel content(store, stored.clock, stored.calendar, LocalizationManager::shared(),
                               logos);
    for (auto _ : state) {
        benchmark::DoNotOptimize(store.totalMonthlyCNY());
        benchmark::DoNotOptimize(store.activeSubscriptions().size());
        benchmark::DoNotOptimize(store.upcoming(7));
        benchmark::DoNotOptimize(content.sortedSubs());
    }
}

/// The memory that a loaded list holds, as a multiple of its file's size.
void memory(benchmark::State &state) {
    const QByteArray json = fileOf(state.range(0));
    double ratio = 0;
    for (auto _ : state) {
        const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
        const auto list = decodeSubscriptions(json);
        const std::size_t after = mallinfo2().uordblks + mallinfo2().hblkhd;
        benchmark::DoNotOptimize(list);
        ratio = double(after - before) / double(json.size());
    }
    state.counters["memory_per_file_byte"] = ratio;
}

BENCHMARK(decodeByQt)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(decode)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(load)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(encodeByQt)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(encode)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(derive)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(memory)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

} // namespace tovarin

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
