// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/platform/PrivateBus.h"
#include "tests/support/VariableTable.h"

#include <QTemporaryDir>
#include <QVariantMap>

#include <gtest/gtest.h>

namespace tovarin {

/// A session's bus and a home, in which instances start.
class SingleInstanceTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(bus.address(), ""); }

    QString home() const { return m_home.path(); }
    QString data() const { return m_home.filePath(QStringLiteral("data")); }
    VariableTable table(const VariableTable &more = {}) const {
        VariableTable table{{"HOME", home().toUtf8()}, {"XDG_DATA_HOME", data().toUtf8()}};
        table.insert(more);
        return table;
    }
    VariableTable onBus(const VariableTable &more = {}) const {
        VariableTable table = this->table({{"DBUS_SESSION_BUS_ADDRESS", bus.address()}});
        table.insert(more);
        return table;
    }
    static QVariantMap token(const QString &token) {
        return {{QStringLiteral("activation-token"), token}};
    }

    PrivateBus bus;

private:
    const QTemporaryDir m_home;
};

} // namespace tovarin
