// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceCatalog.h"

#include "model/Format.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Lang = tovarin::LocalizationManager::Lang;

namespace tovarin {

namespace {

QString numberText(double number) {
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

QString tiersText(const ServicePreset &preset) {
    if (!preset.tiers)
        return u"-"_s;
    QStringList texts;
    for (const ServiceTier &tier : *preset.tiers)
        texts.append(
            u"%1 %2/%3 %4"_s.arg(tier.id, tier.labelZh, tier.labelEn, numberText(tier.amount)));
    return texts.join(u"; "_s);
}

QString tableText(const QList<ServicePreset> &presets) {
    QString text;
    for (const ServicePreset &p : presets)
        text += QStringList{p.id,
                            p.nameZh,
                            p.nameEn,
                            p.icon,
                            p.category,
                            p.currency,
                            numberText(p.amount),
                            rawValue(p.cycle),
                            tiersText(p)}
                    .join(u" | "_s) +
                u'\n';
    return text;
}

/// The id of the preset that a subscription of this name belongs to; "none" without one.
QString found(const QString &name, const std::optional<QString> &serviceID = std::nullopt) {
    Subscription sub = sampleSubscription(name);
    sub.serviceID = serviceID;
    const ServicePreset *preset = ServiceCatalog::preset(sub);
    return preset ? preset->id : u"none"_s;
}

QString foundById(const std::optional<QString> &id) {
    const ServicePreset *preset = ServiceCatalog::preset(id);
    return preset ? preset->id : u"none"_s;
}

QList<ServicePreset> everyPreset() {
    return ServiceCatalog::china() + ServiceCatalog::global();
}

} // namespace

TEST(ServiceCatalogTest, HoldsTheServicesOfChina) {
    EXPECT_EQ(tableText(ServiceCatalog::china()), QString::fromUtf8(R"(
iqiyi | 爱奇艺 VIP | iQIYI VIP | play.rectangle | 影音 | CNY | 30 | monthly | -
tencent-video | 腾讯视频 VIP | Tencent Video VIP | play.tv | 影音 | CNY | 30 | monthly | -
youku | 优酷 VIP | Youku VIP | play.rectangle | 影音 | CNY | 25 | monthly | -
bilibili | 哔哩哔哩大会员 | Bilibili Premium | play.rectangle.fill | 影音 | CNY | 25 | monthly | -
mgtv | 芒果 TV 会员 | Mango TV | tv | 影音 | CNY | 22 | monthly | -
netease-music | 网易云音乐黑胶 | NetEase Music VIP | music.note | 音乐 | CNY | 15 | monthly | -
qq-music | QQ 音乐豪华绿钻 | QQ Music VIP | music.quarternote.3 | 音乐 | CNY | 15 | monthly | -
weread | 微信读书 VIP | WeRead VIP | book | 阅读 | CNY | 19 | monthly | -
zhihu | 知乎盐选会员 | Zhihu Yanxuan | text.book.closed | 阅读 | CNY | 19 | monthly | -
baidu-pan | 百度网盘 SVIP | Baidu Netdisk SVIP | icloud | 云存储 | CNY | 30 | monthly | -
aliyun-pan | 阿里云盘超级会员 | Aliyun Drive | externaldrive | 云存储 | CNY | 20 | monthly | -
icloud-cn | iCloud+ | iCloud+ | icloud.fill | 云存储 | CNY | 6 | monthly | 50 50GB/50GB 6; 200 200GB/200GB 21; 2tb 2TB/2TB 68
apple-music-cn | Apple Music | Apple Music | music.note.list | 音乐 | CNY | 11 | monthly | -
apple-tv-cn | Apple TV+ | Apple TV+ | appletv | 影音 | CNY | 25 | monthly | -
chatgpt-cn | ChatGPT | ChatGPT | sparkles | AI/工具 | USD | 20 | monthly | go Go/Go 8; plus Plus/Plus 20; custom 其他/Other 0
jianying | 剪映 VIP | CapCut VIP | scissors | 软件 | CNY | 30 | monthly | -
wps | WPS 超级会员 | WPS Premium | doc.text | 软件 | CNY | 15 | monthly | -
m365-cn | Microsoft 365 | Microsoft 365 | m.square | 软件 | CNY | 398 | yearly | -
cursor-cn | Cursor | Cursor | chevron.left.forwardslash.chevron.right | AI/工具 | USD | 20 | monthly | pro Pro/Pro 20; ultra Ultra/Ultra 200; custom 其他/Other 0
notion-cn | Notion | Notion | square.grid.2x2 | AI/工具 | USD | 10 | monthly | plus Plus/Plus 10; business Business/Business 20; custom 其他/Other 0
)")
                                                      .sliced(1));
}

TEST(ServiceCatalogTest, HoldsTheServicesOfTheWorld) {
    EXPECT_EQ(tableText(ServiceCatalog::global()), QString::fromUtf8(R"(
netflix | Netflix | Netflix | play.rectangle | 影音 | USD | 15.49 | monthly | -
spotify | Spotify Premium | Spotify Premium | music.note | 音乐 | USD | 11.99 | monthly | -
youtube | YouTube Premium | YouTube Premium | play.rectangle.fill | 影音 | USD | 13.99 | monthly | -
disney | Disney+ | Disney+ | sparkles.tv | 影音 | USD | 13.99 | monthly | -
max | Max | Max | tv | 影音 | USD | 16.99 | monthly | -
apple-music | Apple Music | Apple Music | music.note.list | 音乐 | USD | 10.99 | monthly | -
apple-tv | Apple TV+ | Apple TV+ | appletv | 影音 | USD | 9.99 | monthly | -
icloud | iCloud+ | iCloud+ | icloud.fill | 云存储 | USD | 2.99 | monthly | 50 50GB/50GB 0.99; 200 200GB/200GB 2.99; 2tb 2TB/2TB 9.99
chatgpt | ChatGPT | ChatGPT | sparkles | AI/工具 | USD | 20 | monthly | go Go/Go 8; plus Plus/Plus 20; custom 其他/Other 0
claude | Claude | Claude | bubble.left.and.bubble.right | AI/工具 | USD | 20 | monthly | pro Pro/Pro 20; max Max/Max 100; custom 其他/Other 0
copilot | GitHub Copilot | GitHub Copilot | chevron.left.forwardslash.chevron.right | AI/工具 | USD | 10 | monthly | -
cursor | Cursor | Cursor | cursorarrow.rays | AI/工具 | USD | 20 | monthly | pro Pro/Pro 20; ultra Ultra/Ultra 200; custom 其他/Other 0
notion | Notion | Notion | square.grid.2x2 | AI/工具 | USD | 10 | monthly | plus Plus/Plus 10; business Business/Business 20; custom 其他/Other 0
figma | Figma Professional | Figma Professional | pencil.and.outline | 软件 | USD | 15 | monthly | -
adobe | Adobe Creative Cloud | Adobe Creative Cloud | paintbrush | 软件 | USD | 59.99 | monthly | -
m365 | Microsoft 365 | Microsoft 365 | m.square | 软件 | USD | 9.99 | monthly | -
dropbox | Dropbox Plus | Dropbox Plus | shippingbox | 云存储 | USD | 11.99 | monthly | -
google-one | Google One | Google One | externaldrive.fill | 云存储 | USD | 2.99 | monthly | -
setapp | Setapp | Setapp | app.gift | 软件 | USD | 9.99 | monthly | -
1password | 1Password | 1Password | key.fill | 软件 | USD | 2.99 | monthly | -
nordvpn | NordVPN | NordVPN | network | 软件 | USD | 12.99 | monthly | -
)")
                                                       .sliced(1));
}

TEST(ServiceCatalogTest, NamesEachPresetOnce) {
    QSet<QString> ids;
    for (const ServicePreset &preset : everyPreset()) {
        EXPECT_FALSE(ids.contains(preset.id)) << preset.id.toStdString();
        ids.insert(preset.id);
        EXPECT_NE(std::ranges::find(Format::categories, preset.category), Format::categories.end())
            << preset.id.toStdString();
    }
    EXPECT_EQ(ids.size(), 41);
}

TEST(ServiceCatalogTest, HasAListForEachRegion) {
    EXPECT_EQ(&ServiceCatalog::presets(ServiceRegion::china), &ServiceCatalog::china());
    EXPECT_EQ(&ServiceCatalog::presets(ServiceRegion::global), &ServiceCatalog::global());
}

TEST(ServiceCatalogTest, NamesTheRegionsInBothLanguages) {
    const auto labels = [] {
        QStringList texts;
        for (const ServiceRegion region : allServiceRegions)
            texts += {rawValue(region), label(region)};
        return texts;
    };
    {
        const LanguageScope zh(Lang::zh);
        EXPECT_EQ(labels(), QStringList({u"china"_s, u"国内常用"_s, u"global"_s, u"国际常用"_s}));
    }
    const LanguageScope en(Lang::en);
    EXPECT_EQ(labels(), QStringList({u"china"_s, u"China"_s, u"global"_s, u"Global"_s}));
}

TEST(ServiceCatalogTest, FindsAPresetByItsExactId) {
    for (const ServicePreset &preset : everyPreset())
        EXPECT_EQ(foundById(preset.id), preset.id);
    EXPECT_EQ(foundById(u"chatgpt"_s), u"chatgpt"_s);
    EXPECT_EQ(foundById(u"chatgpt-cn"_s), u"chatgpt-cn"_s);
    EXPECT_EQ(*ServiceCatalog::preset(u"chatgpt"_s), ServiceCatalog::global()[8]);
    for (const QString &id : {u"ChatGPT"_s, u"chatgpt "_s, u"zoom"_s, u""_s})
        EXPECT_EQ(foundById(id), u"none"_s) << id.toStdString();
    EXPECT_EQ(foundById(std::nullopt), u"none"_s);
}

TEST(ServiceCatalogTest, TrustsTheServiceIdBeforeTheName) {
    EXPECT_EQ(found(u"Netflix"_s, u"notion"_s), u"notion"_s);
    EXPECT_EQ(found(u"+ - ·"_s, u"notion"_s), u"notion"_s);
    EXPECT_EQ(found(u"Netflix"_s, u"no such service"_s), u"netflix"_s);
    EXPECT_EQ(found(u"Netflix"_s, u""_s), u"netflix"_s);
    EXPECT_EQ(found(u"Zoom"_s, u"no such service"_s), u"none"_s);
}

TEST(ServiceCatalogTest, FindsAPresetByEitherName) {
    EXPECT_EQ(found(u"爱奇艺 VIP"_s), u"iqiyi"_s);
    EXPECT_EQ(found(u"iQIYI VIP"_s), u"iqiyi"_s);
    EXPECT_EQ(found(u"芒果TV会员"_s), u"mgtv"_s);
    EXPECT_EQ(found(u"mango-tv"_s), u"mgtv"_s);
    EXPECT_EQ(found(u"disney+"_s), u"disney"_s);
    EXPECT_EQ(found(u"GitHub  Copilot!"_s), u"copilot"_s);
}

TEST(ServiceCatalogTest, FindsAPresetByACommonBeginning) {
    EXPECT_EQ(found(u"netflix premium"_s), u"netflix"_s);
    EXPECT_EQ(found(u"Spotify"_s), u"spotify"_s);
    EXPECT_EQ(found(u"哔哩"_s), u"bilibili"_s);
    EXPECT_EQ(found(u"爱奇艺VIP会员年卡"_s), u"iqiyi"_s);
    EXPECT_EQ(found(u"YouTube"_s), u"youtube"_s);
    EXPECT_EQ(found(u"tencent video VIP, second account"_s), u"tencent-video"_s);
    EXPECT_EQ(found(u"Maxwell"_s), u"max"_s);
    EXPECT_EQ(found(u"N"_s), u"netease-music"_s);
    EXPECT_EQ(found(u"1"_s), u"1password"_s);
    EXPECT_EQ(found(u"the netflix"_s), u"none"_s);
    EXPECT_EQ(found(u"flix"_s), u"none"_s);
}

TEST(ServiceCatalogTest, PrefersTheServicesOfChina) {
    EXPECT_EQ(found(u"Apple Music"_s), u"apple-music-cn"_s);
    EXPECT_EQ(found(u"Apple TV+"_s), u"apple-tv-cn"_s);
    EXPECT_EQ(found(u"iCloud+"_s), u"icloud-cn"_s);
    EXPECT_EQ(found(u"chat gpt"_s), u"chatgpt-cn"_s);
    EXPECT_EQ(found(u"Cursor"_s), u"cursor-cn"_s);
    EXPECT_EQ(found(u"Notion"_s), u"notion-cn"_s);
    EXPECT_EQ(found(u"Microsoft 365"_s), u"m365-cn"_s);
}

TEST(ServiceCatalogTest, PrefersTheEarlierPresetToTheBetterMatch) {
    // "Max" is a name of its own; a shorter name belongs to whoever comes first.
    EXPECT_EQ(found(u"Max"_s), u"max"_s);
    EXPECT_EQ(found(u"M"_s), u"mgtv"_s);
    EXPECT_EQ(found(u"Apple"_s), u"apple-music-cn"_s);
    EXPECT_EQ(found(u"i"_s), u"iqiyi"_s);
}

TEST(ServiceCatalogTest, FindsNothingWithoutAKey) {
    for (const QString &name : {u""_s, u"   "_s, u"+ - ·"_s, u"😀"_s, u"…、。"_s})
        EXPECT_EQ(found(name), u"none"_s) << name.toStdString();
}

TEST(ServiceCatalogTest, BearsNamesOfAnyLength) {
    EXPECT_EQ(found(u"Netflix"_s + QString(1'000'000, u'x')), u"netflix"_s);
    EXPECT_EQ(found(QString(1'000'000, u'-') + u"Netflix"_s), u"netflix"_s);
    EXPECT_EQ(found(QString(1'000'000, u'z')), u"none"_s);
}

} // namespace tovarin
