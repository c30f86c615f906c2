#pragma once
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

// The school's week: working days, periods a day, the shorter last day and the morning session. Every grid,
// every limit on periods and every generator run is laid out from these numbers.
struct SchoolCalendar
{
    qint16 noOfWorkingDays = 0;
    qint16 periodsPerDay = 0;
    qint16 dayCode = 0; // DayCode of the first working day; always 1 once the school is set up
    qint16 periodsOnLastWorkingDay = 0;
    qint16 periodsInMorningSession = 0;
    qint16 periodsPerWeek = 0;
    bool schoolSetUp = false;

    // Reads the SchoolSetup row. Without one only `schoolSetUp` is cleared: the numbers keep what they held.
    void load(const QSqlDatabase &db);

    // Periods of the week: a last day longer than an ordinary one counts as an ordinary one.
    static qint16 periodsPerWeekOf(int days, int periodsPerDay, int periodsOnLastDay);

    bool isLastDay(int dayCode) const { return dayCode == noOfWorkingDays; }
    // Periods on the day with this DayCode: the last day may be shorter.
    int periodsOn(int dayCode) const;
    // Is (day, period) a real period of the week? The last row of a week grid has columns that are not.
    bool isPeriod(int dayCode, int periodCode) const;
    // The refusal of a click beyond the last day's periods on a week grid.
    QString lastDayRefusal() const
    {
        return QStringLiteral("Last Working Day Has Only ") + QString::number(periodsOnLastWorkingDay)
            + QStringLiteral(" Periods");
    }
    // Periods 1 to PeriodsInMorningSession are the morning, the rest of the day the afternoon.
    bool isMorning(int periodCode) const { return periodCode >= 1 && periodCode <= periodsInMorningSession; }

    // The DayMaster DayCode shown on row `row` (0-based) of a week grid, wrapping past 7.
    int dayCodeOfRow(int row) const;
    // Names of the working days, one per grid row, first day first.
    QStringList dayNames(const QSqlDatabase &db) const;
    // Period headings ("P1", "P2", ...) in PeriodCode order, periods above 0 only.
    static QStringList periodNames(const QSqlDatabase &db);
};
