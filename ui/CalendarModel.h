// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"

#include <QAbstractListModel>
#include <QList>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace tovarin {

class UserCalendar;
class UserMonths;

/// One cell of a month's grid.
struct CalendarDay {
    CivilDay date;               ///< What tells one cell from another.
    bool isCurrentMonth = false; ///< Whether it lies in the month on screen.
    bool isSelected = false;
    bool isToday = false;

    bool operator==(const CalendarDay &) const = default;
};

/// A date picker that shows one month at a time as six weeks. Its rows are the cells; its names and
/// its first weekday follow the locale, not the program's language.
class CalendarModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The model of a screen has it.")
    Q_PROPERTY(QString monthTitle READ monthTitle NOTIFY changed FINAL)
    Q_PROPERTY(QStringList weekdaySymbols READ weekdaySymbols CONSTANT FINAL)
    Q_PROPERTY(int columns READ columnsOfGrid CONSTANT FINAL)
    Q_PROPERTY(int focusRow READ focusRow NOTIFY changed FINAL)

public:
    enum Role {
        DayNumberRole = Qt::UserRole,
        FullDateRole, ///< The day in words, for a screen reader.
        IsCurrentMonthRole,
        IsSelectedRole,
        IsTodayRole,
    };
    Q_ENUM(Role)

    static constexpr int columns = 7;
    static constexpr int weeks = 6;

    /// All three must outlive the model.
    CalendarModel(Instant selection, const Clock &clock, const UserCalendar &calendar,
                  const UserMonths &months, QObject *parent = nullptr);

    Instant selection() const { return m_selection; }

    /// Selects the day of this moment and shows its month. The moment is kept as it is; whatever
    /// the user chooses is the start of a day.
    void setSelection(Instant selection);

    /// The first moment of the month on screen.
    Instant visibleMonth() const;

    /// The month and the year on screen.
    QString monthTitle() const;

    /// The names above the columns, from the first weekday on.
    QStringList weekdaySymbols() const;
    int columnsOfGrid() const { return columns; }

    /// The 42 days around the month on screen, which begin with the first weekday on or before its
    /// first day. Fewer at the ends of the years that a record can hold (0001 to 9999); none for a
    /// month beyond them.
    const QList<CalendarDay> &calendarDays() const { return m_days; }

    /// The start of the month that holds the moment, by the user's calendar; the moment itself if
    /// the calendar cannot tell.
    Instant monthStart(Instant date) const;

    /// The row of the day that the keys start from: the selected one while its month is on screen,
    /// else the month's first.
    int focusRow() const;

    /// Shows the month so many months later, if the calendar can count that far.
    Q_INVOKABLE void moveMonth(int by);

    /// Selects the day of a row, and shows its month.
    Q_INVOKABLE void select(int row);

    /// Selects another day, by so many days or months from where the keys start. A month that has
    /// no such day gives its last; the next month reached in the same run of steps has it again.
    Q_INVOKABLE void moveDay(int by);
    Q_INVOKABLE void moveDayByMonths(int by);

    /// Selects the first or the last day of the week, which is a row of the grid, in which the keys
    /// start.
    Q_INVOKABLE void moveToStartOfWeek();
    Q_INVOKABLE void moveToEndOfWeek();

    /// Another day has begun, or the calendar is another.
    void noticeDay();

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void selectionChanged();
    void changed();

private:
    /// Where a run of steps by months began, and how far it has gone.
    struct Run {
        CivilDay from;
        int months;
    };

    CivilDay selectedDay() const;
    CivilDay focusDay() const;
    int columnOf(CivilDay day) const;
    CivilDay startOfMonth(CivilDay day) const;
    std::optional<CivilDay> monthAfter(CivilDay month, int by) const;
    bool choose(CivilDay day);
    QList<CalendarDay> grid() const;
    void update();

    const Clock &m_clock;
    const UserCalendar &m_calendar;
    const UserMonths &m_months;
    Instant m_selection;
    CivilDay m_month; // the first day of the month on screen
    std::optional<Run> m_run;
    QList<CalendarDay> m_days;
};

} // namespace tovarin
