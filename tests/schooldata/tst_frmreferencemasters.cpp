#include "frmbloodgroupmaster.h"
#include "frmcitymaster.h"
#include "frmsalutationmaster.h"
#include "frmstatemaster.h"
#include "masterscreendriver.h"
#include "scriptedmessages.h"
#include "teststore.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <memory>

namespace {
const QString EditOrDelete = QStringLiteral("Do You Want To Edit/Delete ?");

std::unique_ptr<QWidget> openForm(const QString &form, AppContext &ctx)
{
    if (form == QLatin1String("frmStateMaster"))
        return std::make_unique<frmStateMaster>(ctx);
    if (form == QLatin1String("frmBloodGroupMaster"))
        return std::make_unique<frmBloodGroupMaster>(ctx);
    if (form == QLatin1String("frmSalutationMaster"))
        return std::make_unique<frmSalutationMaster>(ctx);
    return std::make_unique<frmCityMaster>(ctx);
}
}

class tst_frmReferenceMasters : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<TestStore> m_store;
    ScriptedMessages m_messages;

private slots:
    void init()
    {
        m_store = std::make_unique<TestStore>();
        m_messages.reset();
        m_store->setMessages(m_messages);
    }

    void cleanup()
    {
        QVERIFY2(m_messages.done(), m_messages.report());
        m_store.reset();
    }

    void duplicateNames_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("insert");  // a row already stored, as an old program may have left it
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("rowsAfter");

        const QString state = QStringLiteral("INSERT INTO StateMaster VALUES (1, ' Kerala ')");
        const QString blood = QStringLiteral("INSERT INTO BloodGroupMaster VALUES (1, ' O+')");
        const QString salutation = QStringLiteral("INSERT INTO SalutationMaster VALUES (1, 'Mr. ')");
        QTest::newRow("state: case and blanks on both sides ignored")
            << "frmStateMaster" << state << "txtStateName" << "  KERALA " << "State Name Already Exists" << 2;
        QTest::newRow("state: blank name") << "frmStateMaster" << state << "txtStateName" << "   "
                                           << "Enter State Name" << 2;
        QTest::newRow("state: new name saved trimmed")
            << "frmStateMaster" << state << "txtStateName" << " Goa " << "State Name Saved" << 3;
        QTest::newRow("salutation: stored blanks ignored")
            << "frmSalutationMaster" << salutation << "txtSalutationName" << "mr." << "Salutation Name Already Exists"
            << 2;
        QTest::newRow("blood group: entry blanks and case ignored")
            << "frmBloodGroupMaster" << QStringLiteral("INSERT INTO BloodGroupMaster VALUES (1, 'O+')")
            << "txtBloodGroupName" << " o+ " << "Blood Group Name Already Exists" << 2;
        // The blood group's duplicate test compares the stored name as it stands.
        QTest::newRow("blood group: stored blanks count")
            << "frmBloodGroupMaster" << blood << "txtBloodGroupName" << "o+" << "Record Saved" << 3;
        QTest::newRow("blood group: blank name")
            << "frmBloodGroupMaster" << blood << "txtBloodGroupName" << "" << "Enter Blood Group Name" << 2;
    }

    void duplicateNames()
    {
        QFETCH(QString, form);
        QFETCH(QString, insert);
        QFETCH(QString, field);
        QFETCH(QString, typed);
        QFETCH(QString, message);
        QFETCH(int, rowsAfter);
        m_store->exec(insert);
        const std::unique_ptr<QWidget> screen = openForm(form, m_store->context());
        MasterScreenDriver driver(*screen);

        driver.click(QStringLiteral("cmdNew"));
        driver.type(field, typed);
        m_messages.expectInformation(message);
        driver.click(QStringLiteral("cmdSave"));
        const QString table = form.mid(3);
        QCOMPARE(m_store->count(table), rowsAfter);
        const bool saved = message.endsWith(QLatin1String("Saved"));
        // A refusal keeps the entry open with the name to correct; a save returns to idle.
        QCOMPARE(driver.enabled(QStringLiteral("cmdSave")), !saved);
        if (saved) {
            QCOMPARE(m_store->scalar(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2 = ?")
                                         .arg(table, field.mid(3)), {typed.trimmed()}).toInt(), 1);
        } else {
            QCOMPARE(driver.focused(), driver.control(field));
        }
    }

    // Enter in the name moves on to Save within the screen, even with another screen open beside it in the
    // main window, and Enter there saves.
    void enterInTheNameMovesOnToSave_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("saved");
        QTest::newRow("state") << "frmStateMaster" << "txtStateName" << "State Name Saved";
        QTest::newRow("salutation") << "frmSalutationMaster" << "txtSalutationName" << "Record Saved";
        QTest::newRow("blood group") << "frmBloodGroupMaster" << "txtBloodGroupName" << "Record Saved";
    }

    void enterInTheNameMovesOnToSave()
    {
        QFETCH(QString, form);
        QFETCH(QString, field);
        QFETCH(QString, saved);
        QMdiArea area;
        area.addSubWindow(openForm(QStringLiteral("frmCityMaster"), m_store->context()).release())->show();
        QMdiSubWindow *window = area.addSubWindow(openForm(form, m_store->context()).release());
        window->show();
        area.show();
        QApplication::setActiveWindow(&area);
        QVERIFY(QTest::qWaitForWindowActive(&area));
        area.setActiveSubWindow(window);
        MasterScreenDriver driver(*window->widget());

        driver.click(QStringLiteral("cmdNew"));
        driver.type(field, QStringLiteral("Goa"));
        driver.key(field, Qt::Key_Return);
        FIND_OR_FAIL(save, driver.control(QStringLiteral("cmdSave")));
        QTRY_COMPARE(QApplication::focusWidget(), save);
        QCOMPARE(area.activeSubWindow(), window);
        m_messages.expectInformation(saved);
        driver.key(QStringLiteral("cmdSave"), Qt::Key_Return);
        QCOMPARE(m_store->count(form.mid(3)), 2); // the seeded row and the new one
    }

    void searchChooseEditAndVanishedRow()
    {
        for (const char *name : {"Jammu [J&K]", "D'Souza Land", "Goa", "100% State"})
            m_store->exec(QStringLiteral("INSERT INTO StateMaster VALUES ((SELECT MAX(StateCode) + 1 FROM StateMaster), ?)"),
                          {QString::fromUtf8(name)});
        frmStateMaster screen(m_store->context());
        MasterScreenDriver driver(screen);
        // The seeded "-Nil-" row with code 0 never shows.
        QCOMPARE(driver.column(0), (QStringList{"100% State", "D'Souza Land", "Goa", "Jammu [J&K]"}));

        driver.type(QStringLiteral("txtSearchStateName"), QStringLiteral("d'so"));
        QCOMPARE(driver.column(0), QStringList{"D'Souza Land"});
        driver.type(QStringLiteral("txtSearchStateName"), QStringLiteral("[j"));
        QCOMPARE(driver.column(0), QStringList{"Jammu [J&K]"});
        driver.type(QStringLiteral("txtSearchStateName"), QStringLiteral("0%"));
        QCOMPARE(driver.column(0), QStringList{"100% State"});

        // No keeps the screen idle; Yes loads the row for Edit or Delete.
        driver.type(QStringLiteral("txtSearchStateName"), QString());
        m_messages.expectQuestion(EditOrDelete, false);
        driver.choose(QStringLiteral("Goa"));
        QVERIFY(!driver.enabled(QStringLiteral("cmdEdit")));
        m_messages.expectQuestion(EditOrDelete, true);
        driver.choose(QStringLiteral("Goa"));
        QCOMPARE(driver.text(QStringLiteral("txtStateName")), QStringLiteral("Goa"));
        QVERIFY(driver.enabled(QStringLiteral("cmdDelete")));
        QVERIFY(!driver.enabled(QStringLiteral("Frame1")));

        driver.click(QStringLiteral("cmdEdit"));
        driver.type(QStringLiteral("txtStateName"), QStringLiteral("Goa State "));
        m_messages.expectInformation(QStringLiteral("State Name Updated"));
        driver.click(QStringLiteral("cmdSave"));
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT StateName FROM StateMaster WHERE StateCode = 3")).toString(),
                 QStringLiteral("Goa State"));
        QCOMPARE(driver.text(QStringLiteral("txtStateName")), QString());

        // A row deleted elsewhere since the grid was filled.
        m_store->exec(QStringLiteral("DELETE FROM StateMaster WHERE StateCode = 4"));
        m_messages.expectInformation(QStringLiteral("State Name Does Not Exists"));
        driver.choose(QStringLiteral("100% State"));
        QCOMPARE(driver.column(0).size(), 3);
    }

    void deleteRefusedWhileUsed()
    {
        m_store->setUpSchool(5, 6, 6, 4); // Kerala and its city Kochi, named by the school
        m_store->exec(QStringLiteral("INSERT INTO StateMaster VALUES (2, 'Goa')"));
        frmStateMaster screen(m_store->context());
        MasterScreenDriver driver(screen);

        m_messages.expectQuestion(EditOrDelete, true)
            .expectQuestion(QStringLiteral("Do You Want To Delete This State Name ?"), true)
            .expectCritical(QStringLiteral("This Record Is Used In 'City Master'. So You Cannot Delete It"));
        driver.choose(QStringLiteral("Kerala"));
        driver.click(QStringLiteral("cmdDelete"));
        QCOMPARE(m_store->count(QStringLiteral("StateMaster")), 3);

        m_messages.expectQuestion(EditOrDelete, true)
            .expectQuestion(QStringLiteral("Do You Want To Delete This State Name ?"), true)
            .expectInformation(QStringLiteral("Record Deleted"));
        driver.choose(QStringLiteral("Goa"));
        driver.click(QStringLiteral("cmdDelete"));
        QCOMPARE(m_store->count(QStringLiteral("StateMaster")), 2);
        QCOMPARE(driver.column(0), QStringList{"Kerala"});
    }

    void newRefusedWithoutPrivilege()
    {
        m_store->exec(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (1, 'clerk', 'pw', 'N', 0)"));
        m_store->context().session.userCode = 1;
        frmSalutationMaster screen(m_store->context());
        MasterScreenDriver driver(screen);

        m_messages.expectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
        driver.click(QStringLiteral("cmdNew"));
        QVERIFY(!driver.enabled(QStringLiteral("cmdSave")));
        QVERIFY(!driver.enabled(QStringLiteral("Frame1")));

        m_store->exec(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES ('frmSalutationMaster', 'N', 1)"));
        driver.click(QStringLiteral("cmdNew"));
        QVERIFY(driver.enabled(QStringLiteral("cmdSave")));
    }

    void cityUnderTheSameState()
    {
        m_store->exec(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Kerala'), (2, 'Goa')"));
        m_store->exec(QStringLiteral("INSERT INTO CityMaster VALUES (1, 2, 'Panaji')"));
        frmCityMaster screen(m_store->context());
        MasterScreenDriver driver(screen, QStringLiteral("dgddetails"));
        QCOMPARE(driver.column(1), QStringList{"Panaji"});

        driver.click(QStringLiteral("cmdNew"));
        driver.type(QStringLiteral("txtCityName"), QStringLiteral("Kochi"));
        m_messages.expectInformation(QStringLiteral("Select State Name"));
        driver.click(QStringLiteral("cmdSave"));

        driver.pick(QStringLiteral("dbcStateName"), QStringLiteral("Kerala"));
        QVERIFY(driver.column(1).isEmpty()); // the grid follows the chosen state
        m_messages.expectInformation(QStringLiteral("Record Saved"))
            .expectQuestion(QStringLiteral("Do You Want To Enter New City Name Under The Same State Name ?"), true);
        driver.click(QStringLiteral("cmdSave"));
        QCOMPARE(driver.shown(QStringLiteral("dbcStateName")), QStringLiteral("Kerala"));
        QCOMPARE(driver.text(QStringLiteral("txtCityName")), QString());
        QCOMPARE(driver.focused(), driver.control(QStringLiteral("txtCityName")));
        QCOMPARE(driver.column(1), QStringList{"Kochi"});

        // The same name again in this state is refused; in another state it is welcome.
        driver.type(QStringLiteral("txtCityName"), QStringLiteral(" KOCHI"));
        m_messages.expectInformation(QStringLiteral("City Name Already Exists"));
        driver.click(QStringLiteral("cmdSave"));
        driver.pick(QStringLiteral("dbcStateName"), QStringLiteral("Goa"));
        m_messages.expectInformation(QStringLiteral("Record Saved"))
            .expectQuestion(QStringLiteral("Do You Want To Enter New City Name Under The Same State Name ?"), false);
        driver.click(QStringLiteral("cmdSave"));
        QVERIFY(!driver.enabled(QStringLiteral("cmdSave")));
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT COUNT(*) FROM CityMaster WHERE CityName = 'KOCHI'")).toInt(), 2);
        QCOMPARE(driver.column(0), (QStringList{"Goa", "Goa", "Kerala"}));
    }

    void usedCityKeepsItsState()
    {
        m_store->setUpSchool(5, 6, 6, 4); // the school names Kochi, Kerala
        m_store->exec(QStringLiteral("INSERT INTO StateMaster VALUES (2, 'Goa')"));
        m_store->exec(QStringLiteral("INSERT INTO CityMaster VALUES (2, 1, 'Thrissur')"));
        frmCityMaster screen(m_store->context());
        MasterScreenDriver driver(screen, QStringLiteral("dgddetails"));

        m_messages.expectQuestion(EditOrDelete, true);
        driver.choose(QStringLiteral("Kochi"), 1);
        QCOMPARE(driver.shown(QStringLiteral("dbcStateName")), QStringLiteral("Kerala"));
        driver.click(QStringLiteral("cmdEdit"));
        QVERIFY(!driver.enabled(QStringLiteral("dbcStateName")));
        QVERIFY(!driver.enabled(QStringLiteral("cmdAddStateName")));
        // Even a state forced past the locked list is refused by the rules.
        FIND_OR_FAIL(states, driver.control<QComboBox>(QStringLiteral("dbcStateName")));
        states->setCurrentIndex(1);
        m_messages.expectInformation(
            QStringLiteral("Changing Of State Name Is Not Allowed, Since This Record Is Already Used By Other Screen(s)"));
        driver.click(QStringLiteral("cmdSave"));
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT StateCode FROM CityMaster WHERE CityCode = 1")).toInt(), 1);
        driver.click(QStringLiteral("cmdCancel"));

        m_messages.expectQuestion(EditOrDelete, true)
            .expectQuestion(QStringLiteral("Do You Want To Delete This City Name ?"), true)
            .expectCritical(QStringLiteral("This Record Is Used In 'School Setup'. So You Cannot Delete It"));
        driver.choose(QStringLiteral("Kochi"), 1);
        driver.click(QStringLiteral("cmdDelete"));

        // An unused city may move to another state.
        m_messages.expectQuestion(EditOrDelete, true).expectInformation(QStringLiteral("Record Updated"));
        driver.choose(QStringLiteral("Thrissur"), 1);
        driver.click(QStringLiteral("cmdEdit"));
        QVERIFY(driver.enabled(QStringLiteral("dbcStateName")));
        driver.pick(QStringLiteral("dbcStateName"), QStringLiteral("Goa"));
        driver.click(QStringLiteral("cmdSave"));
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT StateCode FROM CityMaster WHERE CityCode = 2")).toInt(), 2);
    }
};

QTEST_MAIN(tst_frmReferenceMasters)
#include "tst_frmreferencemasters.moc"
