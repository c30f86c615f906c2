#pragma once
#include <QWidget>

class QPushButton;
class QTableWidget;
struct AppContext;

// Lists the class divisions whose allotted periods exceed the week, which keep the manual screen shut.
class frmBlankPeriods : public QWidget
{
    Q_OBJECT
public:
    explicit frmBlankPeriods(AppContext &ctx, QWidget *parent = nullptr);

private:
    void load();
    void exitScreen();

    AppContext &m_ctx;
    QTableWidget *m_msgDetails = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
