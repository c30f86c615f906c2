#pragma once
#include <QWidget>

class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
struct AppContext;
struct LoginEntry;
struct StoredLogin;
class UserPrivilegeService;

// Gives a user a login and the screens and buttons he or she may use, and copies one user's privileges to
// another. The rules live in UserPrivilegeService; this screen shows them.
class frmUtilUserPrivilegeMaster : public QWidget
{
    Q_OBJECT
public:
    explicit frmUtilUserPrivilegeMaster(AppContext &ctx, QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;

private:
    enum class Mode { Idle, New, Edit };

    void buildLayout();
    QWidget *buildLoginFrame();
    QWidget *buildCopyFrame();
    void buildTree();
    void reloadUsers();
    void setMode(Mode mode);
    void startEntry(Mode mode);
    void userChosen();
    void showStoredLogin(const StoredLogin &stored);
    void loginIdLeft();
    void loginIdTyped();
    void rePasswordLeft();
    void itemChanged(QTreeWidgetItem *item);
    QList<bool> checkedNodes() const;
    void checkNodes(const QList<bool> &checked);
    void save();
    void offerRestart();
    void cancel();
    void exitScreen();
    void copyPrivileges();
    UserPrivilegeService service() const;

    AppContext &m_ctx;
    Mode m_mode = Mode::Idle;
    bool m_maskShown = false; // the password fields show the mask of a stored login
    QList<QTreeWidgetItem *> m_items;
    QGroupBox *m_Frame1 = nullptr;
    QGroupBox *m_Frame4 = nullptr;
    QComboBox *m_dbcUserName = nullptr;
    QPushButton *m_cmdAddUserName = nullptr;
    QLineEdit *m_txtLoginID = nullptr;
    QLineEdit *m_txtPassword = nullptr;
    QLineEdit *m_txtRePassword = nullptr;
    QComboBox *m_cboBlocked = nullptr;
    QTreeWidget *m_tvwDisplay = nullptr;
    QPushButton *m_cmdNew = nullptr;
    QPushButton *m_cmdEdit = nullptr;
    QPushButton *m_cmdSave = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
    QComboBox *m_dbcFromUser = nullptr;
    QComboBox *m_dbcToUser = nullptr;
    QPushButton *m_cmdTransfer = nullptr;
};
