// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/ContentSheets.h"

#include "app/LocalizationManager.h"
#include "model/Store.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

// The detail is gone by then.
constexpr auto handOver = 150ms;
// The window is there first, and then what it offers.
constexpr auto untilOffer = 400ms;

std::optional<Subscription> withID(const QList<Subscription> &list, const QUuid &id) {
    const auto found = std::ranges::find(list, id, &Subscription::id);
    return found == list.end() ? std::nullopt : std::optional(*found);
}

} // namespace

ContentSheets::ContentSheets(Surroundings surroundings, QObject *parent)
    : QObject(parent), m_with(std::move(surroundings)) {
    m_with.store.observe(this, [this](const QList<Subscription> &list) { follow(list); });
}

ContentSheets::~ContentSheets() = default;

std::optional<Subscription> ContentSheets::editingSub() const {
    return sheet() == Sheet::Editor ? m_open.existing : std::nullopt;
}

std::optional<Subscription> ContentSheets::detailSub() const {
    return sheet() == Sheet::Detail ? m_open.existing : std::nullopt;
}

bool ContentSheets::didCompleteQuickPick() const {
    return m_with.defaults.boolean(QuickPickModel::doneKey.toString()).value_or(false);
}

template <typename Model>
Model *ContentSheets::model(Sheet sheet) const {
    return m_open.sheet == sheet ? static_cast<Model *>(m_model.get()) : nullptr;
}

SubscriptionEditModel *ContentSheets::editor() const {
    return model<SubscriptionEditModel>(Sheet::Editor);
}

SubscriptionDetailModel *ContentSheets::detail() const {
    return model<SubscriptionDetailModel>(Sheet::Detail);
}

QuickPickModel *ContentSheets::quickPick() const {
    return model<QuickPickModel>(Sheet::QuickPick);
}

BatchScanReviewModel *ContentSheets::batchReview() const {
    return model<BatchScanReviewModel>(Sheet::BatchReview);
}

SettingsModel *ContentSheets::settings() const {
    return model<SettingsModel>(Sheet::Settings);
}

bool ContentSheets::isFree() const {
    return sheet() == Sheet::None && !m_isHandingOver;
}

void ContentSheets::showEditor() {
    if (isFree())
        request({.sheet = Sheet::Editor});
}

void ContentSheets::showQuickPick() {
    if (!showingQuickPick())
        request({.sheet = Sheet::QuickPick});
}

void ContentSheets::showSettings() {
    if (!showingSettings())
        request({.sheet = Sheet::Settings});
}

void ContentSheets::showDetail(const QString &id) {
    std::optional<Subscription> sub = withID(m_with.store.subscriptions(), QUuid(id));
    if (sub && isFree())
        request({.sheet = Sheet::Detail, .existing = std::move(sub)});
}

void ContentSheets::take(const QList<Subscription> &drafts) {
    if (drafts.isEmpty())
        return;
    if (drafts.size() == 1) {
        request({.sheet = Sheet::Editor, .draft = drafts.first()});
        return;
    }
    Request review{.sheet = Sheet::BatchReview};
    for (const Subscription &draft : drafts)
        review.items.append({.id = QUuid::createUuid(), .subscription = draft});
    request(std::move(review));
}

void ContentSheets::offerQuickPickIfNeeded() {
    if (didCompleteQuickPick() || showingQuickPick())
        return;
    m_with.delay(untilOffer, this, [this] {
        if (!didCompleteQuickPick())
            showQuickPick();
    });
}

void ContentSheets::noticeDay() {
    if (SubscriptionEditModel *const open = editor())
        open->noticeDay();
    if (SubscriptionDetailModel *const open = detail())
        open->noticeDay();
}

bool ContentSheets::isWanted(Sheet sheet) const {
    return m_open.sheet == sheet ||
           std::ranges::find(m_waiting, sheet, &Request::sheet) != m_waiting.end();
}

void ContentSheets::request(Request request) {
    m_waiting.push_back(std::move(request));
    if (sheet() == Sheet::None)
        openNext();
}

void ContentSheets::openNext() {
    if (m_isHandingOver || m_waiting.empty())
        return;
    m_open = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_model = makeModel();
    // Else QML would take it for its own, and it could outlive what it works with.
    m_model->setParent(this);
    Q_EMIT sheetChanged();
}

void ContentSheets::dismiss() {
    if (sheet() == Sheet::None)
        return;
    m_open = {};
    Q_EMIT sheetChanged();
    m_model.release()->deleteLater();
    openNext();
}

void ContentSheets::editShown() {
    Request editor{.sheet = Sheet::Editor, .existing = m_open.existing};
    m_isHandingOver = true;
    dismiss();
    m_with.delay(handOver, this, [this, editor = std::move(editor)]() mutable {
        m_isHandingOver = false;
        m_waiting.push_front(std::move(editor));
        openNext();
    });
}

void ContentSheets::follow(const QList<Subscription> &list) {
    SubscriptionDetailModel *const shown = detail();
    if (!shown)
        return;
    const std::optional<Subscription> sub = withID(list, m_open.existing->id);
    if (!sub) {
        dismiss();
        return;
    }
    m_open.existing = sub;
    shown->setSubscription(*sub);
}

std::unique_ptr<QObject> ContentSheets::makeModel() {
    switch (sheet()) {
    case Sheet::Editor:
        return makeEditor();
    case Sheet::Detail:
        return makeDetail();
    case Sheet::QuickPick:
        return makeQuickPick();
    case Sheet::BatchReview:
        return makeBatchReview();
    case Sheet::Settings:
        return makeSettings();
    case Sheet::None:
        break;
    }
    return nullptr;
}

std::unique_ptr<QObject> ContentSheets::makeEditor() {
    auto model = std::make_unique<SubscriptionEditModel>(
        SubscriptionEditModel::Source{m_open.existing, m_open.draft}, m_with.store, m_with.clock,
        m_with.calendar, m_with.months, m_with.loc);
    connect(model.get(), &SubscriptionEditModel::dismissed, this, &ContentSheets::dismiss);
    return model;
}

std::unique_ptr<QObject> ContentSheets::makeDetail() {
    auto model = std::make_unique<SubscriptionDetailModel>(
        *m_open.existing, m_with.clock, m_with.calendar, m_with.loc, m_with.logos);
    using Model = SubscriptionDetailModel;
    connect(model.get(), &Model::dismissed, this, &ContentSheets::dismiss);
    connect(model.get(), &Model::editRequested, this, &ContentSheets::editShown);
    connect(model.get(), &Model::toggleRequested, this,
            [this] { m_with.store.toggleActive(*m_open.existing); });
    // The detail closes when its entry is gone.
    connect(model.get(), &Model::deleteRequested, this,
            [this] { m_with.store.deleteSubscription(Subscription(*m_open.existing)); });
    return model;
}

std::unique_ptr<QObject> ContentSheets::makeQuickPick() {
    auto model = std::make_unique<QuickPickModel>(m_with.store, m_with.clock, m_with.loc,
                                                  m_with.logos, m_with.defaults, nullptr);
    connect(model.get(), &QuickPickModel::dismissed, this, &ContentSheets::dismiss);
    return model;
}

std::unique_ptr<QObject> ContentSheets::makeBatchReview() {
    m_batchScanItems = std::move(m_open.items);
    auto model = std::make_unique<BatchScanReviewModel>(m_batchScanItems, m_with.store, m_with.loc);
    connect(model.get(), &BatchScanReviewModel::dismissed, this, &ContentSheets::dismiss);
    return model;
}

std::unique_ptr<QObject> ContentSheets::makeSettings() {
    auto model = std::make_unique<SettingsModel>(m_with.defaults, m_with.loc, m_with.delay);
    using Model = SettingsModel;
    connect(model.get(), &Model::dismissed, this, &ContentSheets::dismiss);
    connect(model.get(), &Model::remindDaysBeforeChanged, this,
            &ContentSheets::remindDaysBeforeChanged);
    connect(model.get(), &Model::testRequested, this, &ContentSheets::testNotificationRequested);
    connect(model.get(), &Model::quickPickRequested, this, [this] {
        showQuickPick();
        dismiss();
    });
    return model;
}

} // namespace tovarin
