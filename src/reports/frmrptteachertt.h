#pragma once
#include <QWidget>

class Launcher;
class QComboBox;
class QPushButton;
class QTableView;
class ReportGridModel;
struct AppContext;

// Teacher Time Table: one teacher's week as a grid, printed to a text file for the text editor or exported
// to a sheet. The pattern of the other week grid reports.
class frmrptTeacherTT : public QWidget
{
    Q_OBJECT
public:
    explicit frmrptTeacherTT(AppContext &ctx, QWidget *parent = nullptr);

private:
    void buildLayout();
    void loadTeachers();
    void showTeacher();
    void print();
    void exportSheet();
    void cancel();
    void exitScreen();

    AppContext &m_ctx;
    Launcher &m_launcher;
    ReportGridModel *m_model = nullptr;
    QComboBox *m_cboTeacher = nullptr;
    QTableView *m_msgTeacher = nullptr;
    QPushButton *m_cmdPrint = nullptr;
    QPushButton *m_cmdExport = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
