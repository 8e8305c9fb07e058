// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/BatchScanReviewModel.h"

#include "app/LocalizationManager.h"
#include "model/Blanks.h"
#include "model/Store.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

bool canBeStored(const Subscription &draft) {
    return !withoutBlanksAround(draft.name).isEmpty() && draft.amount > 0;
}

} // namespace

BatchScanReviewModel::BatchScanReviewModel(QList<ScanDraftItem> &items, Store &store,
                                           const LocalizationManager &loc, QObject *parent)
    : QAbstractListModel(parent), m_items(items), m_store(store), m_loc(loc) {
    connect(&loc, &LocalizationManager::langDidChange, this, &BatchScanReviewModel::followLanguage);
}

void BatchScanReviewModel::followLanguage() {
    Q_EMIT languageChanged();
    Q_EMIT includedChanged();
    if (!m_items.isEmpty())
        Q_EMIT dataChanged(index(0), index(count() - 1), {CycleLabelRole});
}

QString BatchScanReviewModel::pair(const QString &chinese, const QString &english) const {
    return m_loc.isZh() ? chinese : english;
}

QList<Subscription> BatchScanReviewModel::included() const {
    QList<Subscription> drafts;
    for (const ScanDraftItem &item : m_items) {
        if (item.isIncluded)
            drafts.append(item.subscription);
    }
    return drafts;
}

QString BatchScanReviewModel::title() const {
    return pair(u"[ 批量识别结果 ]"_s, u"[ BATCH SCAN ]"_s);
}

QString BatchScanReviewModel::subtitle() const {
    return pair(u"勾选要添加的项，可改名称和金额"_s, u"Select items to add; edit name or amount"_s);
}

QString BatchScanReviewModel::emptyText() const {
    return pair(u"没有识别到有效内容"_s, u"Nothing recognized"_s);
}

QString BatchScanReviewModel::cancelTitle() const {
    return pair(u"取消"_s, u"Cancel"_s);
}

QString BatchScanReviewModel::counterText() const {
    return pair(u"[ %1/%2 项 ]"_s, u"[ %1/%2 ]"_s).arg(included().size()).arg(count());
}

QString BatchScanReviewModel::confirmTitle() const {
    return pair(u"添加 %1 项"_s, u"Add %1"_s).arg(included().size());
}

bool BatchScanReviewModel::canConfirm() const {
    return !included().isEmpty();
}

template <typename Value>
bool BatchScanReviewModel::change(int row, Value &(*field)(ScanDraftItem &), const Value &value,
                                  const QList<int> &roles) {
    if (row < 0 || row >= count() || field(m_items[row]) == value)
        return false;
    field(m_items[row]) = value;
    Q_EMIT dataChanged(index(row), index(row), roles);
    return true;
}

void BatchScanReviewModel::setIncluded(int row, bool isIncluded) {
    const auto field = [](ScanDraftItem &item) -> bool & { return item.isIncluded; };
    if (change<bool>(row, field, isIncluded, {IsIncludedRole}))
        Q_EMIT includedChanged();
}

void BatchScanReviewModel::setName(int row, const QString &name) {
    const auto field = [](ScanDraftItem &item) -> QString & { return item.subscription.name; };
    change<QString>(row, field, name, {Qt::DisplayRole, NameRole, LacksNameRole});
}

void BatchScanReviewModel::setAmount(int row, double amount) {
    const auto field = [](ScanDraftItem &item) -> double & { return item.subscription.amount; };
    change<double>(row, field, amount, {AmountRole});
}

void BatchScanReviewModel::save() {
    QList<Subscription> drafts = included();
    drafts.removeIf([](const Subscription &draft) { return !canBeStored(draft); });
    if (drafts.isEmpty())
        return;
    m_store.addAll(drafts);
    Q_EMIT dismissed();
}

int BatchScanReviewModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant BatchScanReviewModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const ScanDraftItem &item = m_items[index.row()];
    switch (role) {
    case IsIncludedRole:
        return item.isIncluded;
    case Qt::DisplayRole:
    case NameRole:
        return item.subscription.name;
    case LacksNameRole:
        return item.subscription.name.isEmpty();
    case AmountRole:
        return item.subscription.amount;
    case CycleLabelRole:
        return label(item.subscription.cycle);
    default:
        return {};
    }
}

QHash<int, QByteArray> BatchScanReviewModel::roleNames() const {
    return {{IsIncludedRole, "isIncluded"},
            {NameRole, "name"},
            {LacksNameRole, "lacksName"},
            {AmountRole, "amount"},
            {CycleLabelRole, "cycleLabel"}};
}

} // namespace tovarin
