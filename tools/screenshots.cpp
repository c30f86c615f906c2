#include "allotmentscreens.h"
#include "frmcombinedclassentry.h"
#include "frmhelp.h"
#include "frmteachermaster.h"
#include "mainmenu.h"
#include "sampleschool.h"
#include "reportscreens.h"
#include "schooldatascreens.h"
#include "timetablescreens.h"
#include "frmstartlogin.h"
#include "mditimetable.h"
#include "messageservice.h"
#include "screenregistry.h"
#include "shell.h"
#include "sql.h"
#include "store.h"

#include <QApplication>
#include <QComboBox>
#include <QProcess>
#include <QSqlQuery>
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

// The medium sample school, and a head of office who holds every screen and button.
void setUpSchool(const QString &folder)
{
    const QString connection = QStringLiteral("shots");
    {
        const QSqlDatabase db = Store::open(StoreFile::Main, folder, connection);
        SampleSchool::build(db, SampleSchool::Size::Medium);
        const Sql sql(db);
        sql.run(QStringLiteral("INSERT INTO UserMaster VALUES (1, 'Office Head', 0)"));
        sql.run(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (1, 'head', 'head', 'N', 0)"));
        QStringList forms = {QStringLiteral("Masters"), QStringLiteral("TimeTableEntry"), QStringLiteral("Reports"),
                             QStringLiteral("Utilities"), QStringLiteral("TimeTableUtility")};
        for (const MenuEntry &entry : MainMenu::entries())
            if (QByteArray(entry.opens).startsWith("frm"))
                forms << QString::fromLatin1(entry.opens);
        for (const QString &form : forms) {
            sql.run(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES (?, 'D', 1)"), {form});
            for (const char *button : {"N", "E", "X"})
                sql.run(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES (?, ?, 1)"),
                        {form, QString::fromLatin1(button)});
        }
    }
    Store::close(connection);
}

template <typename Form>
Form *openChild(mdiTimeTable *main, const QString &formName)
{
    main->openScreen(formName);
    QApplication::processEvents();
    return main->findChild<Form *>(formName);
}

void closeChildren(mdiTimeTable *main)
{
    main->findChild<QMdiArea *>()->closeAllSubWindows();
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
}
}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QString docs = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("docs");
    QDir().mkpath(docs);
    QTemporaryDir data;
    setUpSchool(data.path());

    // A generated week, so that the timetable screens have something to show.
    const QString ttcli = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("../src/cli/ttcli"));
    QProcess::execute(ttcli, {QStringLiteral("generate"), QStringLiteral("--data"), data.path()});

    QuietMessages messages;
    ScreenRegistry registry;
    registry.addScreen(QStringLiteral("frmHelp"), [](AppContext &ctx) { return new frmHelp(ctx); });
    registerSchoolDataScreens(registry);
    registerAllotmentScreens(registry);
    registerTimetableScreens(registry);
    registerReportScreens(registry);
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
    closeChildren(main);

    openChild<QWidget>(main, QStringLiteral("frmSchoolSetup"));
    save(main, docs, QStringLiteral("school-setup.png"));
    closeChildren(main);

    openChild<QWidget>(main, QStringLiteral("frmClassSectionEntry"));
    save(main, docs, QStringLiteral("class-division-entry.png"));
    closeChildren(main);

    if (auto *teachers = openChild<frmTeacherMaster>(main, QStringLiteral("frmTeacherMaster")))
        teachers->showTeacher(3);
    save(main, docs, QStringLiteral("teacher-master.png"));
    closeChildren(main);

    if (auto *allotment = openChild<QWidget>(main, QStringLiteral("frmWorkAllotmentEntry"))) {
        auto *teacher = allotment->findChild<QComboBox *>(QStringLiteral("cboTeacher"));
        teacher->setCurrentIndex(qMin(3, teacher->count() - 1));
    }
    save(main, docs, QStringLiteral("work-allotment-entry.png"));
    closeChildren(main);

    if (auto *combined = openChild<frmCombinedClassEntry>(main, QStringLiteral("frmCombinedClassEntry"))) {
        QSqlQuery group(QSqlDatabase::database(Shell::mainConnectionName()));
        group.exec(QStringLiteral("SELECT TeacherCode, ClassCode, DivisionCode, SubjectCode, CCGroupNo FROM "
                                  "WorkAllotmentEntry WHERE CCGroupNo > 0 AND CCSystem = '' ORDER BY rowid LIMIT 1"));
        if (group.next())
            combined->loadChosenGroup({group.value(0).toInt(), group.value(1).toInt(), group.value(2).toInt(),
                                       group.value(3).toInt()},
                                      group.value(4).toInt());
    }
    save(main, docs, QStringLiteral("combined-class-entry.png"));
    closeChildren(main);

    if (auto *manual = openChild<QWidget>(main, QStringLiteral("frmManualPeriodsEntry"))) {
        main->resize(1280, 800);
        main->findChild<QMdiArea *>()->activeSubWindow()->showMaximized();
        const auto pick = [&](const char *name, int index) {
            if (auto *combo = manual->findChild<QComboBox *>(QString::fromLatin1(name)); combo && combo->count() > index)
                combo->setCurrentIndex(index);
            QApplication::processEvents();
        };
        pick("cboClass", 9);
        pick("cboDivision", 1);
        pick("cboSubject", 1);
    }
    save(main, docs, QStringLiteral("manual-periods-entry.png"));
    closeChildren(main);

    if (auto *report = openChild<QWidget>(main, QStringLiteral("frmrptTeacherTT"))) {
        auto *teacher = report->findChild<QComboBox *>(QStringLiteral("cboTeacher"));
        teacher->setCurrentIndex(qMin(5, teacher->count() - 1));
        QApplication::processEvents();
    }
    save(main, docs, QStringLiteral("teacher-time-table.png"));
    closeChildren(main);
    return 0;
}
