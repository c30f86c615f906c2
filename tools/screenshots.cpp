#include "frmhelp.h"
#include "frmstartlogin.h"
#include "mditimetable.h"
#include "messageservice.h"
#include "screenregistry.h"
#include "shell.h"
#include "sql.h"
#include "store.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextStream>

// Takes the README's screenshots offscreen: `screenshots DOCS_FOLDER`.
namespace {
class QuietMessages : public MessageService
{
public:
    void information(const QString &text, const QString &) override { QTextStream(stderr) << text << '\n'; }
    void critical(const QString &text, const QString &) override { QTextStream(stderr) << text << '\n'; }
    bool question(const QString &, const QString &) override { return true; }
    bool okCancel(const QString &, const QString &) override { return true; }
};

void waitFor(const std::function<bool()> &done)
{
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < 10000)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
}

void save(QWidget *widget, const QString &folder, const QString &name)
{
    QApplication::processEvents();
    widget->grab().save(QDir(folder).filePath(name));
    QTextStream(stdout) << QDir(folder).filePath(name) << '\n';
}

void setUpSchool(const QString &folder)
{
    const QString connection = QStringLiteral("shots");
    {
        const QSqlDatabase db = Store::open(StoreFile::Main, folder, connection);
        const Sql sql(db);
        sql.run(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Kerala')"));
        sql.run(QStringLiteral("INSERT INTO CityMaster VALUES (1, 1, 'Kochi')"));
        sql.run(QStringLiteral("INSERT INTO SchoolSetup VALUES ('St. Mary''s Higher Secondary School', 'Church Road', "
                               "'Edappally', 1, '682024', 6, 8, 5, 4, 1)"));
        sql.run(QStringLiteral("INSERT INTO UserMaster VALUES (1, 'Office Head', 0)"));
        sql.run(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (1, 'head', 'head', 'N', 0)"));
        for (const char *form : {"Masters", "frmStateMaster", "frmCityMaster", "frmSchoolSetup", "TimeTableEntry",
                                 "frmWorkAllotmentEntry", "Reports", "frmrptTeacherTT", "Utilities",
                                 "frmUtilUserMaster", "frmOptions"})
            sql.run(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES (?, 'D', 1)"), {QString::fromLatin1(form)});
    }
    Store::close(connection);
}
}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QString docs = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("docs");
    QDir().mkpath(docs);
    QTemporaryDir data;
    setUpSchool(data.path());

    QuietMessages messages;
    ScreenRegistry registry;
    registry.addScreen(QStringLiteral("frmHelp"), [](AppContext &ctx) { return new frmHelp(ctx); });
    Shell shell(registry, messages, data.path());
    shell.start();
    waitFor([&] { return shell.loginScreen() != nullptr; });
    frmStartLogin *login = shell.loginScreen();
    login->findChild<QLineEdit *>(QStringLiteral("txtLoginID"))->setText(QStringLiteral("head"));
    login->findChild<QLineEdit *>(QStringLiteral("txtPassword"))->setText(QStringLiteral("head"));
    login->adjustSize();
    save(login, docs, QStringLiteral("login.png"));
    login->findChild<QPushButton *>(QStringLiteral("ImgOK"))->click();

    mdiTimeTable *main = shell.mainWindow();
    main->showNormal();
    main->resize(1100, 720);
    waitFor([&] { return main->isVisible(); });
    save(main, docs, QStringLiteral("main-window.png"));

    shell.context().session.helpScreenNo = 10;
    main->openScreen(QStringLiteral("frmHelp"));
    save(main, docs, QStringLiteral("help.png"));
    return 0;
}
