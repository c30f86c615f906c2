#include "frmteachermaster.h"
#include "findcontrol.h"
#include "frmteachersearch.h"
#include "optionaldateedit.h"
#include "scriptedmessages.h"
#include "teststore.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QDateEdit>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

namespace {

// Records the masters the add buttons ask for.
class RecordingHost : public ScreenHost
{
public:
    void openScreen(const QString &formName) override { opened << formName; }
    QStringList opened;
};

const QString Saved = QStringLiteral("Record Saved");
const QString Updated = QStringLiteral("Record Updated");
const QString BirthNotBeforeToday = QStringLiteral("'Date Of Birth' Should Be Lesser Than 'Current Date'");

}

class tst_frmTeacherMaster : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;
    RecordingHost m_host;
    frmTeacherMaster *m_screen = nullptr;

    template<typename T = QWidget>
    T *control(const QString &name) const
    {
        return findControl<T>(m_screen, name);
    }
    void click(const QString &button) const
    {
        FIND_OR_FAIL(pressed, control<QPushButton>(button));
        QTest::mouseClick(pressed, Qt::LeftButton);
    }
    void key(const QString &name, Qt::Key key) const
    {
        FIND_OR_FAIL(widget, control(name));
        QTest::keyClick(widget, key);
    }
    void type(const QString &field, const QString &text) const
    {
        FIND_OR_FAIL(edit, control<QLineEdit>(field));
        edit->clear();
        QTest::keyClicks(edit, text);
    }
    QString text(const QString &field) const
    {
        FIND_OR_FAIL(edit, control<QLineEdit>(field), QString());
        return edit->text();
    }
    QString shown(const QString &combo) const
    {
        FIND_OR_FAIL(list, control<QComboBox>(combo), QString());
        return list->currentText();
    }
    bool enabled(const QString &name) const
    {
        FIND_OR_FAIL(widget, control(name), false);
        return widget->isEnabled();
    }
    void setDate(const QString &name, const QDate &date) const
    {
        FIND_OR_FAIL(edit, control<OptionalDateEdit>(name));
        edit->setDate(date);
    }
    void check(const QString &name) const
    {
        FIND_OR_FAIL(option, control<QRadioButton>(name));
        option->click();
    }
    void pick(const QString &combo, const QString &entry) const
    {
        FIND_OR_FAIL(list, control<QComboBox>(combo));
        const int index = list->findText(entry);
        QVERIFY2(index >= 0, qPrintable(entry));
        list->setCurrentIndex(index);
    }
    QStringList entries(const QString &combo) const
    {
        FIND_OR_FAIL(list, control<QComboBox>(combo), QStringList());
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts << list->itemText(i);
        return texts;
    }
    void addTeacher(int code, const QString &name, const QString &shortName, int periods) const
    {
        m_store->exec(QStringLiteral("INSERT INTO TeacherMaster VALUES (?, 1, ?, ?, NULL, '', NULL, NULL, '', '', '', "
                                     "0, '', '', 0, '', ?, 0, 0, 0, 0, 0)"),
                      {code, name, shortName, periods});
    }
    void allot(int teacher, int subject, int periods) const
    {
        m_store->exec(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, 1, 1, ?, ?, '', '', '', 0, 0, 0, '', '')"),
                      {teacher, subject, periods});
    }
    // New with the required fields filled.
    void startNew(const QString &name, const QString &shortName, const QString &periods) const
    {
        click(QStringLiteral("cmdNew"));
        pick(QStringLiteral("dbcSalutationName"), QStringLiteral("Mr."));
        type(QStringLiteral("txtTeacherName"), name);
        type(QStringLiteral("txtTeacherShortName"), shortName);
        type(QStringLiteral("txtNoOfPeriods"), periods);
    }
    // The field that has the focus; a date field counts as a whole.
    QString focused() const
    {
        QWidget *widget = m_screen->focusWidget();
        if (!widget)
            return {};
        if (auto *date = qobject_cast<OptionalDateEdit *>(widget->parentWidget()))
            return date->objectName();
        return widget->objectName();
    }
    QVariant column(const QString &name, int code) const
    {
        return m_store->scalar(QStringLiteral("SELECT %1 FROM TeacherMaster WHERE TeacherCode = ?").arg(name), {code});
    }

private slots:
    void init()
    {
        m_store = new TestStore;
        m_messages.reset();
        m_host.opened.clear();
        m_store->setMessages(m_messages);
        m_store->context().host = &m_host;
        m_store->setUpSchool(6, 8, 5, 4); // 45 periods a week
        m_store->exec(QStringLiteral("INSERT INTO StateMaster VALUES (2, 'Goa')"));
        m_store->exec(QStringLiteral("INSERT INTO CityMaster VALUES (2, 2, 'Panaji')"));
        m_store->exec(QStringLiteral("INSERT INTO CityMaster VALUES (3, 1, 'Alappuzha')"));
        m_store->exec(QStringLiteral("INSERT INTO SalutationMaster VALUES (1, 'Mr.'), (2, 'Mrs.')"));
        m_store->exec(QStringLiteral("INSERT INTO BloodGroupMaster VALUES (1, 'O+'), (2, 'AB-')"));
        m_store->exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 1, 1)"));
        m_store->exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1)"));
        m_store->exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (1, 'English', 'ENG'), (2, 'Maths', 'MAT')"));
        m_screen = new frmTeacherMaster(m_store->context());
        m_screen->show();
    }

    void cleanup()
    {
        delete m_screen;
        QVERIFY2(m_messages.done(), m_messages.report());
        delete m_store;
    }

    void listsAndAddButtons()
    {
        QCOMPARE(entries(QStringLiteral("dbcSalutationName")), (QStringList{"", "Mr.", "Mrs."}));
        QCOMPARE(entries(QStringLiteral("dbcStateName")), (QStringList{"", "Goa", "Kerala"}));
        QCOMPARE(entries(QStringLiteral("dbcBloodGroup")), (QStringList{"", "AB-", "O+"}));
        click(QStringLiteral("cmdNew"));
        pick(QStringLiteral("dbcStateName"), QStringLiteral("Kerala"));
        QCOMPARE(entries(QStringLiteral("dbcCityName")), (QStringList{"", "Alappuzha", "Kochi"}));
        pick(QStringLiteral("dbcCityName"), QStringLiteral("Kochi"));
        pick(QStringLiteral("dbcStateName"), QStringLiteral("Goa"));
        QCOMPARE(shown(QStringLiteral("dbcCityName")), QString());

        for (const char *button : {"cmdAddSalutationName", "cmdAddStateName", "cmdAddCityName", "cmdAddBloodGroup"})
            click(QString::fromLatin1(button));
        QCOMPARE(m_host.opened, (QStringList{"frmSalutationMaster", "frmStateMaster", "frmCityMaster",
                                             "frmBloodGroupMaster"}));

        // Back from a master, as a window of its own or as a child window beside others: the new rows are
        // there and the choice stands.
        pick(QStringLiteral("dbcCityName"), QStringLiteral("Panaji"));
        m_store->exec(QStringLiteral("INSERT INTO StateMaster VALUES (3, 'Assam')"));
        m_store->exec(QStringLiteral("INSERT INTO CityMaster VALUES (4, 2, 'Margao')"));
        QEvent activate(QEvent::WindowActivate);
        QCoreApplication::sendEvent(m_screen, &activate);
        QCOMPARE(entries(QStringLiteral("dbcStateName")), (QStringList{"", "Assam", "Goa", "Kerala"}));
        QCOMPARE(entries(QStringLiteral("dbcCityName")), (QStringList{"", "Margao", "Panaji"}));
        QCOMPARE(shown(QStringLiteral("dbcCityName")), QStringLiteral("Panaji"));

        QMdiArea area;
        QMdiSubWindow *teacherWindow = area.addSubWindow(m_screen);
        QMdiSubWindow *otherWindow = area.addSubWindow(new QWidget);
        area.show();
        area.setActiveSubWindow(otherWindow);
        m_store->exec(QStringLiteral("INSERT INTO BloodGroupMaster VALUES (3, 'B+')"));
        area.setActiveSubWindow(teacherWindow);
        QCOMPARE(entries(QStringLiteral("dbcBloodGroup")), (QStringList{"", "AB-", "B+", "O+"}));
        teacherWindow->setWidget(nullptr);
        m_screen->setParent(nullptr);
    }

    void saveChecksInOrder_data()
    {
        QTest::addColumn<QString>("salutation");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shortName");
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("periods");
        QTest::addColumn<int>("dobYearsAgo"); // 0: not set
        QTest::addColumn<int>("joiningYearsAgo");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");

        QTest::newRow("no salutation") << "" << "Ravi" << "RV" << "" << "10" << 0 << 0 << "Select Salutation"
                                       << "dbcSalutationName";
        QTest::newRow("no name") << "Mr." << "  " << "RV" << "" << "10" << 0 << 0 << "Enter Teacher Name"
                                 << "txtTeacherName";
        QTest::newRow("no short name") << "Mr." << "Ravi" << "" << "" << "10" << 0 << 0 << "Enter Teacher Short Name"
                                       << "txtTeacherShortName";
        QTest::newRow("state without city") << "Mr." << "Ravi" << "RV" << "Goa" << "10" << 0 << 0
                                            << "State Name Is Selected. So You Should Select City Name"
                                            << "dbcCityName";
        QTest::newRow("no periods") << "Mr." << "Ravi" << "RV" << "" << "0" << 0 << 0 << "Enter No. Of Working Periods"
                                    << "txtNoOfPeriods";
        QTest::newRow("joined before birth") << "Mr." << "Ravi" << "RV" << "" << "10" << 30 << 31
                                             << "'Joining Date' Should Be Greater Than 'Date Of Birth'" << "dtpJoining";
        QTest::newRow("born in the future") << "Mr." << "Ravi" << "RV" << "" << "10" << -1 << 0 << BirthNotBeforeToday
                                            << "dtpDOB";
        QTest::newRow("name in other case and spacing") << "Mr." << "  anu   MATHEW " << "RV" << "" << "10" << 0 << 0
                                                        << "Teacher Name Already Exists" << "txtTeacherName";
        QTest::newRow("short name in other case") << "Mr." << "Ravi" << "am" << "" << "10" << 0 << 0
                                                  << "Teacher Short Name Aready Exists" << "txtTeacherShortName";
        QTest::newRow("periods of the whole week") << "Mrs." << "Ravi" << "RV" << "" << "45" << 30 << 5 << Saved
                                                   << "cmdNew";
    }

    void saveChecksInOrder()
    {
        QFETCH(QString, salutation);
        QFETCH(QString, name);
        QFETCH(QString, shortName);
        QFETCH(QString, state);
        QFETCH(QString, periods);
        QFETCH(int, dobYearsAgo);
        QFETCH(int, joiningYearsAgo);
        QFETCH(QString, message);
        QFETCH(QString, focus);
        addTeacher(1, QStringLiteral("Anu Mathew"), QStringLiteral("AM"), 20);
        const QDate today = QDate::currentDate();

        startNew(name, shortName, periods);
        pick(QStringLiteral("dbcSalutationName"), salutation);
        pick(QStringLiteral("dbcStateName"), state);
        if (dobYearsAgo != 0)
            setDate(QStringLiteral("dtpDOB"), today.addYears(-dobYearsAgo));
        if (joiningYearsAgo != 0)
            setDate(QStringLiteral("dtpJoining"), today.addYears(-joiningYearsAgo));
        m_messages.expectInformation(message);
        click(QStringLiteral("cmdSave"));
        QVERIFY2(m_messages.done(), m_messages.report());
        QCOMPARE(focused(), focus);
        QCOMPARE(m_store->count(QStringLiteral("TeacherMaster")), message == Saved ? 3 : 2);
        if (dobYearsAgo < 0) { // the date goes back to today
            FIND_OR_FAIL(dob, control<OptionalDateEdit>(QStringLiteral("dtpDOB")));
            QCOMPARE(dob->date(), today);
        }
    }

    void periodsHeldToTheWeekWhileTyping()
    {
        startNew(QStringLiteral("Ravi"), QStringLiteral("RV"), QString());
        m_messages.expectInformation(QStringLiteral("'No. Of Working Periods' Should Not Exceed 'Periods Per Week'(45)"));
        type(QStringLiteral("txtNoOfPeriods"), QStringLiteral("46"));
        QVERIFY2(m_messages.done(), m_messages.report());
        QCOMPARE(text(QStringLiteral("txtNoOfPeriods")), QString());
        type(QStringLiteral("txtNoOfPeriods"), QStringLiteral("45"));
        QCOMPARE(text(QStringLiteral("txtNoOfPeriods")), QStringLiteral("45"));
    }

    // A text longer than its column is held at the limit and said so, not cut short without a word.
    void textFieldsSayWhenFull_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("limit");
        QTest::addColumn<QString>("message");
        QTest::newRow("teacher name") << "txtTeacherName" << 100 << "Teacher Name Can Have At Most 100 Characters";
        QTest::newRow("short name") << "txtTeacherShortName" << 3
                                    << "Teacher's Short Name Can Have At Most 3 Characters";
        QTest::newRow("father or spouse") << "txtFHName" << 100 << "Father/Spouse Name Can Have At Most 100 Characters";
        QTest::newRow("address") << "txtAddress2" << 100 << "Address2 Can Have At Most 100 Characters";
        QTest::newRow("pincode") << "txtPincode" << 15 << "PinCode Can Have At Most 15 Characters";
        QTest::newRow("telephone") << "txtTelephone" << 20 << "Telephone Can Have At Most 20 Characters";
        QTest::newRow("qualification") << "txtQualification" << 50 << "Qualification Can Have At Most 50 Characters";
    }

    void textFieldsSayWhenFull()
    {
        QFETCH(QString, field);
        QFETCH(int, limit);
        QFETCH(QString, message);
        click(QStringLiteral("cmdNew"));
        FIND_OR_FAIL(edit, control<QLineEdit>(field));
        QTest::keyClicks(edit, QString(limit, QLatin1Char('a'))); // up to the limit without a word
        m_messages.expectInformation(message);
        QTest::keyClick(edit, Qt::Key_B);
        QVERIFY2(m_messages.done(), m_messages.report());
        QCOMPARE(edit->text(), QString(limit, QLatin1Char('a')));

        // A longer text pasted in: what fits stays, and the user hears that the rest was left out.
        edit->clear();
        m_messages.expectInformation(message);
        QGuiApplication::clipboard()->setText(QString(limit + 17, QLatin1Char('c')));
        edit->paste();
        QCOMPARE(edit->text(), QString(limit, QLatin1Char('c')));
    }

    // Esc asks for Exit from a field or a closed list, as the Exit button does.
    void escapeAsksForExit()
    {
        m_store->context().session.confirmExit = true;
        const QString question = QStringLiteral("Do You Want To Exit Teacher Master ?");
        click(QStringLiteral("cmdNew"));
        m_messages.expectQuestion(question, false);
        key(QStringLiteral("txtTeacherName"), Qt::Key_Escape);
        QVERIFY(m_screen->isVisible());
        m_messages.expectQuestion(question, true);
        key(QStringLiteral("dbcStateName"), Qt::Key_Escape);
        QVERIFY(!m_screen->isVisible());
    }

    void periodsNotBelowTheAllotment()
    {
        const QString floor = QStringLiteral("Already WorkAllotment Entry Exists For 12Periods") + '\n'
            + QStringLiteral("If You Want To Reduce Below 12 Periods, You Have To Delete WorkAllotment Entries");
        addTeacher(1, QStringLiteral("Anu Mathew"), QStringLiteral("AM"), 20);
        allot(1, 1, 8);
        allot(1, 2, 4);
        QVERIFY(m_screen->showTeacher(1));
        click(QStringLiteral("cmdEdit"));
        FIND_OR_FAIL(periods, control<QLineEdit>(QStringLiteral("txtNoOfPeriods")));
        FIND_OR_FAIL(teacherName, control(QStringLiteral("txtTeacherName")));

        m_messages.expectInformation(floor);
        type(QStringLiteral("txtNoOfPeriods"), QStringLiteral("11"));
        QTest::keyClick(periods, Qt::Key_Return);
        QVERIFY2(m_messages.done(), m_messages.report());
        QCOMPARE(periods->text(), QString());
        QTRY_COMPARE(m_screen->focusWidget(), periods);

        // A value that never passed through the field (pasted from elsewhere) is caught by Save.
        teacherName->setFocus();
        periods->setText(QStringLiteral("10"));
        m_messages.expectInformation(floor);
        click(QStringLiteral("cmdSave"));
        QVERIFY2(m_messages.done(), m_messages.report());
        QCOMPARE(column(QStringLiteral("NoOfPeriods"), 1), QVariant(20));

        type(QStringLiteral("txtNoOfPeriods"), QStringLiteral("12"));
        QTest::keyClick(periods, Qt::Key_Return);
        m_messages.expectInformation(Updated);
        click(QStringLiteral("cmdSave"));
        QCOMPARE(column(QStringLiteral("NoOfPeriods"), 1), QVariant(12));
    }

    void datesAndMaritalStatus()
    {
        addTeacher(1, QStringLiteral("Anu Mathew"), QStringLiteral("AM"), 20);
        startNew(QStringLiteral("Ravi"), QStringLiteral("RV"), QStringLiteral("30"));
        FIND_OR_FAIL(dob, control<OptionalDateEdit>(QStringLiteral("dtpDOB")));
        FIND_OR_FAIL(wedding, control<OptionalDateEdit>(QStringLiteral("dtpWedding")));
        auto *dobPicker = dob->findChild<QDateEdit *>();
        QVERIFY(dobPicker);
        dob->setDate(QDate(1980, 5, 1));
        m_messages.expectInformation(BirthNotBeforeToday);
        dobPicker->setDate(QDate::currentDate()); // as the user picks it
        QVERIFY2(m_messages.done(), m_messages.report());
        dob->setDate(QDate(1980, 5, 1));

        check(QStringLiteral("optMarried"));
        wedding->setDate(QDate(2006, 1, 20));
        check(QStringLiteral("optSingle"));
        QVERIFY(!wedding->isEnabled());
        QVERIFY(!wedding->date().isValid());
        check(QStringLiteral("optMarried"));
        QVERIFY(wedding->isEnabled());
        m_messages.expectInformation(Saved);
        click(QStringLiteral("cmdSave"));
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT DOB || '|' || MaritalStatus || '|' || IFNULL(WeddingDate, 'null') "
                                                "|| '|' || IFNULL(JoiningDate, 'null') FROM TeacherMaster "
                                                "WHERE TeacherCode = 2")),
                 QVariant(QStringLiteral("1980-05-01|M|null|null")));

        // Unset dates stay unset through an Edit.
        QVERIFY(m_screen->showTeacher(2));
        click(QStringLiteral("cmdEdit"));
        type(QStringLiteral("txtQualification"), QStringLiteral("M.Sc."));
        m_messages.expectInformation(Updated);
        click(QStringLiteral("cmdSave"));
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT COUNT(*) FROM TeacherMaster WHERE TeacherCode = 2 AND "
                                                "WeddingDate IS NULL AND JoiningDate IS NULL AND DOB = '1980-05-01'")),
                 QVariant(1));
    }

    void saveSearchEditDeleteRoundTrip()
    {
        startNew(QStringLiteral("  Meera Nair "), QStringLiteral("MN "), QStringLiteral("32"));
        pick(QStringLiteral("dbcSalutationName"), QStringLiteral("Mrs."));
        type(QStringLiteral("txtFHName"), QStringLiteral("Gopal Nair"));
        type(QStringLiteral("txtAddress1"), QStringLiteral("Rose Villa"));
        pick(QStringLiteral("dbcStateName"), QStringLiteral("Kerala"));
        pick(QStringLiteral("dbcCityName"), QStringLiteral("Kochi"));
        type(QStringLiteral("txtPincode"), QStringLiteral("682024"));
        setDate(QStringLiteral("dtpJoining"), QDate(2010, 6, 1));
        check(QStringLiteral("optSingle"));
        type(QStringLiteral("txtTelephone"), QStringLiteral("0484 2345678"));
        pick(QStringLiteral("dbcBloodGroup"), QStringLiteral("O+"));
        type(QStringLiteral("txtSeniorityNo"), QStringLiteral("4"));
        m_messages.expectInformation(Saved);
        click(QStringLiteral("cmdSave"));
        QVERIFY(!enabled(QStringLiteral("fraMain")));
        const QString row = QStringLiteral(
            "SELECT TeacherCode || '|' || SalutationCode || '|' || TeacherName || '|' || TeacherShortName || '|' || "
            "IFNULL(DOB, 'null') || '|' || MaritalStatus || '|' || JoiningDate || '|' || CityCode || '|' || Pincode || "
            "'|' || BloodGroupCode || '|' || NoOfPeriods || '|' || SeniorityNo || '|' || ClassCode || DivisionCode || "
            "SubjectCode || PeriodCode FROM TeacherMaster WHERE TeacherCode = 1");
        QCOMPARE(m_store->scalar(row), QVariant(QStringLiteral("1|2|Meera Nair|MN|null|S|2010-06-01|1|682024|1|32|4|0000")));

        // Found through the search; the class-teacher duty given meanwhile survives the Edit.
        m_store->exec(QStringLiteral("UPDATE TeacherMaster SET ClassCode = 1, DivisionCode = 1, SubjectCode = 2, "
                                     "PeriodCode = 1 WHERE TeacherCode = 1"));
        click(QStringLiteral("cmdSearch"));
        auto *search = m_screen->findChild<frmTeacherSearch *>();
        QVERIFY(search && search->isVisible());
        FIND_OR_FAIL(searchName, findControl<QLineEdit>(search, "txtTeacherName"));
        FIND_OR_FAIL(searchButton, findControl<QPushButton>(search, "cmdSearch"));
        FIND_OR_FAIL(grid, findControl<QTableWidget>(search, "dgdDetails"));
        QTest::keyClicks(searchName, QStringLiteral("meera"));
        QTest::mouseClick(searchButton, Qt::LeftButton);
        QCOMPARE(grid->rowCount(), 1);
        m_messages.expectQuestion(QStringLiteral("Do You Want To Edit/Delete ?"), true);
        grid->setCurrentCell(0, 1);
        QTest::keyClick(grid, Qt::Key_Return);
        QVERIFY(!search->isVisible());
        QCOMPARE(text(QStringLiteral("txtTeacherName")), QStringLiteral("Meera Nair"));
        QCOMPARE(shown(QStringLiteral("dbcCityName")), QStringLiteral("Kochi"));
        QVERIFY(enabled(QStringLiteral("cmdEdit")));
        QVERIFY(enabled(QStringLiteral("cmdDelete")));

        click(QStringLiteral("cmdEdit"));
        type(QStringLiteral("txtTeacherName"), QStringLiteral("Meera G. Nair"));
        m_messages.expectInformation(Updated);
        click(QStringLiteral("cmdSave"));
        QCOMPARE(m_store->scalar(row),
                 QVariant(QStringLiteral("1|2|Meera G. Nair|MN|null|S|2010-06-01|1|682024|1|32|4|1121")));

        QVERIFY(m_screen->showTeacher(1));
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Teacher ?"), false);
        click(QStringLiteral("cmdDelete"));
        QCOMPARE(m_store->count(QStringLiteral("TeacherMaster")), 2);
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Teacher ?"), true);
        m_messages.expectInformation(QStringLiteral("Record Deleted"));
        click(QStringLiteral("cmdDelete"));
        QCOMPARE(m_store->count(QStringLiteral("TeacherMaster")), 1);
        QVERIFY(!enabled(QStringLiteral("cmdDelete")));
    }

    // The Phase I settings name teachers: a rename reaches them, whether or not its teacher table exists.
    void renameCarriedIntoPhaseOneSettings_data()
    {
        QTest::addColumn<bool>("teacherSettings");
        QTest::newRow("with teacher settings") << true;
        QTest::newRow("subject settings only") << false;
    }

    void renameCarriedIntoPhaseOneSettings()
    {
        QFETCH(bool, teacherSettings);
        addTeacher(1, QStringLiteral("Anu Mathew"), QStringLiteral("AM"), 20);
        addTeacher(2, QStringLiteral("Biju Paul"), QStringLiteral("BP"), 20);
        if (teacherSettings) {
            m_store->exec(QStringLiteral("CREATE TABLE AGP1TeacherDetails (TeacherName TEXT, P1 TEXT, P2 TEXT, "
                                         "TeacherCode TEXT, NoOfPeriods TEXT, Counts TEXT, POLWDC TEXT)"));
            m_store->exec(QStringLiteral("INSERT INTO AGP1TeacherDetails VALUES "
                                         "('Anu Mathew', 'Y', '', '1', '20', '1', '1'), "
                                         "('Biju Paul', '', 'Y', '2', '20', '1', '1')"));
        }
        m_store->exec(QStringLiteral("INSERT INTO AGP1SubjectTeacherDetails VALUES ('English', 'Anu Mathew', 6), "
                                     "('Maths', 'Anu Mathew', 4), ('Maths', 'Biju Paul', 5)"));
        QVERIFY(m_screen->showTeacher(1));
        click(QStringLiteral("cmdEdit"));
        type(QStringLiteral("txtTeacherName"), QStringLiteral("Anu K. Mathew"));
        m_messages.expectInformation(Updated);
        click(QStringLiteral("cmdSave"));

        QCOMPARE(m_store->scalar(QStringLiteral("SELECT group_concat(SubjectName || ':' || TeacherName, ', ') FROM "
                                                "(SELECT * FROM AGP1SubjectTeacherDetails ORDER BY SubjectName, TeacherName)")),
                 QVariant(QStringLiteral("English:Anu K. Mathew, Maths:Anu K. Mathew, Maths:Biju Paul")));
        if (teacherSettings)
            QCOMPARE(m_store->scalar(QStringLiteral("SELECT group_concat(TeacherCode || ':' || TeacherName, ', ') FROM "
                                                    "(SELECT * FROM AGP1TeacherDetails ORDER BY TeacherCode)")),
                     QVariant(QStringLiteral("1:Anu K. Mathew, 2:Biju Paul")));
    }

    // Each thing that still uses the teacher is named in turn, in a fixed order, until none is left.
    void deleteRefusedInOrder()
    {
        addTeacher(1, QStringLiteral("Anu Mathew"), QStringLiteral("AM"), 20);
        allot(1, 1, 6);
        m_store->exec(QStringLiteral("INSERT INTO TimeTable VALUES (1, 1, 1, 1, 1, 1, 'M', '', '', '')"));
        m_store->exec(QStringLiteral("CREATE TABLE AGP1TeacherDetails (TeacherName TEXT, P1 TEXT, TeacherCode TEXT, "
                                     "NoOfPeriods TEXT, Counts TEXT, POLWDC TEXT)"));
        m_store->exec(QStringLiteral("INSERT INTO AGP1TeacherDetails VALUES ('ANU MATHEW', 'Y', '1', '20', '1', '1')"));
        m_store->exec(QStringLiteral("INSERT INTO AGP1SubjectTeacherDetails VALUES ('English', 'Anu Mathew', 6)"));
        m_store->exec(QStringLiteral("INSERT INTO SubstituteAllotment VALUES (1, '2025-07-01', 0, 1, 0, 1, 1, 1, 1, 'A', 1)"));
        const auto lines = [](const QString &first, const QString &second) { return first + '\n' + second; };
        const QList<QPair<QString, QString>> steps{
            {lines(QStringLiteral("This Teacher Cannot Be Deleted Because TimeTable Entries Exist For This Teacher"),
                   QStringLiteral("After Removing Timetable Entries Of This Teacher, You Can Delete This Teacher")),
             QStringLiteral("DELETE FROM TimeTable")},
            {lines(QStringLiteral("This Teacher Cannot Be Deleted Because A Teacher Setting Exists In Auto-Generation Phase I Screen For This Teacher"),
                   QStringLiteral("After Removing That Teacher Setting, You Can Delete This Teacher")),
             QStringLiteral("DROP TABLE AGP1TeacherDetails")},
            {lines(QStringLiteral("This Teacher Cannot Be Deleted Because A Subject Setting Exists In Auto-Generation Phase I Screen For This Teacher"),
                   QStringLiteral("After Removing That Subject Setting, You Can Delete This Teacher")),
             QStringLiteral("DELETE FROM AGP1SubjectTeacherDetails")},
            {lines(QStringLiteral("This Teacher Cannot Be Deleted Because Work Allotment Entries Exist For This Teacher"),
                   QStringLiteral("After Removing WorkAllotment Entries Of This Teacher, You Can Delete This Teacher")),
             QStringLiteral("DELETE FROM WorkAllotmentEntry")}};
        QVERIFY(m_screen->showTeacher(1));
        for (const auto &[refusal, removal] : steps) {
            m_messages.expectInformation(refusal);
            click(QStringLiteral("cmdDelete"));
            QVERIFY2(m_messages.done(), m_messages.report());
            m_store->exec(removal);
        }
        // The substitute history still names the teacher: the store refuses, and the office is told where.
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Teacher ?"), true);
        m_messages.expectCritical(QStringLiteral("This Record Is Used In 'Substitute Allotment'. So You Cannot Delete It"));
        click(QStringLiteral("cmdDelete"));
        QCOMPARE(column(QStringLiteral("TeacherName"), 1), QVariant(QStringLiteral("Anu Mathew")));
    }
};

QTEST_MAIN(tst_frmTeacherMaster)
#include "tst_frmteachermaster.moc"
