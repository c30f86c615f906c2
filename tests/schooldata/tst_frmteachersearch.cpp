#include "frmteachersearch.h"
#include "findcontrol.h"
#include "scriptedmessages.h"
#include "teststore.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

namespace {
const QString ViewAll = QStringLiteral("Do You Want To View All Teacher Details ?");
}

class tst_frmTeacherSearch : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;
    frmTeacherSearch *m_screen = nullptr;

    template<typename T = QWidget>
    T *control(const QString &name) const
    {
        return findControl<T>(m_screen, name);
    }
    QTableWidget *grid() const { return control<QTableWidget>(QStringLiteral("dgdDetails")); }
    void search() const
    {
        FIND_OR_FAIL(button, control<QPushButton>(QStringLiteral("cmdSearch")));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void type(const char *name, const QString &text) const
    {
        FIND_OR_FAIL(field, control<QLineEdit>(QLatin1String(name)));
        QTest::keyClicks(field, text);
    }
    void pick(const char *name, const QString &text) const
    {
        FIND_OR_FAIL(combo, control<QComboBox>(QLatin1String(name)));
        combo->setCurrentIndex(combo->findText(text));
    }
    // One grid row as "Name/Short/Telephone/Periods/Seniority/State/City/Blood group", from column `first` on.
    QStringList rows(int first = 1, int last = -1) const
    {
        FIND_OR_FAIL(table, grid(), QStringList());
        QStringList lines;
        for (int r = 0; r < table->rowCount(); ++r) {
            QStringList cells;
            for (int c = first; c < (last < 0 ? table->columnCount() : last + 1); ++c)
                cells << (table->item(r, c) ? table->item(r, c)->text() : QString());
            lines << cells.join(QLatin1Char('/'));
        }
        return lines;
    }
    void choose(int row) const
    {
        FIND_OR_FAIL(table, grid());
        table->setCurrentCell(row, 1);
        QTest::keyClick(table, Qt::Key_Return);
    }
    void addTeacher(int code, const QString &name, int cityCode, int periods, int bloodGroup, int seniority) const
    {
        m_store->exec(QStringLiteral("INSERT INTO TeacherMaster VALUES (?, 0, ?, ?, NULL, '', NULL, NULL, '', '', '', "
                                     "?, '', ?, ?, '', ?, ?, 0, 0, 0, 0)"),
                      {code, name, name.left(2).toUpper(), cityCode, QStringLiteral("98470%1").arg(code), bloodGroup,
                       periods, seniority});
    }

private slots:
    void init()
    {
        m_store = new TestStore;
        m_messages.reset();
        m_store->setMessages(m_messages);
        m_store->setUpSchool(6, 8, 5, 4); // Kerala, Kochi
        m_store->exec(QStringLiteral("INSERT INTO StateMaster VALUES (2, 'Goa')"));
        m_store->exec(QStringLiteral("INSERT INTO CityMaster VALUES (2, 2, 'Panaji'), (3, 1, 'Alappuzha')"));
        m_store->exec(QStringLiteral("INSERT INTO BloodGroupMaster VALUES (1, 'O+')"));
        addTeacher(1, QStringLiteral("Anu Mathew"), 1, 30, 1, 3);
        addTeacher(2, QStringLiteral("D'Souza Maria"), 2, 20, 0, 0);
        addTeacher(3, QStringLiteral("Ravi [Sr]"), 0, 40, 0, 1);
        addTeacher(4, QStringLiteral("Lekha 50%_off"), 3, 10, 0, 0);
        m_screen = new frmTeacherSearch(m_store->context());
        m_screen->show();
    }

    void cleanup()
    {
        delete m_screen;
        QVERIFY2(m_messages.done(), m_messages.report());
        delete m_store;
    }

    void criteria_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("periods");
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("city");
        QTest::addColumn<QStringList>("found");

        QTest::newRow("quote in the name") << "d'so" << "" << "" << "" << QStringList{"D'Souza Maria"};
        QTest::newRow("bracket in the name") << "[SR" << "" << "" << "" << QStringList{"Ravi [Sr]"};
        QTest::newRow("wildcards as themselves") << "%_" << "" << "" << "" << QStringList{"Lekha 50%_off"};
        QTest::newRow("at least the periods") << "" << "30" << "" << "" << QStringList{"Anu Mathew", "Ravi [Sr]"};
        QTest::newRow("state") << "" << "" << "Kerala" << "" << QStringList{"Anu Mathew", "Lekha 50%_off"};
        QTest::newRow("state and city") << "" << "" << "Kerala" << "Kochi" << QStringList{"Anu Mathew"};
        QTest::newRow("all criteria together") << "a" << "20" << "Goa" << "" << QStringList{"D'Souza Maria"};
    }

    void criteria()
    {
        QFETCH(QString, name);
        QFETCH(QString, periods);
        QFETCH(QString, state);
        QFETCH(QString, city);
        QFETCH(QStringList, found);
        type("txtTeacherName", name);
        type("txtPeriods", periods);
        pick("dbcStateName", state);
        pick("dbcCityName", city);
        search();
        QCOMPARE(rows(1, 1), found);
    }

    void everyTeacherOnlyWhenAsked()
    {
        m_messages.expectQuestion(ViewAll, false);
        search();
        QCOMPARE(rows(), QStringList());
        m_messages.expectQuestion(ViewAll, true);
        search();
        // Blank references and an unset seniority read as empty cells.
        QCOMPARE(rows(), (QStringList{"Anu Mathew/AN/984701/30/3/Kerala/Kochi/O+",
                                      "D'Souza Maria/D'/984702/20//Goa/Panaji/",
                                      "Lekha 50%_off/LE/984704/10//Kerala/Alappuzha/",
                                      "Ravi [Sr]/RA/984703/40/1///"}));
        FIND_OR_FAIL(table, grid());
        QVERIFY(table->isColumnHidden(0));

        type("txtTeacherName", QStringLiteral("Zachariah"));
        m_messages.expectInformation(QStringLiteral("No Record Exists"));
        search();
        QCOMPARE(rows(), QStringList());
    }

    void choosingARow()
    {
        QSignalSpy chosen(m_screen, &frmTeacherSearch::teacherChosen);
        m_messages.expectQuestion(ViewAll, true);
        search();

        m_messages.expectQuestion(QStringLiteral("Do You Want To Edit/Delete ?"), false);
        choose(1);
        QCOMPARE(chosen.count(), 0);
        QVERIFY(m_screen->isVisible());

        // Deleted from another screen since the search ran.
        m_store->exec(QStringLiteral("DELETE FROM TeacherMaster WHERE TeacherCode = 1"));
        m_messages.expectInformation(QStringLiteral("Record Has Been Deleted In Master Screen"));
        choose(0);
        QCOMPARE(chosen.count(), 0);

        m_messages.expectQuestion(QStringLiteral("Do You Want To Edit/Delete ?"), true);
        choose(1);
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.first().first().toInt(), 2);
        QVERIFY(!m_screen->isVisible());
    }
};

QTEST_MAIN(tst_frmTeacherSearch)
#include "tst_frmteachersearch.moc"
