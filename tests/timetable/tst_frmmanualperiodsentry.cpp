#include "frmblankperiods.h"
#include "findcontrol.h"
#include "frmmanualperiodsentry.h"
#include "manualwidgets.h"
#include "scriptedmessages.h"
#include "smallschool.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace {
void put(TestStore &store, int classCode, int division, int day, int period, int subject, int teacher)
{
    store.exec(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, ?, ?, ?, ?, 'M', '', '', '')"),
               {classCode, division, day, period, subject, teacher});
}

// A click in a grid that a failed lookup gave as nullptr does nothing: the test has failed already.
void click(QTableWidget *grid, int row, int column)
{
    if (!grid)
        return;
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(grid->model()->index(row, column)).center());
}

QStringList rowOf(const QTableWidget *grid, int row)
{
    QStringList cells;
    for (int column = 0; grid && column < grid->columnCount(); ++column)
        cells << (grid->item(row, column) ? grid->item(row, column)->text() : QString());
    return cells;
}
}

class tst_frmManualPeriodsEntry : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;
    frmManualPeriodsEntry *m_form = nullptr;

    template<typename T>
    T *control(const char *name) const
    {
        return findControl<T>(m_form, name);
    }
    QTableWidget *grid(const char *name) const { return control<QTableWidget>(name); }
    QString label(const char *name) const
    {
        FIND_OR_FAIL(label, control<QLabel>(name), QString());
        return label->text();
    }
    bool visible(const char *name) const
    {
        FIND_OR_FAIL(widget, control<QWidget>(name), false);
        return widget->isVisible();
    }
    bool enabled(const char *name) const
    {
        FIND_OR_FAIL(widget, control<QWidget>(name), false);
        return widget->isEnabled();
    }
    void press(const char *name)
    {
        FIND_OR_FAIL(button, control<QPushButton>(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    // The text and the background colour of a grid's cell; empty for a missing cell.
    QString text(const char *name, int row, int column) const
    {
        FIND_OR_FAIL(week, grid(name), QString());
        return week->item(row, column) ? week->item(row, column)->text() : QString();
    }
    QColor colour(const char *name, int row, int column) const
    {
        FIND_OR_FAIL(week, grid(name), QColor());
        return week->item(row, column) ? week->item(row, column)->background().color() : QColor();
    }

    void choose(int classCode, int division, int subject)
    {
        const auto pick = [this](const char *name, int code) {
            FIND_OR_FAIL(combo, control<QComboBox>(name));
            combo->setCurrentIndex(combo->findData(code));
        };
        pick("cboClass", classCode);
        pick("cboDivision", division);
        pick("cboSubject", subject);
    }

private slots:
    void init()
    {
        m_store = new TestStore;
        m_messages.reset();
        m_store->setMessages(m_messages);
        buildSmallSchool(*m_store);
        allot(*m_store, {1, 1, 1, 1, 2});               // I-A S1 by T1
        allot(*m_store, {2, 1, 2, 2, 3, 0, 5});         // I-B S2 by T2, main row of CC 5
        allot(*m_store, {2, 1, 3, 2, 3, 0, 5, 0, "Y"}); // CC 5 generated for I-C
        allot(*m_store, {3, 1, 1, 3, 3, 4});            // I-A S3 by T3: CP 4
        allot(*m_store, {4, 2, 1, 4, 3, 4});            // II-A S4 by T4: CP 4
        allot(*m_store, {4, 2, 2, 5, 2});               // II-B S5 by T4
        allot(*m_store, {5, 2, 1, 5, 2});               // II-A S5 by T5
        m_form = new frmManualPeriodsEntry(m_store->context());
        m_form->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_form));
    }

    void cleanup()
    {
        delete m_form;
        QVERIFY2(m_messages.done(), m_messages.report());
        delete m_store;
    }

    // One click places a row per class division; the teacher's cell shows the main one, from either side.
    void combinedClassClick()
    {
        choose(1, 2, 2);
        QCOMPARE(label("lblTeacherName"), QStringLiteral("Teacher 2"));
        QVERIFY(visible("fraCombinedClass"));
        QCOMPARE(rowOf(grid("msgCombinedClass"), 1), (QStringList{"I", "C"}));
        QVERIFY(!enabled("cmdTeachersFree"));

        click(grid("msgTeacher"), 1, 3);
        QCOMPARE(slotRows(*m_store, 2, 3), (QStringList{"1/2:2:2:M::", "1/3:2:2:M:CC:"}));
        QCOMPARE(text("msgTeacher", 1, 3), QStringLiteral("I/B"));
        QCOMPARE(colour("msgTeacher", 1, 3), WeekTable::selectionColour());
        QCOMPARE(text("msgClass", 1, 3), QStringLiteral("S2"));
        QCOMPARE(label("lblAllotedPeriods"), QStringLiteral("3"));
        QCOMPARE(label("lblOccupiedPeriods"), QStringLiteral("1"));

        choose(1, 3, 2);
        QCOMPARE(text("msgTeacher", 1, 3), QStringLiteral("I/B"));
        QCOMPARE(colour("msgTeacher", 1, 3), QColor(200, 235, 255));
        QCOMPARE(colour("msgClass", 1, 3), WeekTable::selectionColour());
        QCOMPARE(label("lblOccupiedPeriods"), QStringLiteral("1"));
    }

    void modifyAnOccupiedCell_data()
    {
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QString>("cellAfter");
        QTest::newRow("No keeps the old entry") << false << QStringLiteral("S1");
        QTest::newRow("Yes removes it, though the group is then refused") << true << QString();
    }

    // T4 of the combined subject group is busy on Monday P2, so the new entry is refused after the Modify.
    void modifyAnOccupiedCell()
    {
        QFETCH(bool, answer);
        QFETCH(QString, cellAfter);
        put(*m_store, 1, 1, 1, 2, 1, 1);
        put(*m_store, 2, 2, 1, 2, 5, 4);
        choose(1, 1, 3);
        m_messages.expectQuestion(QStringLiteral("Already Class I/A Is Allotted With S1\nDo You Want To Modify It ? "),
                                  answer);
        if (answer)
            m_messages.expectInformation(QStringLiteral("One Of The Teachers In This Group Is Not Free"));
        click(grid("msgTeacher"), 0, 2);
        QCOMPARE(text("msgClass", 0, 2), cellAfter);
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable WHERE ClassCode = 1")).toInt(),
                 answer ? 0 : 1);
    }

    void clicksThatPlaceNothing()
    {
        choose(1, 1, 1);
        m_messages.expectInformation(QStringLiteral("Last Working Day Has Only 4 Periods"));
        click(grid("msgTeacher"), 4, 5);
        m_messages.expectInformation(QStringLiteral("If You Want To Allot Timetable, Click In 'Teacher TimeTable' Area"));
        click(grid("msgClass"), 0, 1);
        click(grid("msgTeacher"), 0, 0); // the day's name
        QCOMPARE(m_store->count(QStringLiteral("TimeTable")), 0);

        click(grid("msgTeacher"), 4, 4);
        QCOMPARE(text("msgClass", 4, 4), QStringLiteral("S1"));
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete It ? "), true);
        click(grid("msgClass"), 4, 4);
        QCOMPARE(m_store->count(QStringLiteral("TimeTable")), 0);
        QVERIFY(text("msgClass", 4, 4).isEmpty());
    }

    void periodsToBeFilledLeavesOutFinishedSubjects()
    {
        put(*m_store, 1, 1, 1, 1, 1, 1);
        put(*m_store, 1, 1, 1, 2, 1, 1);
        put(*m_store, 1, 1, 2, 1, 3, 3);
        choose(1, 1, 1);
        press("cmdPeriodsToBeFilled");
        QVERIFY(visible("fraPeriodsToBeFilled"));
        FIND_OR_FAIL(open, grid("msgPeriodsToBeFilled"));
        QCOMPARE(open->rowCount(), 1);
        QCOMPARE(rowOf(open, 0), (QStringList{"Subject 3", "3", "1", "2", "3"}));
        QVERIFY(open->isColumnHidden(4));

        choose(1, 1, 3); // the open panel follows a click
        click(grid("msgTeacher"), 3, 3);
        QCOMPARE(rowOf(open, 0), (QStringList{"Subject 3", "3", "2", "1", "3"}));
    }

    // T4 busy with II-B on Monday P2 is not free for the group's teachers but leaves its classes free;
    // II-A taken by T5 on Tuesday P1 is the other way round.
    void freeSlotPanels()
    {
        put(*m_store, 2, 2, 1, 2, 5, 4);
        put(*m_store, 2, 1, 2, 1, 5, 5);
        choose(1, 1, 3);
        QVERIFY(enabled("cmdTeachersFree"));
        press("cmdTeachersFree");
        press("cmdTeachersClassesFree");
        const QString fullDay = QStringLiteral("    P1, P2, P3, P4, P5, P6");
        QCOMPARE(label("lblTeachersFree"), QStringList({"  MON    P1, P3, P4, P5, P6", "  TUE" + fullDay,
                                                        "  WED" + fullDay, "  THU" + fullDay, "  FRI" + fullDay})
                                               .join('\n'));
        QCOMPARE(label("lblTeachersClassesFree"),
                 QStringList({"  MON" + fullDay, "  TUE    P2, P3, P4, P5, P6", "  WED" + fullDay, "  THU" + fullDay,
                              "  FRI" + fullDay})
                     .join('\n'));
        QVERIFY(visible("fraCombined"));
        press("cmdCloseTeachersFree");
        QVERIFY(!visible("fraTeachersFree"));
    }

    void blankPeriodsListsOverAllottedClasses()
    {
        allot(*m_store, {6, 1, 1, 6, 26});              // I-A: 2 + 3 + 26 = 31 of 28
        allot(*m_store, {6, 2, 2, 6, 30, 0, 0, 9, "", "Y"}); // a generated teacher's row is not II-B's own work
        frmBlankPeriods blank(m_store->context());
        const QTableWidget *details = blank.findChild<QTableWidget *>(QStringLiteral("msgDetails"));
        QVERIFY(details);
        QCOMPARE(details->rowCount(), 1);
        QCOMPARE(rowOf(details, 0), (QStringList{"1", "I", "A", "-3"}));
    }
};

QTEST_MAIN(tst_frmManualPeriodsEntry)
#include "tst_frmmanualperiodsentry.moc"
