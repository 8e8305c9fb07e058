// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/QuickPickModel.h"

#include "app/LocalizationManager.h"
#include "catalog/ServiceCatalog.h"
#include "model/Blanks.h"
#include "model/Format.h"
#include "model/Store.h"
#include "platform/UserDefaults.h"

#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QList<ServiceTier> &tiersOf(const ServicePreset &preset) {
    static const QList<ServiceTier> none;
    return preset.tiers ? *preset.tiers : none;
}

std::optional<QString> firstTierID(const ServicePreset &preset) {
    const QList<ServiceTier> &tiers = tiersOf(preset);
    return tiers.isEmpty() ? std::nullopt : std::optional(tiers.first().id);
}

QStringList lowerCasedNames(const QList<Subscription> &subs) {
    QStringList names;
    names.reserve(subs.size());
    for (const Subscription &sub : subs)
        names.append(sub.name.toLower());
    return names;
}

} // namespace

std::optional<ServiceTier> PickedService::tier(const ServicePreset &of) const {
    const QList<ServiceTier> &tiers = tiersOf(of);
    const auto found =
        std::ranges::find_if(tiers, [this](const ServiceTier &tier) { return tier.id == tierID; });
    if (found != tiers.end())
        return *found;
    return tiers.isEmpty() ? std::nullopt : std::optional(tiers.first());
}

QuickPickModel::QuickPickModel(Store &store, const Clock &clock, const LocalizationManager &loc,
                               const ServiceLogo &logos, UserDefaults &defaults,
                               std::function<void()> onComplete, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_clock(clock)
    , m_loc(loc)
    , m_logos(logos)
    , m_defaults(defaults)
    , m_onComplete(std::move(onComplete))
    , m_cells(nullptr)
    , m_rows(logos) {
    connect(&store, &Store::subscriptionsDidChange, this, &QuickPickModel::showCells);
    connect(&loc, &LocalizationManager::langDidChange, this, &QuickPickModel::followLanguage);
    showCells();
}

bool QuickPickModel::isZh() const {
    return m_loc.isZh();
}

void QuickPickModel::setRegion(ServiceRegion region) {
    if (region == m_region)
        return;
    m_region = region;
    showCells();
    Q_EMIT regionChanged();
}

int QuickPickModel::regionIndex() const {
    return static_cast<int>(std::ranges::find(allServiceRegions, m_region) -
                            allServiceRegions.begin());
}

QStringList QuickPickModel::regionNames() const {
    QStringList names;
    for (const ServiceRegion region : allServiceRegions)
        names.append(label(region));
    return names;
}

void QuickPickModel::chooseRegion(int index) {
    const auto place = static_cast<std::size_t>(index);
    if (index >= 0 && place < allServiceRegions.size())
        setRegion(allServiceRegions[place]);
}

void QuickPickModel::toggle(const ServicePreset &preset) {
    if (m_selected.remove(preset.id) == 0)
        m_selected.insert(preset.id, {.preset = preset, .tierID = firstTierID(preset)});
    showCells();
    Q_EMIT selectedChanged();
}

void QuickPickModel::toggleCell(int cell) {
    const QList<QuickPickCells::Cell> &cells = m_cells.cells();
    if (cell >= 0 && cell < cells.size() && cells[cell].canBePicked())
        toggle(*ServiceCatalog::preset(cells[cell].presetID));
}

void QuickPickModel::chooseTier(int cell, int tier) {
    const QList<QuickPickCells::Cell> &cells = m_cells.cells();
    if (cell < 0 || cell >= cells.size())
        return;
    const auto picked = m_selected.find(cells[cell].presetID);
    if (picked == m_selected.end())
        return;
    const QList<ServiceTier> &tiers = tiersOf(picked->preset);
    if (tier < 0 || tier >= tiers.size())
        return;
    picked->tierID = tiers[tier].id;
    showCells();
    Q_EMIT selectedChanged();
}

QString QuickPickModel::cardPriceLabel(const ServicePreset &preset) const {
    const QList<ServiceTier> &tiers = tiersOf(preset);
    const auto picked = m_selected.constFind(preset.id);
    const bool isTicked = picked != m_selected.cend();
    const std::optional<ServiceTier> tier =
        (isTicked ? *picked : PickedService{.preset = preset, .tierID = {}}).tier(preset);
    const double amount = tier ? tier->amount : preset.amount;
    if (tier && amount <= 0)
        return isZh() ? u"金额自定"_s : u"Custom price"_s;
    const bool isMonthly = preset.cycle == BillingCycle::monthly;
    const QString price = Format::money(amount, preset.currency);
    const QString suffix =
        isZh() ? (isMonthly ? u"/月"_s : u"/年"_s) : (isMonthly ? u"/mo"_s : u"/yr"_s);
    if (isTicked || tiers.size() <= 1)
        return price + suffix;
    return isZh() ? price + u" 起"_s + suffix : u"From "_s + price + suffix;
}

QString QuickPickModel::tierPickerLabel(const ServiceTier &tier,
                                        const ServicePreset &preset) const {
    if (tier.amount <= 0)
        return isZh() ? u"其他 · 自定"_s : u"Other · custom"_s;
    return (isZh() ? tier.labelZh : tier.labelEn) + u" · "_s +
           Format::money(tier.amount, preset.currency);
}

QString QuickPickModel::displayedName(const ServicePreset &preset) const {
    return isZh() ? preset.nameZh : preset.nameEn;
}

QuickPickCells::Cell QuickPickModel::cell(const ServicePreset &preset,
                                          const QStringList &storedNames) const {
    const QString name = displayedName(preset);
    QuickPickCells::Cell cell{
        .presetID = preset.id,
        .name = name,
        .priceLabel = cardPriceLabel(preset),
        .icon = preset.icon,
        .logoID = m_logos.image(preset.id).isNull() ? QString() : preset.id,
        .isTicked = m_selected.contains(preset.id),
        // Coarse, and meant so: "Climax" counts as Max.
        .isInStore = std::ranges::any_of(
            storedNames,
            [name = name.toLower()](const QString &stored) { return stored.contains(name); }),
        .tierLabels = {},
        .tierIndex = -1};
    for (const ServiceTier &tier : tiersOf(preset))
        cell.tierLabels.append(tierPickerLabel(tier, preset));
    if (const std::optional<ServiceTier> chosen = m_selected.value(preset.id).tier(preset))
        cell.tierIndex = static_cast<int>(tiersOf(preset).indexOf(*chosen));
    return cell;
}

void QuickPickModel::showCells() {
    const QStringList storedNames = lowerCasedNames(m_store.subscriptions());
    QList<QuickPickCells::Cell> cells;
    for (const ServicePreset &preset : ServiceCatalog::presets(m_region))
        cells.append(cell(preset, storedNames));
    m_cells.show(cells);
}

void QuickPickModel::setStep(int step) {
    if (step == m_step)
        return;
    m_step = step;
    Q_EMIT stepChanged();
}

void QuickPickModel::goConfirm() {
    QList<ConfirmItem> items;
    for (const ServiceRegion region : allServiceRegions) {
        for (const ServicePreset &preset : ServiceCatalog::presets(region)) {
            const auto picked = m_selected.constFind(preset.id);
            if (picked != m_selected.cend())
                items.append(
                    {.preset = preset,
                     .subscription = preset.subscription(picked->tier(preset), isZh(), m_clock)});
        }
    }
    m_rows.setItems(items);
    Q_EMIT confirmRowsChanged();
    setStep(2);
}

void QuickPickModel::back() {
    setStep(1);
}

QList<Subscription> QuickPickModel::addable(const QList<Subscription> &rows,
                                            const QList<Subscription> &stored) {
    const QStringList names = lowerCasedNames(stored);
    const QSet<QString> taken(names.begin(), names.end());
    QList<Subscription> left;
    std::ranges::copy_if(rows, std::back_inserter(left), [&](const Subscription &sub) {
        return !withoutBlanksAround(sub.name).isEmpty() && sub.amount > 0 &&
               !taken.contains(sub.name.toLower());
    });
    return left;
}

void QuickPickModel::saveAll() {
    QList<Subscription> rows;
    for (const ConfirmItem &item : confirmRows())
        rows.append(item.subscription);
    const QList<Subscription> added = addable(rows, m_store.subscriptions());
    if (!added.isEmpty())
        m_store.addAll(added);
    finish();
    if (!added.isEmpty() && m_onComplete)
        m_onComplete();
    Q_EMIT dismissed();
}

void QuickPickModel::skip() {
    finish();
    Q_EMIT dismissed();
}

void QuickPickModel::finish() {
    m_defaults.setBoolean(doneKey.toString(), true);
}

void QuickPickModel::followLanguage() {
    showCells();
    m_rows.followLanguage();
    Q_EMIT languageChanged();
}

} // namespace tovarin
