#pragma once
#include "manualweek.h"

#include <QColor>
#include <QGroupBox>
#include <QTableWidget>

class QPushButton;

// A read-only grid that asks the layout for exactly the room its cells take (up to `maxRows` rows), plus a
// scroll bar only while one shows.
class FittedTable : public QTableWidget
{
public:
    explicit FittedTable(QWidget *parent = nullptr, int maxRows = 0);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    int m_maxRows = 0;
};

// A week grid of the manual screen: the day's name first, a column per period, and the row's DayCode in a
// last, hidden column. Cells past the last day's periods are shaded, as they are not periods.
class WeekTable : public FittedTable
{
public:
    WeekTable(const QString &name, const QColor &otherColour, QWidget *parent = nullptr);

    // Headings and day rows, every cell empty.
    void rebuild(const WeekLayout &layout, const SchoolCalendar &calendar);
    // Cells with content are coloured only while a teacher is shown (`coloured`).
    void showWeek(const WeekGrid &week, bool coloured);

    int dayCodeAt(int row) const;
    bool isPeriodColumn(int column) const { return column >= 1 && column < columnCount() - 1; }
    QString cellText(int row, int period) const;

    static QColor selectionColour() { return QColor(225, 255, 225); }

private:
    QColor m_otherColour;
    QList<int> m_periodsOfRow;
};

// One of the screen's panels: a framed list or text, hidden until asked for, with a Close button that hides
// it and gives the focus back to the button that opened it.
class ManualPanel : public QGroupBox
{
public:
    ManualPanel(const QString &title, const QString &frameName, QWidget *content, QWidget *parent = nullptr);

    void setOpener(QPushButton *opener) { m_opener = opener; }
    QPushButton *closeButton() const { return m_close; }
    void open(bool focusClose = false);

private:
    QPushButton *m_close = nullptr;
    QPushButton *m_opener = nullptr;
};

// A read-only list grid of a panel, with the given headings.
QTableWidget *makeListGrid(const QString &name, const QStringList &headings, QWidget *parent);
void fillListGrid(QTableWidget *grid, const QList<QStringList> &rows);
