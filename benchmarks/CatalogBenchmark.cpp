// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceCatalog.h"

#include <benchmark/benchmark.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// The look-up of a subscription without a service id, which has to compare names.
void look(benchmark::State &state, const QString &name) {
    Subscription sub;
    sub.name = name;
    for (auto _ : state)
        benchmark::DoNotOptimize(ServiceCatalog::preset(sub));
}

BENCHMARK_CAPTURE(look, first, u"爱奇艺 VIP"_s);
BENCHMARK_CAPTURE(look, last, u"NordVPN"_s);
BENCHMARK_CAPTURE(look, unknown, u"Zoom Workplace Pro"_s);
BENCHMARK_CAPTURE(look, longName, QString(5000, u'z'));
BENCHMARK_CAPTURE(look, muchPunctuation, QString(1000, u'-') + u"NordVPN"_s);
BENCHMARK_CAPTURE(look, muchMorePunctuation, QString(10'000, u'-') + u"NordVPN"_s);
BENCHMARK_CAPTURE(look, muchChinesePunctuation, QString(1000, u'、') + u"NordVPN"_s);

} // namespace

} // namespace tovarin

BENCHMARK_MAIN();
