// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/CalendarModel.h"

#include "platform/UserCalendar.h"
#include "platform/UserMonths.h"

#include <algorithm>

using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

// The file writes years with four digits, in UTC; a day of room is left for the zone.
constexpr CivilDay firstDay = local_days(1y / January / 2);
constexpr CivilDay lastDay = local_days(9999y / December / 30);

bool canBeChosen(CivilDay day) {
    return day >= firstDay && day <= lastDay;
}

} // namespace

CalendarModel::CalendarModel(Instant selection, const Clock &clock, const UserCalendar &calendar,
                             const UserMonths &months, QObject *parent)
    : QAbstractListModel(parent)
    , m_clock(clock)
    , m_calendar(calendar)
    , m_months(months)
    , m_selection(selection)
    , m_month(startOfMonth(selectedDay()))
    , m_days(grid()) {}

void CalendarModel::setSelection(Instant selection) {
    if (selection == m_selection)
        return;
    m_selection = selection;
    m_run.reset();
    m_month = startOfMonth(selectedDay());
    update();
    Q_EMIT selectionChanged();
}

Instant CalendarModel::visibleMonth() const {
    return m_calendar.startOfDay(m_month);
}

QString CalendarModel::monthTitle() const {
    return m_months.title(m_month);
}

QStringList CalendarModel::weekdaySymbols() const {
    QStringList names = m_months.weekdayNames();
    std::rotate(names.begin(), names.begin() + m_months.firstWeekday() - 1, names.end());
    return names;
}

Instant CalendarModel::monthStart(Instant date) const {
    const std::optional<CivilDay> start = m_months.start(m_calendar.day(date));
    return start ? m_calendar.startOfDay(*start) : date;
}

int CalendarModel::focusRow() const {
    const auto found = std::ranges::find(m_days, focusDay(), &CalendarDay::date);
    return found == m_days.end() ? 0 : static_cast<int>(found - m_days.begin());
}

void CalendarModel::moveMonth(int by) {
    const std::optional<CivilDay> month = monthAfter(m_month, by);
    if (!month)
        return;
    m_month = *month;
    m_run.reset();
    update();
}

void CalendarModel::select(int row) {
    if (row >= 0 && row < m_days.size())
        choose(m_days[row].date);
}

void CalendarModel::moveDay(int by) {
    CivilDay day = focusDay() + days(by);
    // A day that the zone left out starts where the next one does: going back would end there.
    if (by < 0 && m_calendar.day(m_calendar.startOfDay(day)) != day)
        day -= days(1);
    choose(day);
}

void CalendarModel::moveDayByMonths(int by) {
    Run run = m_run.value_or(Run{focusDay(), 0});
    run.months += by;
    const std::optional<CivilDay> day =
        m_calendar.adding({run.months, CalendarStep::Unit::Month}, run.from);
    if (day && choose(*day))
        m_run = run;
}

void CalendarModel::moveToStartOfWeek() {
    const CivilDay day = focusDay();
    choose(day - days(columnOf(day)));
}

void CalendarModel::moveToEndOfWeek() {
    const CivilDay day = focusDay();
    choose(day + days(columns - 1 - columnOf(day)));
}

void CalendarModel::noticeDay() {
    update();
}

int CalendarModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_days.size());
}

QVariant CalendarModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const CalendarDay &day = m_days[index.row()];
    switch (role) {
    case Qt::DisplayRole:
    case DayNumberRole:
        return QString::number(m_months.dayOfMonth(day.date).value_or(0));
    case FullDateRole:
        return m_months.fullDate(day.date);
    case IsCurrentMonthRole:
        return day.isCurrentMonth;
    case IsSelectedRole:
        return day.isSelected;
    case IsTodayRole:
        return day.isToday;
    default:
        return {};
    }
}

QHash<int, QByteArray> CalendarModel::roleNames() const {
    return {{DayNumberRole, "dayNumber"},
            {FullDateRole, "fullDate"},
            {IsCurrentMonthRole, "isCurrentMonth"},
            {IsSelectedRole, "isSelected"},
            {IsTodayRole, "isToday"}};
}

CivilDay CalendarModel::selectedDay() const {
    return m_calendar.day(m_selection);
}

CivilDay CalendarModel::focusDay() const {
    const CivilDay selected = selectedDay();
    return startOfMonth(selected) == m_month ? selected : m_month;
}

int CalendarModel::columnOf(CivilDay day) const {
    return (UserMonths::weekday(day) - m_months.firstWeekday() + columns) % columns;
}

CivilDay CalendarModel::startOfMonth(CivilDay day) const {
    return m_months.start(day).value_or(day);
}

std::optional<CivilDay> CalendarModel::monthAfter(CivilDay month, int by) const {
    const std::optional<CivilDay> moved = m_calendar.adding({by, CalendarStep::Unit::Month}, month);
    if (!moved || !canBeChosen(*moved))
        return std::nullopt;
    return m_months.start(*moved);
}

bool CalendarModel::choose(CivilDay day) {
    if (!canBeChosen(day))
        return false;
    m_run.reset();
    const Instant start = m_calendar.startOfDay(day);
    const bool isAnother = start != m_selection;
    m_selection = start;
    m_month = startOfMonth(selectedDay());
    update();
    if (isAnother)
        Q_EMIT selectionChanged();
    return true;
}

QList<CalendarDay> CalendarModel::grid() const {
    QList<CalendarDay> cells;
    if (!m_months.start(m_month))
        return cells;
    const CivilDay begin = m_month - days(columnOf(m_month));
    const CivilDay selected = selectedDay();
    const CivilDay today = m_calendar.day(m_clock.now());
    for (int i = 0; i < weeks * columns; ++i) {
        const CivilDay day = begin + days(i);
        if (canBeChosen(day))
            cells.append({day, startOfMonth(day) == m_month, day == selected, day == today});
    }
    return cells;
}

void CalendarModel::update() {
    const QList<CalendarDay> cells = grid();
    if (cells.size() == m_days.size()) {
        m_days = cells;
        if (!cells.isEmpty())
            Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    } else {
        beginResetModel();
        m_days = cells;
        endResetModel();
    }
    Q_EMIT changed();
}

} // namespace tovarin
