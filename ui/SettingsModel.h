// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Delay.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <array>

namespace tovarin {

class LocalizationManager;
class UserDefaults;

/// The settings. What is chosen is stored at once; who schedules the reminders listens to
/// remindDaysBeforeChanged(). One is made each time the sheet opens.
class SettingsModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes one when the sheet opens.")
    Q_PROPERTY(QList<QString> langNames READ langNames NOTIFY langChanged FINAL)
    Q_PROPERTY(int langIndex READ langIndex NOTIFY langChanged FINAL)
    Q_PROPERTY(QList<QString> dayNames READ dayNames NOTIFY langChanged FINAL)
    Q_PROPERTY(int dayIndex READ dayIndex NOTIFY remindDaysBeforeChanged FINAL)
    Q_PROPERTY(bool testSent READ testSent NOTIFY testSentChanged FINAL)

public:
    /// The day counts that can be chosen. That 4 and 6 are missing is meant.
    static constexpr std::array dayOptions = {0, 1, 2, 3, 5, 7};

    /// How many days before a charge its reminder comes, as it is stored; 3 when nothing is, or
    /// what is no whole number.
    static int storedRemindDaysBefore(const UserDefaults &defaults);

    /// Both must outlive the model.
    SettingsModel(UserDefaults &defaults, LocalizationManager &loc, Delay delay,
                  QObject *parent = nullptr);

    QStringList langNames() const;
    int langIndex() const;
    Q_INVOKABLE void chooseLang(int index);

    int remindDaysBefore() const { return storedRemindDaysBefore(m_defaults); }
    QStringList dayNames() const;
    int dayIndex() const; ///< -1 for a stored count that is not offered, which stays.
    Q_INVOKABLE void chooseDays(int index);

    /// Whether a test notification was sent within the last three seconds. Simple on purpose: of
    /// two tests, the first one's time ends it for both.
    bool testSent() const { return m_testSent; }
    Q_INVOKABLE void sendTest();

    Q_INVOKABLE void quickPick() { Q_EMIT quickPickRequested(); }
    Q_INVOKABLE void close() { Q_EMIT dismissed(); }

Q_SIGNALS:
    void langChanged();
    void remindDaysBeforeChanged();
    void testSentChanged();

    /// Somebody has to send a test notification now.
    void testRequested();

    /// The quick pick is to open.
    void quickPickRequested();

    /// The sheet is to close.
    void dismissed();

private:
    void setTestSent(bool sent);

    UserDefaults &m_defaults;
    LocalizationManager &m_loc;
    Delay m_delay;
    bool m_testSent = false;
};

} // namespace tovarin
