#pragma once
#include <QDialog>

struct AppContext;

// About Us: the program's picture, name and version; any click or key closes it.
class frmAboutUs : public QDialog
{
    Q_OBJECT
public:
    explicit frmAboutUs(AppContext &ctx, QWidget *parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent *event) override;
};
