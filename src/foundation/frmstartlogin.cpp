#include "frmstartlogin.h"
#include "login.h"
#include "messageservice.h"
#include "screen.h"
#include "session.h"
#include "store.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

frmStartLogin::frmStartLogin(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx)
{
    setObjectName(QStringLiteral("frmStartLogin"));
    setWindowTitle(QStringLiteral("Zarlo-TimeTable - Login"));

    auto *heading = new QLabel(QStringLiteral("Zarlo-TimeTable"), this);
    heading->setStyleSheet(QStringLiteral("font-size: 18pt; font-weight: bold; color: rgb(74, 52, 96);"));
    heading->setAlignment(Qt::AlignCenter);
    const LoginFields fields(this);
    m_txtLoginID = fields.loginId;
    m_txtPassword = fields.password;
    m_ImgOK = imageButton(QStringLiteral("ImgOK"), QStringLiteral("&OK"), QStringLiteral("rgb(151, 108, 176)"));
    m_ImgCancel = imageButton(QStringLiteral("ImgCancel"), QStringLiteral("&Cancel"),
                              QStringLiteral("rgb(170, 150, 180)"));
    m_cmdExit = new QPushButton(QStringLiteral("E&xit"), this);
    m_cmdExit->setObjectName(QStringLiteral("cmdExit"));

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ImgOK);
    buttons->addWidget(m_ImgCancel);
    buttons->addWidget(m_cmdExit);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addLayout(fields.form);
    layout->addLayout(buttons);
    setMinimumWidth(360);

    connect(m_txtLoginID, &QLineEdit::returnPressed, m_txtPassword, qOverload<>(&QWidget::setFocus));
    connect(m_txtPassword, &QLineEdit::returnPressed, this, &frmStartLogin::ok);
    connect(m_ImgOK, &QPushButton::clicked, this, &frmStartLogin::ok);
    connect(m_ImgCancel, &QPushButton::clicked, this, &frmStartLogin::programEnded);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmStartLogin::programEnded);
}

// The picture buttons take a second look while the pointer is over them.
QPushButton *frmStartLogin::imageButton(const QString &name, const QString &caption, const QString &colour)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setFlat(true);
    button->setMinimumWidth(80);
    button->setStyleSheet(QStringLiteral("QPushButton { background: %1; color: white; border-radius: 6px; "
                                         "padding: 5px 12px; } QPushButton:hover { background: rgb(96, 62, 122); }")
                              .arg(colour));
    return button;
}

LoginFields::LoginFields(QWidget *screen)
    : loginId(new QLineEdit(screen)), password(new QLineEdit(screen)), form(new QFormLayout)
{
    loginId->setObjectName(QStringLiteral("txtLoginID"));
    loginId->setMaxLength(15);
    password->setObjectName(QStringLiteral("txtPassword"));
    password->setMaxLength(15);
    password->setEchoMode(QLineEdit::Password);
    form->addRow(QStringLiteral("Login ID :"), loginId);
    form->addRow(QStringLiteral("Password :"), password);
}

bool loginFieldsFilled(MessageService &messages, QLineEdit *loginId, QLineEdit *password)
{
    for (const auto &[field, text] : {std::pair{loginId, "Enter Login ID"}, std::pair{password, "Enter Password"}}) {
        if (field->text().trimmed().isEmpty()) {
            messages.information(QString::fromLatin1(text));
            field->setFocus();
            return false;
        }
    }
    return true;
}

void frmStartLogin::ok()
{
    if (!loginFieldsFilled(*m_ctx.messages, m_txtLoginID, m_txtPassword))
        return;
    const QString login = m_txtLoginID->text().trimmed();
    const QString password = m_txtPassword->text().trimmed();
    m_ctx.session.loginId = login;
    LoginResult result;
    if (!Screen::guarded(m_ctx, [&] { result = checkLogin(m_ctx.db(), login, password); }))
        return;
    switch (result.outcome) {
    case LoginResult::Outcome::NoLoginsYet:
        emit loggedIn(true);
        return;
    case LoginResult::Outcome::WrongPair:
        m_ctx.messages->information(QStringLiteral("Enter Correct Login ID And Password"));
        m_txtLoginID->clear();
        m_txtPassword->clear();
        m_txtLoginID->setFocus();
        return;
    case LoginResult::Outcome::Blocked:
        m_ctx.messages->information(QStringLiteral("Your ID Has Been Blocked. Contact Administrator"));
        Store::close(m_ctx.connectionName);
        emit programEnded();
        return;
    case LoginResult::Outcome::Accepted:
        m_ctx.session.userCode = result.userCode;
        m_ctx.session.userName = result.userName;
        if (Screen::guarded(m_ctx, [this] { m_ctx.session.calendar.load(m_ctx.db()); }))
            emit loggedIn(false);
        return;
    }
}
