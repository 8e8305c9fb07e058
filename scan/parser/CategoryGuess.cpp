// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/CategoryGuess.h"

#include "scan/parser/Words.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

namespace {

constexpr Word aiWords[] = {u"chatgpt", u"openai", u"claude", u"gpt",   u"midjourney",
                            u"copilot", u"gemini", u"ai",     u"cursor"};
constexpr Word cloudWords[] = {u"icloud",  u"云",   u"storage", u"drive",
                               u"dropbox", u"网盘", u"百度网盘"};
constexpr Word musicWords[] = {u"music", u"音乐", u"spotify", u"网易云", u"qq音乐", u"apple music"};
constexpr Word videoWords[] = {u"video",   u"视频",     u"影音", u"爱奇艺",  u"腾讯视频", u"优酷",
                               u"netflix", u"bilibili", u"b站",  u"youtube", u"disney"};
constexpr Word gameWords[] = {u"game", u"游戏", u"steam", u"xbox", u"ps plus"};
constexpr Word readingWords[] = {u"读", u"kindle", u"book", u"阅读"};
constexpr Word softwareWords[] = {u"软件", u"app", u"software", u"adobe", u"office", u"setapp"};

struct Group {
    QStringView category;
    std::span<const Word> words;
};

constexpr Group groups[] = {
    {u"AI/工具", aiWords}, {u"云存储", cloudWords}, {u"音乐", musicWords},    {u"影音", videoWords},
    {u"游戏", gameWords},  {u"阅读", readingWords}, {u"软件", softwareWords},
};

} // namespace

QString guessCategory(const QString &name, const QString &text) {
    const QString lower = lowerCased(name + u' ' + text);
    for (const Group &group : groups) {
        if (containsAny(lower, group.words))
            return group.category.toString();
    }
    return u"其他"_s;
}

} // namespace tovarin::ReceiptParser
