#pragma once
#include <QWidget>

class MessageService;
class QFormLayout;
class QLineEdit;
class QPushButton;
struct AppContext;

// The Login ID and Password fields of the login and unlock screens, in a form of their own.
struct LoginFields
{
    QLineEdit *loginId = nullptr;
    QLineEdit *password = nullptr;
    QFormLayout *form = nullptr;

    explicit LoginFields(QWidget *screen);
};

// The blank checks the login and unlock screens share: "Enter Login ID", then "Enter Password", each with the
// focus on its field. True when both hold more than blanks.
bool loginFieldsFilled(MessageService &messages, QLineEdit *loginId, QLineEdit *password);

// The login at start: a known pair logs in; while no login exists at all any pair is let in, so that the
// first user can be made.
class frmStartLogin : public QWidget
{
    Q_OBJECT
public:
    explicit frmStartLogin(AppContext &ctx, QWidget *parent = nullptr);

signals:
    // A user is in; `noLoginsExist` says that no login exists yet (only the user screens get enabled).
    void loggedIn(bool noLoginsExist);
    // Cancel, Exit, or a blocked user: the program ends.
    void programEnded();

private:
    void ok();
    QPushButton *imageButton(const QString &name, const QString &caption, const QString &colour);

    AppContext &m_ctx;
    QLineEdit *m_txtLoginID = nullptr;
    QLineEdit *m_txtPassword = nullptr;
    QPushButton *m_ImgOK = nullptr;
    QPushButton *m_ImgCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
};
