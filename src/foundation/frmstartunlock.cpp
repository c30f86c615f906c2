#include "frmstartunlock.h"
#include "frmstartlogin.h"
#include "login.h"
#include "messageservice.h"
#include "privileges.h"
#include "screen.h"
#include "session.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmStartUnlock::frmStartUnlock(AppContext &ctx, QWidget *parent)
    : QDialog(parent), m_ctx(ctx)
{
    setObjectName(QStringLiteral("frmStartUnlock"));
    setWindowTitle(QStringLiteral("Unlock"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);

    const LoginFields fields(this);
    m_txtLoginID = fields.loginId;
    m_txtPassword = fields.password;
    m_cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    m_cmdOK->setObjectName(QStringLiteral("cmdOK"));
    m_cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    m_cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    m_cmdOK->setAutoDefault(false);
    m_cmdCancel->setAutoDefault(false);

    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(m_cmdOK, QDialogButtonBox::AcceptRole);
    buttons->addButton(m_cmdCancel, QDialogButtonBox::RejectRole);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(fields.form);
    layout->addWidget(buttons);

    connect(m_cmdOK, &QPushButton::clicked, this, &frmStartUnlock::ok);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    Screen::applyConventions(this, ctx, 0);
}

void frmStartUnlock::ok()
{
    if (!loginFieldsFilled(*m_ctx.messages, m_txtLoginID, m_txtPassword))
        return;
    const QString login = m_txtLoginID->text().trimmed();
    const QString password = m_txtPassword->text().trimmed();
    bool matches = false;
    // The same hash as the login checks; while no login exists at all, any pair unlocks.
    if (!Screen::guarded(m_ctx, [&] {
            matches = Privileges::noLoginsExist(m_ctx.db())
                || isLoginOf(m_ctx.db(), m_ctx.session.userCode, login, password);
        }))
        return;
    if (!matches) {
        m_ctx.messages->information(QStringLiteral("Enter Correct Login ID / Password"));
        m_txtLoginID->clear();
        m_txtPassword->clear();
        m_txtLoginID->setFocus();
        return;
    }
    emit unlocked();
    accept();
}
