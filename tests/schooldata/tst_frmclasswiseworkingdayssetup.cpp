#include "findcontrol.h"
#include "frmclasswiseworkingdayssetup.h"
#include "scriptedmessages.h"
#include "teststore.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

class tst_frmClasswiseWorkingDaysSetup : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;

    // Classes X, IX and VIII (codes 1 to 3) in a school of 6 working days.
    void threeClasses()
    {
        m_store->setUpSchool(6, 8, 8, 4);
        m_store->exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'X', 1, 1), (2, 'IX', 1, 2), "
                                     "(3, 'VIII', 1, 3)"));
    }
    QString storedDays() const
    {
        return m_store->scalar(QStringLiteral("SELECT group_concat(ClassCode || '=' || NoOfWorkingDays, ' ') FROM "
                                              "(SELECT * FROM ClasswiseNoOfWorkingDays ORDER BY ClassCode)"))
            .toString();
    }
    static QStringList gridDays(const frmClasswiseWorkingDaysSetup &screen)
    {
        FIND_OR_FAIL(grid, findControl<QTableWidget>(&screen, "msgClassDetails"), QStringList());
        QStringList days;
        for (int row = 0; row < grid->rowCount(); ++row)
            days << grid->item(row, 1)->text() + QLatin1Char('=') + grid->item(row, 2)->text();
        return days;
    }

private slots:
    void init()
    {
        m_messages.reset();
        m_store = new TestStore;
        m_store->setMessages(m_messages);
        threeClasses();
    }
    void cleanup()
    {
        QVERIFY2(m_messages.done(), m_messages.report());
        delete m_store;
    }

    // Stored numbers stand while the classes do; a class added or removed puts every class back to the school's.
    void openingFollowsTheClasses_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<QStringList>("grid");
        QTest::newRow("same classes") << "(1, 5), (2, 4), (3, 6)" << "1=5 2=4 3=6"
                                      << QStringList{"X=5", "IX=4", "VIII=6"};
        QTest::newRow("class added") << "(1, 5), (2, 4)" << "1=6 2=6 3=6" << QStringList{"X=6", "IX=6", "VIII=6"};
        QTest::newRow("never filled") << "" << "1=6 2=6 3=6" << QStringList{"X=6", "IX=6", "VIII=6"};
    }
    void openingFollowsTheClasses()
    {
        QFETCH(QString, stored);
        QFETCH(QString, expected);
        QFETCH(QStringList, grid);
        if (!stored.isEmpty())
            m_store->exec(QStringLiteral("INSERT INTO ClasswiseNoOfWorkingDays VALUES ") + stored);
        frmClasswiseWorkingDaysSetup screen(m_store->context());
        QCOMPARE(storedDays(), expected);
        QCOMPARE(gridDays(screen), grid);
    }

    void editedDaysAreCheckedAndSaved()
    {
        m_store->exec(QStringLiteral("INSERT INTO ClasswiseNoOfWorkingDays VALUES (1, 6), (2, 6), (3, 6)"));
        frmClasswiseWorkingDaysSetup screen(m_store->context());
        screen.show();
        QApplication::setActiveWindow(&screen);
        QVERIFY(QTest::qWaitForWindowActive(&screen));
        FIND_OR_FAIL(grid, findControl<QTableWidget>(&screen, "msgClassDetails"));
        FIND_OR_FAIL(box, findControl<QLineEdit>(&screen, "txtWorkingDays"));
        FIND_OR_FAIL(save, findControl<QPushButton>(&screen, "cmdSave"));
        FIND_OR_FAIL(edit, findControl<QPushButton>(&screen, "cmdEdit"));
        QVERIFY(!grid->isEnabled());
        QTest::mouseClick(edit, Qt::LeftButton);
        QVERIFY(grid->isEnabled());
        QVERIFY(box->isVisible());

        m_messages.expectInformation(QStringLiteral(
            "Entered Working Days/Week Cannot Be Greater Than No. Of Working Days Entered In School Setup Screen"));
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("7"));
        QCOMPARE(grid->item(0, 2)->text(), QString());

        // A class left without a number is where Save sends the office back to.
        m_messages.expectInformation(QStringLiteral("Enter Working Days/Week"));
        QTest::mouseClick(save, Qt::LeftButton);
        QCOMPARE(grid->currentRow(), 0);
        QVERIFY(box->hasFocus());

        QTest::keyClicks(box, QStringLiteral("5"));
        QTest::keyClick(box, Qt::Key_Return);
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("4"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(grid->currentRow(), 2);
        // Esc takes back what was typed in the cell and leaves it for the grid.
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("3"));
        QCOMPARE(grid->item(2, 2)->text(), QStringLiteral("3"));
        QTest::keyClick(box, Qt::Key_Escape);
        QCOMPARE(grid->item(2, 2)->text(), QStringLiteral("6"));
        QVERIFY(!box->isVisible());
        QVERIFY(grid->hasFocus());
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(2, 2)).center());
        QVERIFY(box->isVisible());
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(save->hasFocus());
        m_messages.expectInformation(QStringLiteral("Record Updated"));
        QTest::mouseClick(save, Qt::LeftButton);
        QCOMPARE(storedDays(), QStringLiteral("1=5 2=4 3=6"));
        QVERIFY(!grid->isEnabled());
    }
};

QTEST_MAIN(tst_frmClasswiseWorkingDaysSetup)
#include "tst_frmclasswiseworkingdayssetup.moc"
