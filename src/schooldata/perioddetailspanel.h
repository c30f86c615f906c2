#pragma once
#include "schoolsetupservice.h"

#include <QGroupBox>

class GridCellEditor;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;
class MessageService;

// The period panel of School Setup (fraPeriodDetails): one row per period of the day with its minutes,
// typed into a box over the minutes cell, and the day's total, which may not pass a whole day.
class PeriodDetailsPanel : public QGroupBox
{
    Q_OBJECT
public:
    PeriodDetailsPanel(MessageService &messages, QWidget *parent = nullptr);

    void setPeriods(const QList<PeriodRow> &periods);
    const QList<PeriodRow> &periods() const { return m_periods; }
    // Shows the panel with the minutes box on `row`.
    void openAt(int row);
    // Hides the panel (the Close button does the same and says so).
    void dismiss();

signals:
    void closed();

private:
    void fillGrid();
    void showTotal();
    void minutesEdited(int row, const QString &text);
    void nextRow(int row);

    MessageService &m_messages;
    QList<PeriodRow> m_periods;
    QTableWidget *m_msgPeriodDuration = nullptr;
    QLineEdit *m_txtDurationInMinutes = nullptr;
    QLabel *m_lblTotal = nullptr;
    QPushButton *m_cmdClose = nullptr;
    GridCellEditor *m_minutesEditor = nullptr;
};
