#include "appscreens.h"
#include "frmcombinedclassentry.h"
#include "frmteachermaster.h"
#include "mainmenu.h"
#include "sampleschool.h"
#include "frmstartlogin.h"
#include "mditimetable.h"
#include "messageservice.h"
#include "screenregistry.h"
#include "shell.h"
#include "sql.h"
#include "store.h"
#include "usermaster.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
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

// The window with one of its menus dropped down: the menu is a window of its own, painted over the grab.
void saveWithMenu(QMainWindow *main, const char *menuName, const QString &folder, const QString &name)
{
    auto *menu = main->menuBar()->findChild<QMenu *>(QString::fromLatin1(menuName));
    if (!menu)
        return;
    const QRect item = main->menuBar()->actionGeometry(menu->menuAction());
    QApplication::processEvents();
    QPixmap shot = main->grab();
    menu->popup(main->menuBar()->mapToGlobal(item.bottomLeft()));
    QApplication::processEvents();
    {
        QPainter painter(&shot);
        painter.drawPixmap(main->mapFromGlobal(menu->pos()), menu->grab());
    }
    menu->hide();
    shot.save(QDir(folder).filePath(name));
    QTextStream(stdout) << QDir(folder).filePath(name) << '\n';
}

// The medium sample school, and a head of office who holds every screen and button.
void setUpSchool(const QString &folder)
{
    const QString connection = QStringLiteral("shots");
    {
        const QSqlDatabase db = Store::open(StoreFile::Main, folder, connection);
        SampleSchool::build(db, SampleSchool::Size::Medium);
        addUserWithLogin(db, QStringLiteral("Office Head"), QStringLiteral("head"), QStringLiteral("head"), true);
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

template <typename Control = QWidget>
Control *control(QWidget *screen, const char *name)
{
    return screen ? screen->findChild<Control *>(QString::fromLatin1(name)) : nullptr;
}

// Clicks a button as a person would: only when it is there and enabled.
bool press(QWidget *screen, const char *name)
{
    auto *button = control<QPushButton>(screen, name);
    if (!button || !button->isEnabled()) {
        QTextStream(stderr) << "screenshots: " << name << " cannot be pressed\n";
        return false;
    }
    button->click();
    QApplication::processEvents();
    return true;
}

int number(const QString &statement)
{
    QSqlQuery query(QSqlDatabase::database(Shell::mainConnectionName()));
    query.exec(statement);
    return query.next() ? query.value(0).toInt() : 0;
}

int periodsToPlace()
{
    return number(QStringLiteral("SELECT IFNULL(SUM(NoOfSectionPeriods), 0) FROM WorkAllotmentEntry"));
}

int periodsPlaced()
{
    return number(QStringLiteral("SELECT COUNT(*) FROM TimeTable"));
}

QMdiSubWindow *frameOf(QWidget *screen)
{
    return screen ? qobject_cast<QMdiSubWindow *>(screen->parentWidget()) : nullptr;
}

void bringForward(mdiTimeTable *main, QWidget *screen)
{
    if (QMdiSubWindow *frame = frameOf(screen))
        main->findChild<QMdiArea *>()->setActiveSubWindow(frame);
    QApplication::processEvents();
}

// The open screen whose objectName is `name`, wherever the program opened it.
QWidget *openScreenNamed(const QString &name)
{
    for (QWidget *widget : QApplication::allWidgets())
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    return nullptr;
}

// Phase I's settings: New, the uniform answer, one teacher kept free of one period, Save. The uniform periods
// are asked for when the check grid shows no colour; otherwise the screen is left and the answer is NO.
QWidget *settlePhaseOne(mdiTimeTable *main, QMdiArea *area)
{
    QWidget *phase1 = nullptr;
    for (const QString &answer : {QStringLiteral("YES"), QStringLiteral("NO")}) {
        phase1 = openChild<QWidget>(main, QStringLiteral("frmAutoGenerationPhaseI"));
        if (!phase1)
            return nullptr;
        if (QMdiSubWindow *frame = frameOf(phase1))
            frame->setGeometry(area->contentsRect());
        press(phase1, "cmdNew");
        auto *uniform = control<QComboBox>(phase1, "cboUniformPeriod");
        const int item = uniform->findText(answer);
        uniform->setCurrentIndex(item);
        emit uniform->activated(item);
        QApplication::processEvents();
        if (control<QPushButton>(phase1, "cmdSave")->isEnabled())
            break;
        QTextStream(stderr) << "screenshots: the uniform periods cannot be kept, answering NO\n";
        closeChildren(main); // the coloured grid leaves only Esc: the screen goes and opens afresh
        phase1 = nullptr;
    }
    if (!phase1)
        return nullptr;

    // The teacher with the lightest load, free of one late period every day.
    QSqlQuery lightest(QSqlDatabase::database(Shell::mainConnectionName()));
    lightest.exec(QStringLiteral("SELECT t.TeacherName FROM TeacherMaster t JOIN WorkAllotmentEntry w ON w.TeacherCode = "
                                 "t.TeacherCode WHERE t.TeacherCode > 0 GROUP BY t.TeacherCode "
                                 "ORDER BY SUM(w.NoOfSectionPeriods), t.TeacherName LIMIT 1"));
    auto *teachers = control<QTableWidget>(phase1, "msgTeacherDetails");
    auto *teacher = control<QComboBox>(phase1, "cboTeacher");
    if (lightest.next() && teacher->isVisible() && teacher->lineEdit()) {
        teacher->setEditText(lightest.value(0).toString());
        QTest::keyClick(teacher->lineEdit(), Qt::Key_Return);
        QApplication::processEvents();
        const int periods = teachers->columnCount() - 5; // the name, the periods, four work columns
        for (int period = periods; period >= 2; --period) {
            const QRect cell = teachers->visualRect(teachers->model()->index(0, period));
            QTest::mouseClick(teachers->viewport(), Qt::LeftButton, {}, cell.center());
            QApplication::processEvents();
            if (teachers->item(0, period) && teachers->item(0, period)->text() == QLatin1String("No"))
                break;
        }
    }
    press(phase1, "cmdSave");
    return phase1;
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
    registerAllScreens(registry);
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
    saveWithMenu(main, "mnuTimeTableEntry", docs, QStringLiteral("main-window.png"));

    // A user's login and privileges shown back in the tree.
    if (QWidget *privileges = openChild<QWidget>(main, QStringLiteral("frmUtilUserPrivilegeMaster"))) {
        press(privileges, "cmdEdit");
        auto *user = privileges->findChild<QComboBox *>(QStringLiteral("dbcUserName"));
        user->setCurrentIndex(user->findText(QStringLiteral("Office Head")));
        emit user->activated(user->currentIndex());
        if (QMdiSubWindow *frame = frameOf(privileges)) {
            frame->resize(frame->width(), main->findChild<QMdiArea *>()->viewport()->height() - 24);
            frame->move(frame->x(), 12);
        }
    }
    save(main, docs, QStringLiteral("user-privileges.png"));
    closeChildren(main);

    // The week, generated through the generation screens as the office would: Phase I with its settings,
    // Phase II, then Fix Balance Periods while periods stay open (at most three presses, as ttcli generate).
    main->resize(1280, 860);
    QApplication::processEvents();
    auto *area = main->findChild<QMdiArea *>();
    QWidget *phase1 = settlePhaseOne(main, area);
    if (phase1) {
        press(phase1, "cmdProcess");
        bringForward(main, phase1);
        press(phase1, "cmdTimeTablePercentage");
    }
    QTextStream(stdout) << "Phase I placed " << periodsPlaced() << " of " << periodsToPlace() << '\n';
    save(main, docs, QStringLiteral("auto-generation-phase-1.png"));

    closeChildren(main);

    QWidget *phase2 = openChild<QWidget>(main, QStringLiteral("frmAutoGenerationPhaseII"));
    press(phase2, "cmdProcess");
    for (int fix = 1; fix <= 3 && periodsPlaced() < periodsToPlace(); ++fix)
        if (!press(phase2, "cmdFixBalancePeriods"))
            break;
    // Phase II at the top, and under it the pending window that its last press opened.
    if (QMdiSubWindow *frame = frameOf(phase2)) {
        frame->move(16, 16);
        if (QMdiSubWindow *below = frameOf(openScreenNamed(QStringLiteral("frmPendingPeriods"))))
            below->move(16, frame->geometry().bottom() + 16);
    }
    bringForward(main, phase2);
    press(phase2, "cmdTotalAchieved");
    QTextStream(stdout) << "Phase II placed " << periodsPlaced() << " of " << periodsToPlace() << '\n';
    save(main, docs, QStringLiteral("auto-generation-phase-2.png"));

    // The pending window of Phase II, or of Phase I when Phase II holds nothing open, with a reason showing.
    press(phase2, "cmdBalancePeriods");
    QWidget *pending = openScreenNamed(QStringLiteral("frmPendingPeriods"));
    if (!pending || control<QTableWidget>(pending, "msgDetails")->rowCount() == 0) {
        phase1 = openChild<QWidget>(main, QStringLiteral("frmAutoGenerationPhaseI"));
        press(phase1, "cmdPendingPeriods");
        pending = openScreenNamed(QStringLiteral("frmPendingPeriods"));
    }
    if (QMdiSubWindow *frame = frameOf(pending)) {
        bringForward(main, pending);
        frame->resize(frame->width(), area->viewport()->height() - 2 * 16);
        frame->move((area->viewport()->width() - frame->width()) / 2, 16);
        auto *rows = control<QTableWidget>(pending, "msgDetails");
        auto *reason = control<QPlainTextEdit>(pending, "txtReason");
        for (int row = 0; row < rows->rowCount(); ++row) {
            rows->selectRow(row);
            QApplication::processEvents();
            if (!reason->toPlainText().trimmed().isEmpty())
                break;
        }
        QTextStream(stdout) << "Pending rows: " << rows->rowCount() << '\n';
    }
    save(main, docs, QStringLiteral("pending-periods.png"));

    // What the generator left open, placed by moving periods from the pending window.
    if (pending) {
        press(pending, "cmdCompletePeriods");
        QTextStream(stdout) << "Completed: " << periodsPlaced() << " of " << periodsToPlace() << '\n';
        bringForward(main, phase2);
        press(phase2, "cmdTotalAchieved");
        bringForward(main, pending);
    }
    save(main, docs, QStringLiteral("pending-periods-completed.png"));
    closeChildren(main);
    main->resize(1100, 720);

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
