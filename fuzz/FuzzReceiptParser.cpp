// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/LocalizationManager.h"
#include "fuzz/Require.h"
#include "model/CurrencyRates.h"
#include "model/SubscriptionJson.h"
#include "scan/parser/Graphemes.h"
#include "scan/parser/NoiseLines.h"
#include "scan/parser/ReceiptParser.h"

#include <QTimeZone>

#include <algorithm>
#include <cmath>
#include <cstdint>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class FixedClock final : public Clock {
public:
    Instant now() const override { return std::chrono::sys_days(2025y / 11 / 21) + 12h; }
};

/// Any bytes are a text: of UTF-16 units, so that broken surrogates come up, when the first byte is
/// odd, and of UTF-8 otherwise.
QString toText(const std::uint8_t *data, std::size_t size) {
    if (size == 0)
        return {};
    const bool isUtf16 = data[0] % 2 == 1;
    ++data;
    --size;
    if (!isUtf16)
        return QString::fromUtf8(reinterpret_cast<const char *>(data),
                                 static_cast<qsizetype>(size));
    QString text;
    for (std::size_t i = 0; i + 1 < size; i += 2)
        text += QChar(static_cast<char16_t>(data[i] | data[i + 1] << 8));
    return text;
}

void checkCurrency(const Subscription &draft) {
    // A Kelvin sign is a k when letter case does not matter.
    const QString code = QString(draft.currency).replace(QChar(0x212A), u'K');
    require(std::ranges::count(CurrencyRates::supported, QStringView(code)) == 1);
    require(std::isfinite(draft.amount) && draft.amount >= 0);
    require(draft.amount > 0 || draft.currency == u"CNY");
}

void checkName(const QString &name, const QString &text) {
    if (name.isEmpty())
        return;
    const int length = ReceiptParser::GraphemeCounter().count(name, 30);
    require(length >= 2 && length <= 30);
    require(!ReceiptParser::isNoise(name));
    require(!name.contains(u'\n'));
    for (const QStringView character : {QStringView(name).first(1), QStringView(name).last(1)})
        require(!QStringView(u" ,，·-—:：").contains(character));
    require(text.contains(name.front()) && text.contains(name.back()));
}

void checkNotes(const QString &notes, const QString &text) {
    if (text.isEmpty()) {
        require(notes.isEmpty());
        return;
    }
    const QStringList lines = text.split(u'\n', Qt::SkipEmptyParts);
    require(notes == u"📷 Scanned text:\n"_s +
                         lines.first(std::min<qsizetype>(lines.size(), 6)).join(u" / "_s));
}

void check(const QString &text, const UserCalendar &calendar) {
    const FixedClock clock;
    Subscription draft = ReceiptParser::parse(text, clock, calendar);
    require(!draft.id.isNull() && draft.isActive && !draft.serviceID);
    checkCurrency(draft);
    checkName(draft.name, text);
    checkNotes(draft.notes, text);
    require(draft.startDate == clock.now() ||
            draft.startDate == calendar.startOfDay(calendar.day(draft.startDate)));
    require(encodeSubscriptions({draft}).has_value());

    const Subscription again = ReceiptParser::parse(text, clock, calendar);
    require(again.id != draft.id);
    draft.id = again.id;
    require(draft == again);
}

} // namespace

} // namespace tovarin

/// Every text gives a draft that can be stored, of the form that is promised, and the same again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace tovarin;
    static const bool isEnglish = [] {
        LocalizationManager::shared().setLang(LocalizationManager::Lang::en);
        return !LocalizationManager::shared().isZh();
    }();
    static const UserCalendar gregorian(u"en_US"_s, UserZone(QTimeZone("America/Sao_Paulo")));
    static const UserCalendar persian(u"fa_IR"_s, UserZone(QTimeZone("Pacific/Kiritimati")));
    require(isEnglish);
    const QString text = toText(data, size);
    check(text, gregorian);
    check(text, persian);
    return 0;
}
