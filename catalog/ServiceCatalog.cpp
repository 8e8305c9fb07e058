// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceCatalog.h"

#include "catalog/CatalogKey.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ServiceCatalog {

namespace {

using enum BillingCycle;
using Presets = QList<ServicePreset>;
constexpr std::nullopt_t none = std::nullopt;

} // namespace

// Meant as they stand: some services are priced in dollars in China, too, one is paid by the year
// there only, and the amount of a preset need not be that of its first tier.
// clang-format off
const QList<ServicePreset> &china() {
    static const Presets table = {
    // id, nameZh, nameEn, icon, category, currency, amount, cycle, tiers: id, labelZh, labelEn, amount
    {u"iqiyi"_s,          u"爱奇艺 VIP"_s,       u"iQIYI VIP"_s,          u"play.rectangle"_s,                          u"影音"_s,    u"CNY"_s, 30,  monthly, none},
    {u"tencent-video"_s,  u"腾讯视频 VIP"_s,     u"Tencent Video VIP"_s,  u"play.tv"_s,                                 u"影音"_s,    u"CNY"_s, 30,  monthly, none},
    {u"youku"_s,          u"优酷 VIP"_s,         u"Youku VIP"_s,          u"play.rectangle"_s,                          u"影音"_s,    u"CNY"_s, 25,  monthly, none},
    {u"bilibili"_s,       u"哔哩哔哩大会员"_s,   u"Bilibili Premium"_s,   u"play.rectangle.fill"_s,                     u"影音"_s,    u"CNY"_s, 25,  monthly, none},
    {u"mgtv"_s,           u"芒果 TV 会员"_s,     u"Mango TV"_s,           u"tv"_s,                                      u"影音"_s,    u"CNY"_s, 22,  monthly, none},
    {u"netease-music"_s,  u"网易云音乐黑胶"_s,   u"NetEase Music VIP"_s,  u"music.note"_s,                              u"音乐"_s,    u"CNY"_s, 15,  monthly, none},
    {u"qq-music"_s,       u"QQ 音乐豪华绿钻"_s,  u"QQ Music VIP"_s,       u"music.quarternote.3"_s,                     u"音乐"_s,    u"CNY"_s, 15,  monthly, none},
    {u"weread"_s,         u"微信读书 VIP"_s,     u"WeRead VIP"_s,         u"book"_s,                                    u"阅读"_s,    u"CNY"_s, 19,  monthly, none},
    {u"zhihu"_s,          u"知乎盐选会员"_s,     u"Zhihu Yanxuan"_s,      u"text.book.closed"_s,                        u"阅读"_s,    u"CNY"_s, 19,  monthly, none},
    {u"baidu-pan"_s,      u"百度网盘 SVIP"_s,    u"Baidu Netdisk SVIP"_s, u"icloud"_s,                                  u"云存储"_s,  u"CNY"_s, 30,  monthly, none},
    {u"aliyun-pan"_s,     u"阿里云盘超级会员"_s, u"Aliyun Drive"_s,       u"externaldrive"_s,                           u"云存储"_s,  u"CNY"_s, 20,  monthly, none},
    {u"icloud-cn"_s,      u"iCloud+"_s,          u"iCloud+"_s,            u"icloud.fill"_s,                             u"云存储"_s,  u"CNY"_s, 6,   monthly, {{{u"50"_s, u"50GB"_s, u"50GB"_s, 6}, {u"200"_s, u"200GB"_s, u"200GB"_s, 21}, {u"2tb"_s, u"2TB"_s, u"2TB"_s, 68}}}},
    {u"apple-music-cn"_s, u"Apple Music"_s,      u"Apple Music"_s,        u"music.note.list"_s,                         u"音乐"_s,    u"CNY"_s, 11,  monthly, none},
    {u"apple-tv-cn"_s,    u"Apple TV+"_s,        u"Apple TV+"_s,          u"appletv"_s,                                 u"影音"_s,    u"CNY"_s, 25,  monthly, none},
    {u"chatgpt-cn"_s,     u"ChatGPT"_s,          u"ChatGPT"_s,            u"sparkles"_s,                                u"AI/工具"_s, u"USD"_s, 20,  monthly, {{{u"go"_s, u"Go"_s, u"Go"_s, 8}, {u"plus"_s, u"Plus"_s, u"Plus"_s, 20}, {u"custom"_s, u"其他"_s, u"Other"_s, 0}}}},
    {u"jianying"_s,       u"剪映 VIP"_s,         u"CapCut VIP"_s,         u"scissors"_s,                                u"软件"_s,    u"CNY"_s, 30,  monthly, none},
    {u"wps"_s,            u"WPS 超级会员"_s,     u"WPS Premium"_s,        u"doc.text"_s,                                u"软件"_s,    u"CNY"_s, 15,  monthly, none},
    {u"m365-cn"_s,        u"Microsoft 365"_s,    u"Microsoft 365"_s,      u"m.square"_s,                                u"软件"_s,    u"CNY"_s, 398, yearly,  none},
    {u"cursor-cn"_s,      u"Cursor"_s,           u"Cursor"_s,             u"chevron.left.forwardslash.chevron.right"_s, u"AI/工具"_s, u"USD"_s, 20,  monthly, {{{u"pro"_s, u"Pro"_s, u"Pro"_s, 20}, {u"ultra"_s, u"Ultra"_s, u"Ultra"_s, 200}, {u"custom"_s, u"其他"_s, u"Other"_s, 0}}}},
    {u"notion-cn"_s,      u"Notion"_s,           u"Notion"_s,             u"square.grid.2x2"_s,                         u"AI/工具"_s, u"USD"_s, 10,  monthly, {{{u"plus"_s, u"Plus"_s, u"Plus"_s, 10}, {u"business"_s, u"Business"_s, u"Business"_s, 20}, {u"custom"_s, u"其他"_s, u"Other"_s, 0}}}},
    };
    return table;
}

const QList<ServicePreset> &global() {
    static const Presets table = {
    {u"netflix"_s,     u"Netflix"_s,              u"Netflix"_s,              u"play.rectangle"_s,                          u"影音"_s,    u"USD"_s, 15.49, monthly, none},
    {u"spotify"_s,     u"Spotify Premium"_s,      u"Spotify Premium"_s,      u"music.note"_s,                              u"音乐"_s,    u"USD"_s, 11.99, monthly, none},
    {u"youtube"_s,     u"YouTube Premium"_s,      u"YouTube Premium"_s,      u"play.rectangle.fill"_s,                     u"影音"_s,    u"USD"_s, 13.99, monthly, none},
    {u"disney"_s,      u"Disney+"_s,              u"Disney+"_s,              u"sparkles.tv"_s,                             u"影音"_s,    u"USD"_s, 13.99, monthly, none},
    {u"max"_s,         u"Max"_s,                  u"Max"_s,                  u"tv"_s,                                      u"影音"_s,    u"USD"_s, 16.99, monthly, none},
    {u"apple-music"_s, u"Apple Music"_s,          u"Apple Music"_s,          u"music.note.list"_s,                         u"音乐"_s,    u"USD"_s, 10.99, monthly, none},
    {u"apple-tv"_s,    u"Apple TV+"_s,            u"Apple TV+"_s,            u"appletv"_s,                                 u"影音"_s,    u"USD"_s, 9.99,  monthly, none},
    {u"icloud"_s,      u"iCloud+"_s,              u"iCloud+"_s,              u"icloud.fill"_s,                             u"云存储"_s,  u"USD"_s, 2.99,  monthly, {{{u"50"_s, u"50GB"_s, u"50GB"_s, 0.99}, {u"200"_s, u"200GB"_s, u"200GB"_s, 2.99}, {u"2tb"_s, u"2TB"_s, u"2TB"_s, 9.99}}}},
    {u"chatgpt"_s,     u"ChatGPT"_s,              u"ChatGPT"_s,              u"sparkles"_s,                                u"AI/工具"_s, u"USD"_s, 20,    monthly, {{{u"go"_s, u"Go"_s, u"Go"_s, 8}, {u"plus"_s, u"Plus"_s, u"Plus"_s, 20}, {u"custom"_s, u"其他"_s, u"Other"_s, 0}}}},
    {u"claude"_s,      u"Claude"_s,               u"Claude"_s,               u"bubble.left.and.bubble.right"_s,            u"AI/工具"_s, u"USD"_s, 20,    monthly, {{{u"pro"_s, u"Pro"_s, u"Pro"_s, 20}, {u"max"_s, u"Max"_s, u"Max"_s, 100}, {u"custom"_s, u"其他"_s, u"Other"_s, 0}}}},
    {u"copilot"_s,     u"GitHub Copilot"_s,       u"GitHub Copilot"_s,       u"chevron.left.forwardslash.chevron.right"_s, u"AI/工具"_s, u"USD"_s, 10,    monthly, none},
    {u"cursor"_s,      u"Cursor"_s,               u"Cursor"_s,               u"cursorarrow.rays"_s,                        u"AI/工具"_s, u"USD"_s, 20,    monthly, {{{u"pro"_s, u"Pro"_s, u"Pro"_s, 20}, {u"ultra"_s, u"Ultra"_s, u"Ultra"_s, 200}, {u"custom"_s, u"其他"_s, u"Other"_s, 0}}}},
    {u"notion"_s,      u"Notion"_s,               u"Notion"_s,               u"square.grid.2x2"_s,                         u"AI/工具"_s, u"USD"_s, 10,    monthly, {{{u"plus"_s, u"Plus"_s, u"Plus"_s, 10}, {u"business"_s, u"Business"_s, u"Business"_s, 20}, {u"custom"_s, u"其他"_s, u"Other"_s, 0}}}},
    {u"figma"_s,       u"Figma Professional"_s,   u"Figma Professional"_s,   u"pencil.and.outline"_s,                      u"软件"_s,    u"USD"_s, 15,    monthly, none},
    {u"adobe"_s,       u"Adobe Creative Cloud"_s, u"Adobe Creative Cloud"_s, u"paintbrush"_s,                              u"软件"_s,    u"USD"_s, 59.99, monthly, none},
    {u"m365"_s,        u"Microsoft 365"_s,        u"Microsoft 365"_s,        u"m.square"_s,                                u"软件"_s,    u"USD"_s, 9.99,  monthly, none},
    {u"dropbox"_s,     u"Dropbox Plus"_s,         u"Dropbox Plus"_s,         u"shippingbox"_s,                             u"云存储"_s,  u"USD"_s, 11.99, monthly, none},
    {u"google-one"_s,  u"Google One"_s,           u"Google One"_s,           u"externaldrive.fill"_s,                      u"云存储"_s,  u"USD"_s, 2.99,  monthly, none},
    {u"setapp"_s,      u"Setapp"_s,               u"Setapp"_s,               u"app.gift"_s,                                u"软件"_s,    u"USD"_s, 9.99,  monthly, none},
    {u"1password"_s,   u"1Password"_s,            u"1Password"_s,            u"key.fill"_s,                                u"软件"_s,    u"USD"_s, 2.99,  monthly, none},
    {u"nordvpn"_s,     u"NordVPN"_s,              u"NordVPN"_s,              u"network"_s,                                 u"软件"_s,    u"USD"_s, 12.99, monthly, none},
    };
    return table;
}
// clang-format on

namespace {

/// The names of a preset as they are compared.
struct Keys {
    const ServicePreset *preset;
    QString zh;
    QString en;

    qsizetype longest() const { return std::max(zh.size(), en.size()); }

    bool match(const QString &key) const {
        return key == zh || key == en || beginAlike(key, zh) || beginAlike(key, en);
    }

    static bool beginAlike(const QString &a, const QString &b) {
        return a.startsWith(b) || b.startsWith(a);
    }
};

/// Of all presets, in the order of the search.
const QList<Keys> &allKeys() {
    static const QList<Keys> all = [] {
        QList<Keys> keys;
        for (const Presets &list : {china(), global()}) {
            for (const ServicePreset &preset : list)
                keys.append({&preset, catalogKey(preset.nameZh, preset.nameZh.size()),
                             catalogKey(preset.nameEn, preset.nameEn.size())});
        }
        return keys;
    }();
    return all;
}

/// A key of this length tells whether it is longer than any of the catalog's.
qsizetype telling() {
    static const qsizetype length = std::ranges::max(allKeys(), {}, &Keys::longest).longest() + 1;
    return length;
}

} // namespace

const QList<ServicePreset> &presets(ServiceRegion region) {
    return region == ServiceRegion::china ? china() : global();
}

const ServicePreset *preset(const std::optional<QString> &id) {
    if (!id)
        return nullptr;
    for (const ServiceRegion region : allServiceRegions) {
        const Presets &list = presets(region);
        const auto found = std::ranges::find(list, *id, &ServicePreset::id);
        if (found != list.end())
            return &*found;
    }
    return nullptr;
}

const ServicePreset *preset(const Subscription &subscription) {
    if (const ServicePreset *found = preset(subscription.serviceID))
        return found;
    const QString key = catalogKey(subscription.name, telling());
    if (key.isEmpty())
        return nullptr;
    const auto found =
        std::ranges::find_if(allKeys(), [&key](const Keys &keys) { return keys.match(key); });
    return found == allKeys().end() ? nullptr : found->preset;
}

} // namespace tovarin::ServiceCatalog
