// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/ConfusableLetters.h"

#include "scan/recognition/Letters.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

namespace tovarin {

namespace {

// Within one of these groups the letters of many fonts look the same.
constexpr std::array<QStringView, 3> confusables = {u"Il1|", u"O0", u"S$5"};

// Words of services and of their bills with such letters in them, as they are written. Sorted.
constexpr QStringView lexicon[] = {
    u"AI",        u"API",      u"All",      u"Annual",      u"App",     u"Apple",
    u"Billed",    u"Billing",  u"Claude",   u"Cloud",       u"Company", u"DAZN",
    u"DeepL",     u"Disney",   u"ERNIE",    u"GLM",         u"Grok",    u"HBO",
    u"ID",        u"IDE",      u"IELTS",    u"INVOICE",     u"IP",      u"IPTV",
    u"IQ",        u"ISBN",     u"IT",       u"Illustrator", u"In",      u"Inc",
    u"Include",   u"Included", u"Includes", u"Individual",  u"Info",    u"Information",
    u"Instagram", u"Intel",    u"Invoice",  u"Is",          u"Issue",   u"Issued",
    u"It",        u"Item",     u"Items",    u"LTE",         u"OK",      u"October",
    u"Office",    u"On",       u"One",      u"Online",      u"Only",    u"OpenAI",
    u"Order",     u"TOTAL",    u"VIP",      u"XAI",         u"iCloud",  u"iOS",
    u"iPad",      u"iPhone",   u"iQIYI",    u"xAI"};

bool isKnown(QStringView word) {
    return std::ranges::find(lexicon, word) != std::end(lexicon);
}

// Words that "Al" stands before as a name or an article, so that it is no AI.
constexpr QStringView afterAl[] = {u"Dente", u"Fresco", u"Jazeera", u"Pastor"};

/// Whether the word up to `end` is such an "Al".
bool isProperAl(const Glyphs &glyphs, Glyphs::const_iterator begin, Glyphs::const_iterator end) {
    if (textOf(Glyphs(begin, end)) != QStringLiteral("Al"))
        return false;
    const QString rest = textOf(Glyphs(end, glyphs.end())).trimmed();
    return std::ranges::any_of(afterAl,
                               [&rest](QStringView word) { return rest.startsWith(word); });
}

QStringView groupOf(const QString &character) {
    for (const QStringView group : confusables) {
        if (character.size() == 1 && group.contains(character.front()))
            return group;
    }
    return {};
}

/// The characters that a glyph may be exchanged for: those that look like it and that the model
/// held possible.
QStringList alternatives(const Glyph &glyph) {
    const QStringView group = groupOf(glyph.text);
    QStringList result;
    for (const GlyphReading &reading : glyph.others) {
        if (reading.text.size() == 1 && group.contains(reading.text.front()))
            result.append(reading.text);
    }
    return result;
}

bool isOfWord(const Glyph &glyph) {
    const char32_t c = codePoint(glyph.text);
    return isLatinLetter(c) || isDigit(c) || c == U'|' || c == U'$';
}

/// The one known word that the glyphs may spell if one or more are exchanged.
std::optional<QStringList> knownSpelling(std::span<const Glyph> word) {
    constexpr std::size_t mostSpellings = 64;
    std::vector<QStringList> spellings = {{}};
    for (const Glyph &glyph : word) {
        QStringList choices = alternatives(glyph);
        choices.prepend(glyph.text);
        std::vector<QStringList> longer;
        for (const QStringList &spelling : spellings) {
            for (const QString &choice : choices)
                longer.push_back(spelling + QStringList{choice});
        }
        if (longer.size() > mostSpellings)
            return std::nullopt;
        spellings = std::move(longer);
    }
    std::optional<QStringList> found;
    for (const QStringList &spelling : spellings) {
        if (!isKnown(spelling.join(QString())))
            continue;
        if (found)
            return std::nullopt;
        found = spelling;
    }
    return found;
}

/// A currency sign taken for a letter: an S between US, HK and the like and a digit.
void settleDollars(Glyphs &glyphs) {
    for (std::size_t i = 2; i + 1 < glyphs.size(); ++i) {
        const QString country = glyphs[i - 2].text + glyphs[i - 1].text;
        if ((country == QStringLiteral("US") || country == QStringLiteral("HK")) &&
            isDigit(codePoint(glyphs[i + 1].text)) &&
            alternatives(glyphs[i]).contains(QStringLiteral("$")))
            glyphs[i].text = QStringLiteral("$");
    }
}

/// Exchanges a glyph if the model held the other character possible.
void settle(Glyph &glyph, const QString &character) {
    if (alternatives(glyph).contains(character))
        glyph.text = character;
}

/// Exchanges a glyph for the capital of its letter if the model held that possible.
void settleCapital(Glyph &glyph) {
    const QString capital = glyph.text.toUpper();
    const auto isCapital = [&capital](const GlyphReading &reading) {
        return reading.text == capital;
    };
    if (std::ranges::any_of(glyph.others, isCapital))
        glyph.text = capital;
}

// What stands before prices in capitals, some of which differ from small letters in size only.
constexpr QStringView currencies[] = {u"CNY", u"RMB", u"USD", u"EUR", u"GBP",
                                      u"HKD", u"JPY", u"US$", u"HK$"};

/// A currency in small letters before a number.
void settleCurrencies(Glyphs &glyphs) {
    for (std::size_t first = 0; first + 3 < glyphs.size(); ++first) {
        if (first > 0 && isLatinLetter(codePoint(glyphs[first - 1].text)))
            continue;
        const auto begin = glyphs.begin() + static_cast<std::ptrdiff_t>(first);
        const QString currency = textOf(Glyphs(begin, begin + 3)).toUpper();
        const auto next = std::find_if(begin + 3, glyphs.end(), [](const Glyph &glyph) {
            return glyph.text != QStringLiteral(" ");
        });
        if (next != glyphs.end() && isDigit(codePoint(next->text)) &&
            std::ranges::find(currencies, currency) != std::end(currencies))
            std::for_each(begin, begin + 3, settleCapital);
    }
}

/// A quantity, "×2", whose sign was taken for a letter.
void settleTimes(Glyphs &glyphs) {
    const QString times = QStringLiteral("×");
    if (glyphs.size() < 2 || glyphs[0].text.toLower() != QStringLiteral("x"))
        return;
    const bool isQuantity = std::all_of(glyphs.begin() + 1, glyphs.end(), [](const Glyph &glyph) {
        return isDigit(codePoint(glyph.text)) || glyph.text == QStringLiteral(" ");
    });
    // Bills have both; less than this is held possible for every x.
    constexpr float likely = 0.1F;
    const auto isTimes = [&times](const GlyphReading &reading) {
        return reading.text == times && reading.confidence >= likely;
    };
    if (isQuantity && std::ranges::any_of(glyphs[0].others, isTimes))
        glyphs[0].text = times;
}

/// No word has a capital I amid small letters, but where a second word begins ("myInvoice").
void settleInner(std::span<Glyph> word) {
    for (std::size_t i = 1; i + 1 < word.size(); ++i) {
        if (word[i].text != QStringLiteral("I"))
            continue;
        const bool isAfterFirst = i == 1 && isLatinLetter(codePoint(word[0].text));
        const bool isAfterSmall = word[i - 1].text.at(0).isLower();
        const bool areSmall = std::ranges::all_of(
            word.subspan(i + 1), [](const Glyph &glyph) { return glyph.text.at(0).isLower(); });
        const bool mayBegin = isAfterSmall && QStringView(u"nmst").contains(word[i + 1].text.at(0));
        if ((isAfterFirst || isAfterSmall) && areSmall && !mayBegin)
            settle(word[i], QStringLiteral("l"));
    }
}

/// No word begins with a small l and a consonant, or with a zero and letters.
void settleInitial(std::span<Glyph> word) {
    if (word.size() < 3)
        return;
    const auto isLetter = [&word](std::size_t i) { return isLatinLetter(codePoint(word[i].text)); };
    const QString second = word[1].text;
    if (word[0].text == QStringLiteral("l") && isLetter(1) && second.at(0).isLower() &&
        !QStringView(u"aeiouyáéíóúàèêëîôöü").contains(second.at(0)))
        settle(word[0], QStringLiteral("I"));
    else if (word[0].text == QStringLiteral("0") && isLetter(1) && isLetter(2))
        settle(word[0], QStringLiteral("O"));
}

// Names of services with characters that the model mixes up.
constexpr QStringView names[] = {u"哔哩哔哩", u"优酷",   u"爱奇艺",   u"网易云音乐", u"百度网盘",
                                 u"腾讯视频", u"芒果TV", u"喜马拉雅", u"知乎盐选",   u"阿里云盘"};

/// How many characters of a name stand at the glyph; none when another one is neither it nor may be
/// it.
qsizetype matches(const Glyphs &glyphs, std::size_t first, QStringView name) {
    qsizetype count = 0;
    for (qsizetype i = 0; i < name.size(); ++i) {
        const Glyph &glyph = glyphs[first + static_cast<std::size_t>(i)];
        const auto isThis = [&](const GlyphReading &reading) { return reading.text == name[i]; };
        if (glyph.text == name[i])
            ++count;
        else if (std::ranges::none_of(glyph.others, isThis))
            return 0;
    }
    return count;
}

void settleNames(Glyphs &glyphs) {
    for (const QStringView name : names) {
        const auto size = static_cast<std::size_t>(name.size());
        for (std::size_t first = 0; first + size <= glyphs.size(); ++first) {
            const qsizetype count = matches(glyphs, first, name);
            if (2 * count < name.size() || count == name.size())
                continue;
            for (std::size_t i = 0; i < size; ++i)
                glyphs[first + i].text = name[static_cast<qsizetype>(i)];
        }
    }
}

} // namespace

Glyphs withSettledLetters(Glyphs glyphs) {
    settleDollars(glyphs);
    settleCurrencies(glyphs);
    settleTimes(glyphs);
    settleNames(glyphs);
    for (auto begin = glyphs.begin(); begin != glyphs.end();) {
        if (!isOfWord(*begin)) {
            ++begin;
            continue;
        }
        const auto end = std::find_if_not(begin, glyphs.end(), isOfWord);
        const std::span word(begin, end);
        const auto spelling = isProperAl(glyphs, begin, end) ? std::nullopt : knownSpelling(word);
        if (spelling) {
            for (qsizetype i = 0; i < spelling->size(); ++i)
                begin[i].text = spelling->at(i);
        } else {
            settleInitial(word);
            settleInner(word);
        }
        begin = end;
    }
    return glyphs;
}

} // namespace tovarin
