#pragma once
#include <QDialog>

struct AppContext;

// The lock screen: a small rounded picture over everything that answers only F10 (unlock) and Esc (close
// the program at once, without the orderly close).
class frmStartLock : public QDialog
{
    Q_OBJECT
public:
    explicit frmStartLock(AppContext &ctx, QWidget *parent = nullptr);

signals:
    void unlocked();
    void closeProgramRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showUnlock();

    AppContext &m_ctx;
};
