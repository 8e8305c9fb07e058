// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/RowWindow.h"

#include <algorithm>

namespace tovarin {

void RowWindow::setSource(QAbstractItemModel *source) {
    if (source == m_source)
        return;
    if (m_source)
        m_source->disconnect(this);
    beginResetModel();
    m_source = source;
    m_count = 0;
    endResetModel();
    if (source) {
        const auto follow = [this] { update(true); };
        connect(source, &QAbstractItemModel::modelReset, this, follow);
        connect(source, &QAbstractItemModel::rowsInserted, this, follow);
        connect(source, &QAbstractItemModel::rowsRemoved, this, follow);
        connect(source, &QAbstractItemModel::rowsMoved, this, follow);
        connect(source, &QAbstractItemModel::layoutChanged, this, follow);
        connect(source, &QAbstractItemModel::dataChanged, this, follow);
    }
    update(true);
    Q_EMIT sourceChanged();
}

void RowWindow::setWantedFirst(int row) {
    if (row == m_wantedFirst)
        return;
    m_wantedFirst = row;
    update(false);
    Q_EMIT wantedFirstChanged();
}

void RowWindow::setLength(int length) {
    if (length == m_length)
        return;
    m_length = length;
    update(false);
    Q_EMIT lengthChanged();
}

int RowWindow::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : m_count;
}

QVariant RowWindow::data(const QModelIndex &index, int role) const {
    if (!index.isValid() || !m_source)
        return {};
    return m_source->data(m_source->index(m_first + index.row(), 0), role);
}

QHash<int, QByteArray> RowWindow::roleNames() const {
    return m_source ? m_source->roleNames() : QAbstractListModel::roleNames();
}

void RowWindow::update(bool contentChanged) {
    const int rows = m_source ? m_source->rowCount() : 0;
    const int count = std::clamp(m_length, 0, rows);
    const int first = std::clamp(m_wantedFirst, 0, rows - count);
    const bool moved = first != m_first;

    // Rows come and go at the end; whatever stays is told to look again.
    if (count < m_count) {
        beginRemoveRows({}, count, m_count - 1);
        m_count = count;
        endRemoveRows();
    }
    m_first = first;
    if ((moved || contentChanged) && m_count > 0)
        Q_EMIT dataChanged(index(0), index(m_count - 1));
    if (count > m_count) {
        beginInsertRows({}, m_count, count - 1);
        m_count = count;
        endInsertRows();
    }
    if (moved)
        Q_EMIT firstChanged();
}

} // namespace tovarin
