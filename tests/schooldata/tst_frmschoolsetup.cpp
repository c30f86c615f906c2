#include "frmschoolsetup.h"
#include "findcontrol.h"
#include "scriptedmessages.h"
#include "session.h"
#include "teststore.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

namespace {
const QString PeriodDetailsMissing = QStringLiteral("Enter Period Duration Details");

// Opens the masters "beside" the screen: the office adds a row there before coming back.
class AddingHost : public ScreenHost
{
public:
    explicit AddingHost(TestStore &store) : m_store(store) {}
    QStringList opened;
    void openScreen(const QString &formName) override
    {
        opened << formName;
        if (formName == QLatin1String("frmStateMaster"))
            m_store.exec(QStringLiteral("INSERT INTO StateMaster VALUES (2, 'Goa')"));
        else
            m_store.exec(QStringLiteral("INSERT INTO CityMaster VALUES (3, 1, 'Alappuzha')"));
    }

private:
    TestStore &m_store;
};
}

class tst_frmSchoolSetup : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;
    frmSchoolSetup *m_screen = nullptr;

    template<typename T = QLineEdit>
    T *control(const char *name) const
    {
        return findControl<T>(m_screen, name);
    }
    void click(const char *name) const
    {
        FIND_OR_FAIL(button, control<QPushButton>(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void key(const char *name, Qt::Key key) const
    {
        FIND_OR_FAIL(widget, control<QWidget>(name));
        QTest::keyClick(widget, key);
    }
    void type(const char *name, const QString &text) const
    {
        FIND_OR_FAIL(field, control(name));
        field->selectAll();
        QTest::keyClicks(field, text);
    }
    void setText(const char *name, const QString &text) const
    {
        FIND_OR_FAIL(field, control(name));
        field->setText(text);
    }
    QString text(const char *name) const
    {
        FIND_OR_FAIL(field, control(name), QString());
        return field->text();
    }
    QString label(const char *name) const
    {
        FIND_OR_FAIL(label, control<QLabel>(name), QString());
        return label->text();
    }
    QString shown(const char *name) const
    {
        FIND_OR_FAIL(combo, control<QComboBox>(name), QString());
        return combo->currentText();
    }
    bool enabled(const char *name) const
    {
        FIND_OR_FAIL(widget, control<QWidget>(name), false);
        return widget->isEnabled();
    }
    bool visible(const char *name) const
    {
        FIND_OR_FAIL(widget, control<QWidget>(name), false);
        return widget->isVisible();
    }
    void choose(const char *name, int code) const
    {
        FIND_OR_FAIL(combo, control<QComboBox>(name));
        combo->setCurrentIndex(combo->findData(code));
    }
    // Minutes typed into the box over the grid, Enter after each.
    void typeMinutes(const QStringList &minutes) const
    {
        for (const QString &value : minutes) {
            type("txtDurationInMinutes", value);
            key("txtDurationInMinutes", Qt::Key_Return);
        }
    }
    void open()
    {
        m_screen = new frmSchoolSetup(m_store->context());
        m_screen->show();
        QApplication::setActiveWindow(m_screen);
        QVERIFY(QTest::qWaitForWindowActive(m_screen));
    }
    int dayCode(const char *dayName) const
    {
        return m_store->scalar(QStringLiteral("SELECT DayCode FROM DayMaster WHERE DayName = ?"),
                               {QString::fromLatin1(dayName)})
            .toInt();
    }

private slots:
    void init()
    {
        m_messages.reset();
        m_store = new TestStore;
        m_store->setMessages(m_messages);
    }
    void cleanup()
    {
        QVERIFY2(m_messages.done(), m_messages.report());
        delete m_screen;
        m_screen = nullptr;
        delete m_store;
    }

    void newSchoolStartsTheWeekOnTheChosenDay()
    {
        m_store->exec(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Kerala')"));
        m_store->exec(QStringLiteral("INSERT INTO CityMaster VALUES (1, 1, 'Kochi'), (2, 1, 'Thrissur')"));
        open();
        QVERIFY(!enabled("cmdEdit"));
        click("cmdNew");
        QCOMPARE(shown("cboFirstDayOfTheWeek"), QStringLiteral("Monday"));
        type("txtSchoolName", QStringLiteral("  St. Mary's [Senior] School "));
        type("txtAddress1", QStringLiteral("Church Road"));
        choose("dbcStateName", 1);
        FIND_OR_FAIL(cities, control<QComboBox>("dbcCityName"));
        QCOMPARE(cities->count(), 3); // the blank row and the state's two cities
        choose("dbcCityName", 2);
        type("txtPincode", QStringLiteral("680001"));
        type("txtNoOfWorkingDays", QStringLiteral("6"));
        type("txtPeriodsPerDay", QStringLiteral("4"));
        type("txtPeriodsOnLastWorkingDay", QStringLiteral("4"));
        type("txtPeriodsInMorningSession", QStringLiteral("2"));
        choose("cboFirstDayOfTheWeek", 3);

        click("cmdPeriodDetails");
        QVERIFY(visible("fraPeriodDetails"));
        typeMinutes({"45", "45", "40", "40"});
        FIND_OR_FAIL(closeButton, control<QPushButton>("cmdClose"));
        QVERIFY(closeButton->hasFocus());
        QCOMPARE(label("lblTotal"), QStringLiteral("Total Duration In Minutes : 170"));
        click("cmdClose");
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        click("cmdSave");

        QCOMPARE(dayCode("Wednesday"), 1);
        QCOMPARE(dayCode("Sunday"), 5);
        QCOMPARE(dayCode("Monday"), 6);
        QCOMPARE(m_store->scalar(
                     QStringLiteral("SELECT SchoolName || '|' || CityCode || '|' || DayCode FROM SchoolSetup")),
                 QVariant(QStringLiteral("St. Mary's [Senior] School|2|1")));
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT SUM(Minutes) FROM PeriodDuration")).toInt(), 170);
        const SchoolCalendar &calendar = m_store->context().session.calendar;
        QVERIFY(calendar.schoolSetUp);
        QCOMPARE(calendar.periodsPerWeek, 24);
        // Saved once, the school is edited from now on; the week shows its first day.
        QVERIFY(!enabled("cmdNew"));
        QVERIFY(enabled("cmdEdit"));
        QCOMPARE(shown("cboFirstDayOfTheWeek"), QStringLiteral("Wednesday"));
    }

    void addedPeriodsRefuseSaveUntilTimed()
    {
        m_store->setUpSchool(5, 8, 8, 4);
        open();
        click("cmdEdit");
        type("txtPeriodsPerDay", QStringLiteral("10"));
        m_messages.expectInformation(PeriodDetailsMissing);
        click("cmdSave");
        FIND_OR_FAIL(grid, control<QTableWidget>("msgPeriodDuration"));
        QCOMPARE(grid->rowCount(), 10);
        QCOMPARE(grid->item(8, 1)->text(), QStringLiteral("P9"));
        QCOMPARE(grid->item(9, 1)->text(), QStringLiteral("P10"));
        QCOMPARE(grid->currentRow(), 8);
        QVERIFY(visible("txtDurationInMinutes"));
        typeMinutes({"30"});
        click("cmdClose");

        m_messages.expectInformation(PeriodDetailsMissing);
        click("cmdSave");
        QCOMPARE(grid->currentRow(), 9);
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT PeriodsPerDay FROM SchoolSetup")).toInt(), 8);
        typeMinutes({"35"});
        click("cmdClose");
        m_messages.expectInformation(QStringLiteral("Record Updated"));
        click("cmdSave");
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT group_concat(PeriodName || '=' || Minutes, ' ') FROM "
                                                "PeriodDuration WHERE PeriodCode > 7")),
                 QVariant(QStringLiteral("P8=45 P9=30 P10=35")));
        QCOMPARE(m_store->context().session.calendar.periodsPerDay, 10);
    }

    // A day has 1440 minutes: the keystroke that passes them is taken back, reaching them exactly is fine.
    void minutesOfADayStayWithinADay()
    {
        m_store->setUpSchool(5, 8, 8, 4); // 8 periods of 45 minutes
        open();
        click("cmdEdit");
        click("cmdPeriodDetails");
        typeMinutes({"999"});
        FIND_OR_FAIL(box, control("txtDurationInMinutes"));
        type("txtDurationInMinutes", QStringLiteral("17"));
        m_messages.expectInformation(QStringLiteral("Total Duration Of Minutes Should Not Exceed 1440"));
        QTest::keyClick(box, Qt::Key_2);
        QCOMPARE(box->text(), QStringLiteral("17"));
        QVERIFY(box->hasFocus());
        QCOMPARE(label("lblTotal"), QStringLiteral("Total Duration In Minutes : 1286"));
        QTest::keyClick(box, Qt::Key_1);
        QCOMPARE(label("lblTotal"), QStringLiteral("Total Duration In Minutes : 1440"));
        FIND_OR_FAIL(grid, control<QTableWidget>("msgPeriodDuration"));
        QCOMPARE(grid->item(1, 2) ? grid->item(1, 2)->text() : QString(), QStringLiteral("171"));
    }

    // Save checks in their order; nothing is written and the field is put right as the office expects.
    void saveRefusals_data()
    {
        QTest::addColumn<QString>("days");
        QTest::addColumn<QString>("periods");
        QTest::addColumn<QString>("lastDay");
        QTest::addColumn<QString>("morning");
        QTest::addColumn<int>("firstDay");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("field");
        QTest::addColumn<bool>("emptied");
        QTest::newRow("no periods") << "5" << "" << "6" << "3" << 1 << "Enter 'Periods Per Day'"
                                    << "txtPeriodsPerDay" << true;
        QTest::newRow("no first day") << "5" << "6" << "6" << "3" << 0 << "Select 'First Day Of The Week'"
                                      << "cboFirstDayOfTheWeek" << false;
        QTest::newRow("last day above periods")
            << "5" << "6" << "8" << "3" << 1
            << "'Periods On Last Working Day' Should Not Be Greater Than 'Periods Per Day'"
            << "txtPeriodsOnLastWorkingDay" << true;
        QTest::newRow("morning above periods")
            << "5" << "6" << "6" << "7" << 1
            << "'Periods In Morning Session' Should Not Be Greater Than 'Periods Per Day'"
            << "txtPeriodsInMorningSession" << true;
        QTest::newRow("one day, shorter last day")
            << "1" << "6" << "5" << "3" << 1 << "'Periods On Last Working Day' Should Be Same As 'Periods Per Day'"
            << "txtPeriodsOnLastWorkingDay" << false;
    }
    void saveRefusals()
    {
        QFETCH(QString, days);
        QFETCH(QString, periods);
        QFETCH(QString, lastDay);
        QFETCH(QString, morning);
        QFETCH(int, firstDay);
        QFETCH(QString, text);
        QFETCH(QString, field);
        QFETCH(bool, emptied);
        m_store->setUpSchool(5, 8, 8, 4);
        open();
        click("cmdEdit");
        // Set as pasted text: the checks while typing are not what this looks at.
        setText("txtNoOfWorkingDays", days);
        setText("txtPeriodsPerDay", periods);
        setText("txtPeriodsOnLastWorkingDay", lastDay);
        setText("txtPeriodsInMorningSession", morning);
        choose("cboFirstDayOfTheWeek", firstDay);
        m_messages.expectInformation(text);
        click("cmdSave");
        FIND_OR_FAIL(focused, findControl<QWidget>(m_screen, field));
        QVERIFY(focused->hasFocus());
        if (auto *line = qobject_cast<QLineEdit *>(focused))
            QCOMPARE(line->text().isEmpty(), emptied);
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT PeriodsPerDay FROM SchoolSetup")).toInt(), 8);
    }

    void fieldChecksWhileTyping()
    {
        m_store->setUpSchool(5, 8, 8, 4);
        m_store->exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 1, 1)"));
        m_store->exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1)"));
        m_store->exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (1, 'English', 'ENG')"));
        m_store->addTeacher({1, QStringLiteral("Anu"), QStringLiteral("AN")});
        m_store->exec(QStringLiteral("INSERT INTO TimeTable VALUES (1, 1, 4, 7, 1, 1, '1', '', '', '')"));
        open();
        click("cmdEdit");
        QVERIFY(!enabled("cboFirstDayOfTheWeek"));

        m_messages.expectInformation(QStringLiteral("'No. Of Working Days' Should Not Be Greater Than 7"));
        type("txtNoOfWorkingDays", QStringLiteral("8"));
        QCOMPARE(text("txtNoOfWorkingDays"), QString());
        type("txtNoOfWorkingDays", QStringLiteral("4"));

        // Day 4 is now the last day, and it has a period 7 placed.
        m_messages.expectInformation(
            QStringLiteral("Timetable Entry Exists For More Periods Than The Entered 'Periods On Last Working Day'\n"
                           "So You Cannot Reduce 'Periods On Last Working Day'"));
        type("txtPeriodsOnLastWorkingDay", QStringLiteral("6"));
        key("txtPeriodsOnLastWorkingDay", Qt::Key_Return);
        QCOMPARE(text("txtPeriodsOnLastWorkingDay"), QStringLiteral("8"));

        m_messages.expectInformation(
            QStringLiteral("After Performing Auto-Generation, You Cannot Modify 'Periods In Morning Session'"));
        type("txtPeriodsInMorningSession", QStringLiteral("3"));
        QCOMPARE(text("txtPeriodsInMorningSession"), QStringLiteral("4"));
    }

    void exitWithoutSchoolOffersToQuit()
    {
        open();
        QSignalSpy quit(m_screen, &frmSchoolSetup::programEndRequested);
        const QString without = QStringLiteral("Without Entering School Setup, You Cannot Proceed Further");
        const QString question = QStringLiteral("Do You Want To Quit Zarlo-TimeTable");
        m_messages.expectInformation(without).expectQuestion(question, false);
        click("cmdExit");
        QVERIFY(m_screen->isVisible());
        QCOMPARE(quit.count(), 0);
        m_messages.expectInformation(without).expectQuestion(question, true);
        click("cmdExit");
        QVERIFY(!m_screen->isVisible());
        QCOMPARE(quit.count(), 1);
    }

    void addButtonsOpenMastersAndListsFollow()
    {
        m_store->setUpSchool(5, 8, 8, 4);
        AddingHost host(*m_store);
        m_store->context().host = &host;
        open();
        click("cmdEdit");
        click("cmdAddState");
        click("cmdAddCityName");
        QCOMPARE(host.opened, (QStringList{"frmStateMaster", "frmCityMaster"}));
        QEvent activate(QEvent::WindowActivate);
        QApplication::sendEvent(m_screen, &activate);
        FIND_OR_FAIL(states, control<QComboBox>("dbcStateName"));
        FIND_OR_FAIL(cities, control<QComboBox>("dbcCityName"));
        QVERIFY(states->findText(QStringLiteral("Goa")) > 0);
        QCOMPARE(states->currentText(), QStringLiteral("Kerala"));
        QVERIFY(cities->findText(QStringLiteral("Alappuzha")) > 0);
        QCOMPARE(shown("dbcCityName"), QStringLiteral("Kochi"));
    }
};

QTEST_MAIN(tst_frmSchoolSetup)
#include "tst_frmschoolsetup.moc"
