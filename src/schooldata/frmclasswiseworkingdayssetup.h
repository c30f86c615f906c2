#pragma once
#include "classwiseworkingdays.h"

#include <QWidget>

class GridCellEditor;
class QLineEdit;
class QPushButton;
class QTableWidget;
struct AppContext;

// Classwise-Working Days Setup: how many days of the school week each class works, for the generators.
// Opened from Phase I; it has no menu entry.
class frmClasswiseWorkingDaysSetup : public QWidget
{
    Q_OBJECT
public:
    explicit frmClasswiseWorkingDaysSetup(AppContext &ctx, QWidget *parent = nullptr);

private:
    void load();
    void fillGrid();
    void edit();
    void save();
    void cancel();
    void daysEdited(int row, const QString &text);
    void nextRow(int row);
    void editRow(int row);
    int schoolDays() const;

    AppContext &m_ctx;
    ClasswiseWorkingDays m_classwise;
    QList<ClassWorkingDays> m_rows;
    bool m_editing = false;

    QTableWidget *m_msgClassDetails = nullptr;
    QLineEdit *m_txtWorkingDays = nullptr;
    GridCellEditor *m_daysEditor = nullptr;
    QPushButton *m_cmdEdit = nullptr;
    QPushButton *m_cmdSave = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
