// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/LocalizationManager.h"
#include "platform/Clock.h"
#include "platform/UserCalendar.h"
#include "scan/parser/ReceiptParser.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimeZone>

#include <benchmark/benchmark.h>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr qsizetype megabyte = 1'000'000; // in UTF-16 units

class FixedClock final : public Clock {
public:
    Instant now() const override { return std::chrono::sys_days(2025y / 11 / 21) + 12h; }
};

/// The piece over and over, a million units of it.
QString repeated(const QString &piece) {
    return piece.repeated(megabyte / piece.size());
}

void parse(benchmark::State &state, const QString &text) {
    const FixedClock clock;
    const UserCalendar calendar(u"en_US"_s, UserZone(QTimeZone("Asia/Shanghai")));
    for (auto _ : state)
        benchmark::DoNotOptimize(ReceiptParser::parse(text, clock, calendar));
    state.counters["units"] = double(text.size());
}

const QString bill = u"您好\n百度网盘超级会员 6个月\n商品金额 ￥168.00\n实付：￥148.50\n"
                     u"订单编号 20250308123456789\n支付时间 2025年3月8日 12:30\n"
                     u"支付方式 微信支付\n自动续费 下次扣款 2025-09-08\n"
                     u"如需取消请在 24 小时前操作\n感谢您的支持"_s;

void addAll() {
    const struct {
        const char *name;
        QString text;
    } cases[] = {
        {"bill", bill},
        {"nothing", QString()},
        {"digits", repeated(u"7"_s)},
        {"digitsAndDots", repeated(u"12345."_s)},
        {"digitsThenSpaces", QString(megabyte / 2, u'7') + QString(megabyte / 2, u' ')},
        {"digitSpaceDigitSpace", repeated(u"1 "_s)},
        {"digitAndManySpaces", repeated(u'1' + QString(1000, u' '))},
        {"spaces", repeated(u" "_s)},
        {"letters", repeated(u"a"_s)},
        {"lettersInShortLines", repeated(u"ab\n"_s)},
        {"lettersInLongLines", repeated(QString(30, u'Q') + u'\n')},
        {"cyrillicInShortLines", repeated(u"ЖЖ\n"_s)},
        {"hexadecimalWithHyphens", repeated(u"abcdef0123-4567-89ab-"_s)},
        {"hexadecimalWithoutHyphens", repeated(u"abcdef0123456789"_s)},
        {"accountNamesInLines", repeated(u"user_12345\n"_s)},
        {"domainsAlmost", repeated(u"foo-bar.c"_s)},
        {"oneLineOfBills", repeated(QString(bill).replace(u'\n', u' '))},
        {"manyBills", repeated(bill + u'\n')},
        {"newlines", repeated(u"\n"_s)},
        {"blankLines", repeated(u" \n"_s)},
        {"combiningMarks", u"ab"_s + repeated(u"\u0301"_s)},
        {"emojiChain", repeated(u"👩\u200D"_s)},
        {"flags", repeated(u"🇨🇳"_s)},
        {"prices", repeated(u"$1"_s)},
        {"pricesInYuan", repeated(u"1元"_s)},
        {"signs", repeated(u"¥"_s)},
        {"datesAlmost", repeated(u"2025-12-"_s)},
        {"wordsAlmost", repeated(u"subscriptio"_s)},
        {"dottedCapitals", repeated(u"İ"_s)},
        {"sigmas", repeated(u"Σ"_s)},
        {"loneSurrogates", repeated(QString(QChar(0xD83D)))},
    };
    for (const auto &[name, text] : cases)
        benchmark::RegisterBenchmark(name, [text = text](benchmark::State &state) {
            parse(state, text);
        })->Unit(benchmark::kMicrosecond);
}

} // namespace

} // namespace tovarin

int main(int argc, char **argv) {
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME"})
        qputenv(variable, home.path().toLocal8Bit());
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    tovarin::addAll();
    benchmark::RunSpecifiedBenchmarks();
}
