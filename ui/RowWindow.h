// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

/// Some consecutive rows of another list: those in sight. A view of it keeps its rows while the
/// window moves, and only their texts change; so a long list within a page costs what is seen of
/// it.
class RowWindow : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QAbstractItemModel *source READ source WRITE setSource NOTIFY sourceChanged FINAL)
    /// The row of the source at which the window is to begin.
    Q_PROPERTY(
        int wantedFirst READ wantedFirst WRITE setWantedFirst NOTIFY wantedFirstChanged FINAL)
    /// How many rows it has at most.
    Q_PROPERTY(int length READ length WRITE setLength NOTIFY lengthChanged FINAL)
    /// Where it does begin: early enough to have all its rows, as far as there are so many.
    Q_PROPERTY(int first READ first NOTIFY firstChanged FINAL)

public:
    using QAbstractListModel::QAbstractListModel;

    QAbstractItemModel *source() const { return m_source; }
    void setSource(QAbstractItemModel *source);

    int wantedFirst() const { return m_wantedFirst; }
    void setWantedFirst(int row);

    int length() const { return m_length; }
    void setLength(int length);

    int first() const { return m_first; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void sourceChanged();
    void wantedFirstChanged();
    void lengthChanged();
    void firstChanged();

private:
    void update(bool contentChanged);

    QPointer<QAbstractItemModel> m_source;
    int m_wantedFirst = 0;
    int m_length = 0;
    int m_first = 0;
    int m_count = 0;
};

} // namespace tovarin
