#pragma once
#include <QDialog>

class QLineEdit;
class QPushButton;
struct AppContext;

// Unlock: the login typed at the start, retyped; compared without case with the session's, not the table.
class frmStartUnlock : public QDialog
{
    Q_OBJECT
public:
    explicit frmStartUnlock(AppContext &ctx, QWidget *parent = nullptr);

signals:
    void unlocked();

private:
    void ok();

    AppContext &m_ctx;
    QLineEdit *m_txtLoginID = nullptr;
    QLineEdit *m_txtPassword = nullptr;
    QPushButton *m_cmdOK = nullptr;
    QPushButton *m_cmdCancel = nullptr;
};
