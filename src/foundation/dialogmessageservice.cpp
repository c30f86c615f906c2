#include "dialogmessageservice.h"

#include <QApplication>
#include <QMessageBox>

namespace {
QMessageBox::StandardButton show(QMessageBox::Icon icon, const QString &text, const QString &title,
                                 QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton)
{
    QMessageBox box(icon, title, text, buttons, QApplication::activeWindow());
    box.setDefaultButton(defaultButton);
    return QMessageBox::StandardButton(box.exec());
}
}

void DialogMessageService::information(const QString &text, const QString &title)
{
    show(QMessageBox::Information, text, title, QMessageBox::Ok, QMessageBox::Ok);
}

void DialogMessageService::critical(const QString &text, const QString &title)
{
    show(QMessageBox::Critical, text, title, QMessageBox::Ok, QMessageBox::Ok);
}

bool DialogMessageService::question(const QString &text, const QString &title)
{
    return show(QMessageBox::Question, text, title, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes)
        == QMessageBox::Yes;
}

bool DialogMessageService::okCancel(const QString &text, const QString &title)
{
    return show(QMessageBox::Question, text, title, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok)
        == QMessageBox::Ok;
}
