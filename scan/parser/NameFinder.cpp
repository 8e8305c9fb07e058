// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/NameFinder.h"

#include "model/Blanks.h"
#include "scan/parser/Expression.h"
#include "scan/parser/Graphemes.h"
#include "scan/parser/NoiseLines.h"
#include "scan/parser/Words.h"

#include <QStringTokenizer>

namespace tovarin::ReceiptParser {

namespace {

constexpr Word brands[] = {u"netflix", u"spotify", u"youtube",  u"disney",      u"hbo",
                           u"chatgpt", u"openai",  u"claude",   u"midjourney",  u"gemini",
                           u"copilot", u"cursor",  u"notion",   u"figma",       u"adobe",
                           u"office",  u"icloud",  u"dropbox",  u"setapp",      u"kindle",
                           u"steam",   u"xbox",    u"bilibili", u"爱奇艺",      u"腾讯视频",
                           u"优酷",    u"网易云",  u"qq音乐",   u"apple music", u"百度网盘"};

constexpr Word planWords[] = {u"plus", u"pro",        u"premium",     u"vip",  u"会员",
                              u"订阅", u"membership", u"套餐",        u"常规", u"标准",
                              u"高级", u"plan",       u"subscription"};

constexpr int brandScore = 5;
constexpr int planScore = 3;
constexpr int domainScore = 3;
constexpr int accountNameScore = -2;
constexpr int firstLines = 5;

constexpr int shortest = 2;
constexpr int longest = 30;
constexpr int longestUnscored = 24;

bool isSeparator(QChar c) {
    return QStringView(u" ,，·-—:：").contains(c);
}

QStringView trimmed(QStringView text, bool (*isTrimmed)(QChar)) {
    while (!text.isEmpty() && isTrimmed(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isTrimmed(text.back()))
        text.chop(1);
    return text;
}

const Expression &price() {
    static const Expression expression(uR"([¥￥$€£]\s?[0-9]+(?:\.[0-9]{1,2})?)");
    return expression;
}

/// One character before the dot is enough to tell that there are some.
const Expression &domain() {
    static const Expression expression(uR"([A-Za-z0-9-]\.(com|net|io|app|co|cn|org))");
    return expression;
}

const Expression &chinese() {
    static const Expression expression(uR"(\p{Han})");
    return expression;
}

const Expression &latin() {
    static const Expression expression(u"[A-Za-z]");
    return expression;
}

const Expression &accountName() {
    static const Expression expression(u"^[a-z0-9_.-]{5,}$");
    return expression;
}

class Cleaner {
public:
    /// The line without blanks around it, without prices, and without the separators then left at
    /// its ends. The result lives until the next call, and no longer than the line.
    QStringView clean(QStringView line) {
        const QStringView all = trimmed(line, isBlank);
        return trimmed(withoutPrices(all), isSeparator);
    }

private:
    QStringView withoutPrices(QStringView line) {
        m_price.begin(line);
        if (!m_price.next())
            return line;
        m_rest.clear();
        qsizetype kept = 0;
        do {
            m_rest.append(line.sliced(kept, m_price.start() - kept));
            kept = m_price.end();
        } while (m_price.next());
        m_rest.append(line.sliced(kept));
        return m_rest;
    }

    Search m_price{price()};
    QString m_rest;
};

class Scorer {
public:
    int score(QStringView line, QStringView lower, bool isAmongFirst) {
        int score = 0;
        if (containsAny(lower, brands))
            score = brandScore;
        if (containsAny(lower, planWords))
            score += planScore;
        if (m_domain.isIn(line))
            score += domainScore;
        if (m_chinese.isIn(line))
            ++score;
        if (m_latin.isIn(line))
            ++score;
        if (isAmongFirst)
            ++score;
        if (m_accountName.isIn(line))
            score += accountNameScore;
        return score;
    }

private:
    Search m_domain{domain()};
    Search m_chinese{chinese()};
    Search m_latin{latin()};
    Search m_accountName{accountName()};
};

} // namespace

std::optional<QString> detectName(const QString &in) {
    Cleaner cleaner;
    GraphemeCounter graphemes;
    NoiseTest noise;
    Scorer scorer;

    std::optional<QString> best;
    int bestScore = 0;
    std::optional<QString> unscored;
    int index = -1;
    for (const QStringView piece : qTokenize(in, u'\n', Qt::SkipEmptyParts)) {
        ++index;
        const QStringView line = cleaner.clean(piece);
        const int length = graphemes.count(line, longest);
        if (length < shortest || length > longest)
            continue;
        const QString lower = lowerCased(line);
        if (noise.isNoise(line, lower))
            continue;
        const int score = scorer.score(line, lower, index < firstLines);
        if (score > bestScore) {
            best = line.toString();
            bestScore = score;
        }
        if (!unscored && length <= longestUnscored)
            unscored = line.toString();
    }
    return best ? best : unscored;
}

} // namespace tovarin::ReceiptParser
