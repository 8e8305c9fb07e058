// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/SettingsModel.h"

#include "app/LocalizationManager.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

constexpr int defaultRemindDaysBefore = 3;
constexpr auto testSentFor = 3s;

QString remindDaysBeforeKey() {
    return u"remindDaysBefore"_s;
}

template <typename Values>
bool isIndexOf(const Values &values, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < values.size();
}

} // namespace

int SettingsModel::storedRemindDaysBefore(const UserDefaults &defaults) {
    return defaults.integer(remindDaysBeforeKey()).value_or(defaultRemindDaysBefore);
}

SettingsModel::SettingsModel(UserDefaults &defaults, LocalizationManager &loc, Delay delay,
                             QObject *parent)
    : QObject(parent), m_defaults(defaults), m_loc(loc), m_delay(std::move(delay)) {
    connect(&loc, &LocalizationManager::langDidChange, this, &SettingsModel::langChanged);
}

QStringList SettingsModel::langNames() const {
    return {m_loc.isZh() ? u"跟随系统"_s : u"System"_s, u"English"_s, u"中文"_s};
}

int SettingsModel::langIndex() const {
    const auto &langs = LocalizationManager::allLangs;
    return static_cast<int>(std::ranges::find(langs, m_loc.lang()) - langs.begin());
}

void SettingsModel::chooseLang(int index) {
    if (isIndexOf(LocalizationManager::allLangs, index))
        m_loc.setLang(LocalizationManager::allLangs[static_cast<std::size_t>(index)]);
}

QStringList SettingsModel::dayNames() const {
    QStringList names;
    for (const int days : dayOptions) {
        if (days == 0)
            names.append(m_loc.isZh() ? u"当天"_s : u"Same day"_s);
        else
            names.append(m_loc.isZh() ? u"%1 天"_s.arg(days) : u"%1d"_s.arg(days));
    }
    return names;
}

int SettingsModel::dayIndex() const {
    const auto found = std::ranges::find(dayOptions, remindDaysBefore());
    return found == dayOptions.end() ? -1 : static_cast<int>(found - dayOptions.begin());
}

void SettingsModel::chooseDays(int index) {
    if (!isIndexOf(dayOptions, index) || index == dayIndex())
        return;
    m_defaults.setInteger(remindDaysBeforeKey(), dayOptions[static_cast<std::size_t>(index)]);
    Q_EMIT remindDaysBeforeChanged();
}

void SettingsModel::sendTest() {
    Q_EMIT testRequested();
    setTestSent(true);
    m_delay(testSentFor, this, [this] { setTestSent(false); });
}

void SettingsModel::setTestSent(bool sent) {
    if (m_testSent == sent)
        return;
    m_testSent = sent;
    Q_EMIT testSentChanged();
}

} // namespace tovarin
