#include "frmutiluserprivilegemaster.h"
#include "codecombo.h"
#include "messageservice.h"
#include "privileges.h"
#include "privilegetree.h"
#include "screen.h"
#include "session.h"
#include "userprivileges.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
const char *const FormName = "frmUtilUserPrivilegeMaster";
// What the password fields show for a stored login: the password itself never leaves the store.
const QString PasswordMask = QStringLiteral("********");

QString formName()
{
    return QString::fromLatin1(FormName);
}
}

frmUtilUserPrivilegeMaster::frmUtilUserPrivilegeMaster(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx)
{
    setObjectName(formName());
    setWindowTitle(QStringLiteral("User Privileges"));
    buildLayout();
    buildTree();

    connect(m_cmdNew, &QPushButton::clicked, this, [this] { startEntry(Mode::New); });
    connect(m_cmdEdit, &QPushButton::clicked, this, [this] { startEntry(Mode::Edit); });
    connect(m_cmdSave, &QPushButton::clicked, this, &frmUtilUserPrivilegeMaster::save);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmUtilUserPrivilegeMaster::cancel);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmUtilUserPrivilegeMaster::exitScreen);
    connect(m_cmdTransfer, &QPushButton::clicked, this, &frmUtilUserPrivilegeMaster::copyPrivileges);
    connect(m_cmdAddUserName, &QPushButton::clicked, this, [this] {
        if (m_ctx.host)
            m_ctx.host->openScreen(QStringLiteral("frmUtilUserMaster"));
    });
    connect(m_dbcUserName, &QComboBox::activated, this, &frmUtilUserPrivilegeMaster::userChosen);
    connect(m_txtLoginID, &QLineEdit::textEdited, this, &frmUtilUserPrivilegeMaster::loginIdTyped);
    connect(m_txtLoginID, &QLineEdit::editingFinished, this, &frmUtilUserPrivilegeMaster::loginIdLeft);
    connect(m_txtRePassword, &QLineEdit::editingFinished, this, &frmUtilUserPrivilegeMaster::rePasswordLeft);
    for (QLineEdit *field : {m_txtPassword, m_txtRePassword})
        connect(field, &QLineEdit::textEdited, this, [this] { m_maskShown = false; });
    connect(m_tvwDisplay, &QTreeWidget::itemChanged, this, &frmUtilUserPrivilegeMaster::itemChanged);

    reloadUsers();
    cancel();
    Screen::applyConventions(this, ctx, 46);
}

void frmUtilUserPrivilegeMaster::buildLayout()
{
    m_cmdNew = Screen::button(this, "cmdNew", QStringLiteral("&New"));
    m_cmdEdit = Screen::button(this, "cmdEdit", QStringLiteral("&Edit"));
    m_cmdSave = Screen::button(this, "cmdSave", QStringLiteral("&Save"));
    m_cmdCancel = Screen::button(this, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));

    m_tvwDisplay = new QTreeWidget(this);
    m_tvwDisplay->setObjectName(QStringLiteral("tvwDisplay"));
    m_tvwDisplay->setHeaderHidden(true);
    m_tvwDisplay->setMinimumSize(340, 420);

    auto *left = new QVBoxLayout;
    left->addWidget(buildLoginFrame());
    left->addWidget(buildCopyFrame());
    left->addStretch();
    auto *body = new QHBoxLayout;
    body->addLayout(left);
    body->addWidget(m_tvwDisplay, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton *push : {m_cmdNew, m_cmdEdit, m_cmdSave, m_cmdCancel, m_cmdExit})
        buttons->addWidget(push);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(buttons);
}

QWidget *frmUtilUserPrivilegeMaster::buildLoginFrame()
{
    m_Frame1 = new QGroupBox(this);
    m_Frame1->setObjectName(QStringLiteral("Frame1"));
    m_dbcUserName = new QComboBox(m_Frame1);
    m_dbcUserName->setObjectName(QStringLiteral("dbcUserName"));
    m_dbcUserName->setMinimumWidth(200);
    m_cmdAddUserName = new QPushButton(QStringLiteral("..."), m_Frame1);
    m_cmdAddUserName->setObjectName(QStringLiteral("cmdAddUserName"));
    m_cmdAddUserName->setToolTip(QStringLiteral("User Master"));
    m_cmdAddUserName->setFocusPolicy(Qt::NoFocus);
    m_cmdAddUserName->setFixedWidth(32);
    m_txtLoginID = new QLineEdit(m_Frame1);
    m_txtLoginID->setObjectName(QStringLiteral("txtLoginID"));
    m_txtPassword = new QLineEdit(m_Frame1);
    m_txtPassword->setObjectName(QStringLiteral("txtPassword"));
    m_txtRePassword = new QLineEdit(m_Frame1);
    m_txtRePassword->setObjectName(QStringLiteral("txtRePassword"));
    // The start screen takes 15 characters of each: a longer login could never be typed there.
    for (QLineEdit *field : {m_txtLoginID, m_txtPassword, m_txtRePassword})
        field->setMaxLength(15);
    for (QLineEdit *field : {m_txtPassword, m_txtRePassword})
        field->setEchoMode(QLineEdit::Password);
    m_cboBlocked = new QComboBox(m_Frame1);
    m_cboBlocked->setObjectName(QStringLiteral("cboBlocked"));
    m_cboBlocked->addItems({QStringLiteral("NO"), QStringLiteral("YES")});

    auto *user = new QHBoxLayout;
    user->addWidget(m_dbcUserName, 1);
    user->addWidget(m_cmdAddUserName);
    auto *form = new QFormLayout(m_Frame1);
    form->addRow(QStringLiteral("User Name :"), user);
    form->addRow(QStringLiteral("Login ID :"), m_txtLoginID);
    form->addRow(QStringLiteral("Password :"), m_txtPassword);
    form->addRow(QStringLiteral("Re-Type Password :"), m_txtRePassword);
    form->addRow(QStringLiteral("Blocked :"), m_cboBlocked);
    return m_Frame1;
}

QWidget *frmUtilUserPrivilegeMaster::buildCopyFrame()
{
    m_Frame4 = new QGroupBox(QStringLiteral("Copying Privileges"), this);
    m_Frame4->setObjectName(QStringLiteral("Frame4"));
    m_dbcFromUser = new QComboBox(m_Frame4);
    m_dbcFromUser->setObjectName(QStringLiteral("dbcFromUser"));
    m_dbcToUser = new QComboBox(m_Frame4);
    m_dbcToUser->setObjectName(QStringLiteral("dbcToUser"));
    m_cmdTransfer = new QPushButton(QStringLiteral("Copy"), m_Frame4);
    m_cmdTransfer->setObjectName(QStringLiteral("cmdTransfer"));
    auto *form = new QFormLayout(m_Frame4);
    form->addRow(QStringLiteral("From User :"), m_dbcFromUser);
    form->addRow(QStringLiteral("To User :"), m_dbcToUser);
    form->addRow(QString(), m_cmdTransfer);
    return m_Frame4;
}

void frmUtilUserPrivilegeMaster::buildTree()
{
    const QList<PrivilegeNode> &nodes = PrivilegeTree::nodes();
    for (const PrivilegeNode &node : nodes) {
        auto *item = node.parent < 0 ? new QTreeWidgetItem(m_tvwDisplay) : new QTreeWidgetItem(m_items[node.parent]);
        item->setText(0, node.text);
        item->setData(0, Qt::UserRole, node.key);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsSelectable);
        item->setCheckState(0, Qt::Unchecked);
        m_items.append(item);
    }
    m_tvwDisplay->expandAll();
}

UserPrivilegeService frmUtilUserPrivilegeMaster::service() const
{
    return UserPrivilegeService(m_ctx.db());
}

// A user added on the user master while this screen stood open shows up when the screen is back in front.
bool frmUtilUserPrivilegeMaster::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate)
        reloadUsers();
    return QWidget::event(event);
}

void frmUtilUserPrivilegeMaster::reloadUsers()
{
    Screen::guarded(m_ctx, [this] {
        const QList<CodeName> users = service().users();
        for (QComboBox *combo : {m_dbcUserName, m_dbcFromUser, m_dbcToUser})
            CodeCombo::fill(combo, users, true, CodeCombo::code(combo));
    });
}

void frmUtilUserPrivilegeMaster::setMode(Mode mode)
{
    m_mode = mode;
    const bool entering = mode != Mode::Idle;
    m_Frame1->setEnabled(entering);
    m_tvwDisplay->setEnabled(entering);
    m_cmdNew->setEnabled(!entering);
    m_cmdEdit->setEnabled(!entering);
    m_cmdSave->setEnabled(entering);
    if (entering) {
        m_Frame4->setEnabled(false);
        CodeCombo::select(m_dbcFromUser, 0);
        CodeCombo::select(m_dbcToUser, 0);
    } else {
        // Copying needs its own privilege; the frame stays off for a user without it.
        bool mayCopy = false;
        Screen::guarded(m_ctx, [&] { mayCopy = CheckPrivilege(m_ctx, formName(), Privileges::Copy); });
        m_Frame4->setEnabled(mayCopy);
    }
}

void frmUtilUserPrivilegeMaster::startEntry(Mode mode)
{
    bool allowed = false;
    Screen::guarded(m_ctx, [&] {
        allowed = AllowedOrSay(m_ctx, formName(), mode == Mode::New ? Privileges::New : Privileges::Edit);
    });
    if (!allowed)
        return;
    setMode(mode);
    if (mode == Mode::Edit && CodeCombo::code(m_dbcUserName) > 0)
        m_cmdSave->setFocus();
    else
        m_dbcUserName->setFocus();
}

void frmUtilUserPrivilegeMaster::userChosen()
{
    const int userCode = CodeCombo::code(m_dbcUserName);
    m_txtLoginID->clear();
    m_txtPassword->clear();
    m_txtRePassword->clear();
    m_maskShown = false;
    m_cboBlocked->setCurrentIndex(0);
    checkNodes(QList<bool>(m_items.size(), false));
    if (userCode <= 0)
        return;
    Screen::guarded(m_ctx, [&] {
        const std::optional<StoredLogin> stored = service().login(userCode);
        if (stored
            && m_ctx.messages->question(
                QStringLiteral("Privilege Already Exists To This User. Do You Want To View The Details ?")))
            showStoredLogin(*stored);
    });
}

void frmUtilUserPrivilegeMaster::showStoredLogin(const StoredLogin &stored)
{
    m_txtLoginID->setText(stored.loginId);
    m_txtLoginID->setModified(false);
    m_txtPassword->setText(PasswordMask);
    m_txtRePassword->setText(PasswordMask);
    m_maskShown = true;
    m_cboBlocked->setCurrentIndex(stored.blocked ? 1 : 0);
    checkNodes(PrivilegeTree::checkedFor(stored.rows));
}

void frmUtilUserPrivilegeMaster::loginIdTyped()
{
    if (CodeCombo::code(m_dbcUserName) > 0)
        return;
    m_txtLoginID->clear();
    m_ctx.messages->information(QStringLiteral("Select User Name"));
    m_dbcUserName->setFocus();
}

void frmUtilUserPrivilegeMaster::loginIdLeft()
{
    if (!m_txtLoginID->isModified() || m_txtLoginID->text().trimmed().isEmpty())
        return;
    m_txtLoginID->setModified(false);
    Screen::guarded(m_ctx, [this] {
        if (service().loginIdTaken(m_txtLoginID->text(), CodeCombo::code(m_dbcUserName))) {
            m_ctx.messages->information(QStringLiteral("Login ID Already Exists"));
            m_txtLoginID->setFocus();
        }
    });
}

void frmUtilUserPrivilegeMaster::rePasswordLeft()
{
    if (!m_txtRePassword->isModified())
        return;
    m_txtRePassword->setModified(false);
    if (!m_txtRePassword->text().isEmpty() && m_txtRePassword->text() != m_txtPassword->text())
        m_ctx.messages->information(QStringLiteral("Password Does Not Match"));
}

// Checking or clearing a node does the same to everything below it; a parent is left as it is.
void frmUtilUserPrivilegeMaster::itemChanged(QTreeWidgetItem *item)
{
    const int index = int(m_items.indexOf(item));
    if (index < 0)
        return;
    QList<bool> checked = checkedNodes();
    PrivilegeTree::setSubtree(checked, index, item->checkState(0) == Qt::Checked);
    checkNodes(checked);
}

QList<bool> frmUtilUserPrivilegeMaster::checkedNodes() const
{
    QList<bool> checked;
    checked.reserve(m_items.size());
    for (const QTreeWidgetItem *item : m_items)
        checked.append(item->checkState(0) == Qt::Checked);
    return checked;
}

void frmUtilUserPrivilegeMaster::checkNodes(const QList<bool> &checked)
{
    const QSignalBlocker quiet(m_tvwDisplay);
    for (int i = 0; i < m_items.size(); ++i)
        m_items[i]->setCheckState(0, checked.value(i) ? Qt::Checked : Qt::Unchecked);
    m_tvwDisplay->viewport()->update();
}

void frmUtilUserPrivilegeMaster::save()
{
    if (m_mode == Mode::Idle)
        return;
    LoginEntry entry;
    entry.userCode = CodeCombo::code(m_dbcUserName);
    entry.loginId = m_txtLoginID->text();
    entry.password = m_txtPassword->text().trimmed();
    entry.retyped = m_txtRePassword->text().trimmed();
    entry.keepPassword = m_maskShown;
    entry.blocked = m_cboBlocked->currentText();
    entry.checked = checkedNodes();
    LoginSaveResult result;
    if (!Screen::guarded(m_ctx, [&] { result = service().save(entry, m_ctx.session.userCode); }))
        return;
    m_ctx.messages->information(result.message);
    if (!result.saved) {
        if (result.clearPasswords) {
            m_txtPassword->clear();
            m_txtRePassword->clear();
            m_maskShown = false;
        }
        QWidget *fields[] = {nullptr, m_dbcUserName, m_txtLoginID, m_txtPassword, m_txtRePassword, m_cboBlocked};
        if (QWidget *field = fields[int(result.field)])
            field->setFocus();
        return;
    }
    cancel();
    if (result.firstLogin)
        offerRestart();
}

// Until the program starts again, the session that made the first login keeps the menus it began with.
void frmUtilUserPrivilegeMaster::offerRestart()
{
    const QString text = QStringLiteral(
        "The first login is made. From the next start every user logs in with a login ID and password and "
        "sees only the menus granted in User Privileges; until then this session keeps the menus it has.\n"
        "Do you want to log in again now?");
    if (m_ctx.messages->question(text) && m_ctx.host)
        m_ctx.host->restartProgram();
}

void frmUtilUserPrivilegeMaster::cancel()
{
    CodeCombo::select(m_dbcUserName, 0);
    for (QLineEdit *field : {m_txtLoginID, m_txtPassword, m_txtRePassword})
        field->clear();
    m_maskShown = false;
    m_cboBlocked->setCurrentIndex(-1);
    checkNodes(QList<bool>(m_items.size(), false));
    setMode(Mode::Idle);
    m_cmdNew->setFocus();
}

void frmUtilUserPrivilegeMaster::exitScreen()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}

void frmUtilUserPrivilegeMaster::copyPrivileges()
{
    Screen::guarded(m_ctx, [this] {
        if (!AllowedOrSay(m_ctx, formName(), Privileges::Copy))
            return;
        const CopyResult result =
            service().copy(CodeCombo::code(m_dbcFromUser), CodeCombo::code(m_dbcToUser), *m_ctx.messages);
        if (!result.message.isEmpty())
            m_ctx.messages->information(result.message);
    });
}
