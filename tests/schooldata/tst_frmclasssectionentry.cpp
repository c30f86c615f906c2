#include "classdivisionstore.h"
#include "findcontrol.h"
#include "frmclasssectionentry.h"
#include "scriptedmessages.h"
#include "teststore.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

namespace {

// "XII:2:1:A,B" per stored class, by ClassOrder.
QStringList stored(const TestStore &store)
{
    QStringList list;
    for (const ClassRow &row : ClassDivisionStore(store.db()).load()) {
        QStringList names;
        for (const CodeName &division : row.divisions)
            names.append(division.name);
        list.append(QStringLiteral("%1:%2:%3:%4").arg(row.name, row.divisionText, row.orderText, names.join(',')));
    }
    return list;
}

// Stores classes given as "name:divisions" in rank order.
void storeClasses(const TestStore &store, const QStringList &classes)
{
    QList<ClassRow> rows;
    for (const QString &entry : classes) {
        const QStringList parts = entry.split(':');
        ClassRow row{int(rows.size()) + 1, parts[0], parts[1], QString::number(rows.size() + 1), {}};
        ClassDivisions::settleDivisions(row);
        rows.append(row);
    }
    ClassDivisionStore(store.db()).saveNew(rows);
}

}

class tst_frmClassSectionEntry : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;
    frmClassSectionEntry *m_form = nullptr;

    template<typename T>
    T *find(const char *name) const
    {
        return findControl<T>(m_form, name);
    }
    QLineEdit *field(const char *name) const { return find<QLineEdit>(name); }
    QTableWidget *classes() const { return find<QTableWidget>("msgClassDetails"); }
    QTableWidget *divisions() const { return find<QTableWidget>("msgDivisionDetails"); }
    void click(const char *button)
    {
        FIND_OR_FAIL(pressed, find<QPushButton>(button));
        QTest::mouseClick(pressed, Qt::LeftButton);
    }
    void key(const char *name, Qt::Key key)
    {
        FIND_OR_FAIL(box, field(name));
        QTest::keyClick(box, key);
    }
    void setText(const char *name, const QString &text)
    {
        FIND_OR_FAIL(box, field(name));
        box->setText(text);
    }
    bool enabled(const char *name) const
    {
        FIND_OR_FAIL(widget, find<QWidget>(name), false);
        return widget->isEnabled();
    }

    void open()
    {
        m_form = new frmClassSectionEntry(m_store->context());
        m_form->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_form));
        m_form->activateWindow();
    }
    // Types over what the box holds and presses Enter, as a user does.
    void enter(const char *name, const QString &text)
    {
        FIND_OR_FAIL(box, field(name));
        box->clear();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Return);
    }
    // One class row from its name to its last division, all by Enter.
    void enterClass(const QString &name, const QString &count)
    {
        enter("txtClassName", name);
        enter("txtNoOfDivisions", count);
        key("txtClassOrder", Qt::Key_Return);
        for (int d = 0; d < count.toInt(); ++d)
            key("txtDivisionName", Qt::Key_Return);
    }
    QStringList column(QTableWidget *grid, int column) const
    {
        QStringList texts;
        for (int row = 0; grid && row < grid->rowCount(); ++row)
            texts.append(textAt(grid, row, column));
        return texts;
    }
    static QString textAt(QTableWidget *grid, int row, int column)
    {
        return grid && grid->item(row, column) ? grid->item(row, column)->text() : QString();
    }

private slots:
    void init()
    {
        m_store = new TestStore;
        m_messages.reset();
        m_store->setMessages(m_messages);
    }
    void cleanup()
    {
        delete m_form;
        m_form = nullptr;
        delete m_store;
        QVERIFY2(m_messages.done(), m_messages.report());
    }

    void newSavesTwoClasses()
    {
        open();
        FIND_OR_FAIL(classGrid, classes());
        QVERIFY(!enabled("cmdEdit"));
        click("cmdNew");
        QCOMPARE(column(classes(), 0), QStringList{"1"});

        enter("txtClassName", "XII");
        QCOMPARE(textAt(classGrid, 0, 3), QStringLiteral("1")); // the Priority Number comes by itself
        QCOMPARE(QApplication::focusWidget(), field("txtNoOfDivisions"));
        enter("txtNoOfDivisions", "2");
        QCOMPARE(column(divisions(), 0), (QStringList{"A", "B"}));
        key("txtClassOrder", Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), field("txtDivisionName"));
        key("txtDivisionName", Qt::Key_Return);
        enter("txtDivisionName", "Sci");
        // The last division leads back to the classes, on the row the order's Enter added.
        QCOMPARE(classGrid->currentRow(), 1);
        QCOMPARE(QApplication::focusWidget(), field("txtClassName"));
        enterClass("XI", "3");
        QCOMPARE(column(classes(), 1), (QStringList{"XII", "XI", ""}));

        m_messages.expectInformation("Record Saved");
        click("cmdSave");
        QCOMPARE(stored(*m_store), (QStringList{"XII:2:1:A,Sci", "XI:3:2:A,B,C"}));
        QVERIFY(!enabled("cmdSave"));
        QVERIFY(enabled("cmdEdit"));
        QCOMPARE(column(classes(), 1), (QStringList{"XII", "XI"}));
    }

    void thirtyDivisions()
    {
        open();
        click("cmdNew");
        enter("txtClassName", "X");
        enter("txtNoOfDivisions", "30");
        const QStringList names = column(divisions(), 0);
        QCOMPARE(names.size(), 30);
        QCOMPARE(names.mid(24), (QStringList{"Y", "Z", "AA", "AB", "AC", "AD"}));
        m_messages.expectInformation("Record Saved");
        click("cmdSave");
        QCOMPARE(m_store->scalar("SELECT DivisionName FROM ClassDivisionDetails WHERE DivisionCode = 30").toString(),
                 QStringLiteral("AD"));
    }

    // The overlay boxes lie on the current row's cells, the cells follow each keystroke, and the boxes
    // outlive the rows they were on.
    void gridFollowsTheBoxes()
    {
        storeClasses(*m_store, {"XII:2", "XI:1"});
        open();
        FIND_OR_FAIL(classGrid, classes());
        click("cmdEdit");
        FIND_OR_FAIL(name, field("txtClassName"));
        FIND_OR_FAIL(divisionCount, field("txtNoOfDivisions"));
        QCOMPARE(name->parentWidget(), classGrid->viewport());
        QCOMPARE(name->geometry(), classGrid->visualItemRect(classGrid->item(0, 1)));
        QCOMPARE(name->text(), QStringLiteral("XII"));
        QTest::keyClick(name, Qt::Key_End);
        QTest::keyClick(name, Qt::Key_Backspace);
        QCOMPARE(textAt(classGrid, 0, 1), QStringLiteral("XI"));
        QTest::keyClicks(name, "IA");
        QCOMPARE(textAt(classGrid, 0, 1), QStringLiteral("XIIA"));
        FIND_OR_FAIL(className, find<QLabel>("lblClassName"));
        QCOMPARE(className->text(), QStringLiteral("XIIA"));

        const QRect cell = classGrid->visualItemRect(classGrid->item(1, 2));
        QTest::mouseClick(classGrid->viewport(), Qt::LeftButton, {}, cell.center());
        QCOMPARE(divisionCount->geometry(), cell);
        QCOMPARE(QApplication::focusWidget(), field("txtNoOfDivisions"));
        QCOMPARE(name->text(), QStringLiteral("XI"));
        QCOMPARE(textAt(classGrid, 0, 1), QStringLiteral("XIIA"));
        QCOMPARE(column(divisions(), 0), QStringList{"A"});
        key("txtNoOfDivisions", Qt::Key_Up);
        QCOMPARE(classGrid->currentRow(), 0);
        QCOMPARE(QApplication::focusWidget(), field("txtNoOfDivisions"));
        QCOMPARE(column(divisions(), 0), (QStringList{"A", "B"}));

        classGrid->setCurrentCell(1, 1); // the boxes lie on the row about to go
        QPointer<QLineEdit> guard(name);
        setText("txtDeleteSlNo", "2");
        m_messages.expectQuestion("Do You Want To Delete SNo. 2 ?", true);
        click("cmdDeleteRow");
        QVERIFY(guard);
        QCOMPARE(column(classes(), 1), (QStringList{"XIIA", ""}));
    }

    void entryChecks()
    {
        storeClasses(*m_store, {"XII:2", "XI:1"});
        open();
        FIND_OR_FAIL(classGrid, classes());
        FIND_OR_FAIL(divisionGrid, divisions());
        click("cmdEdit");
        QCOMPARE(classGrid->rowCount(), 3);
        classGrid->setCurrentCell(2, 1);
        m_messages.expectInformation("Enter Class Name");
        enter("txtNoOfDivisions", "2");
        QCOMPARE(QApplication::focusWidget(), field("txtClassName"));

        m_messages.expectInformation("Class Name Already Exists");
        enter("txtClassName", " xii");
        QCOMPARE(textAt(classGrid, 2, 1), QString());
        QCOMPARE(QApplication::focusWidget(), field("txtClassName"));

        enter("txtClassName", "X");
        QCOMPARE(textAt(classGrid, 2, 3), QStringLiteral("3"));
        enter("txtNoOfDivisions", "2");
        m_messages.expectInformation("Class Order Should Not Greater Than No Of Rows");
        enter("txtClassOrder", "4");
        QCOMPARE(textAt(classGrid, 2, 3), QString());
        enter("txtClassOrder", "1");
        QCOMPARE(column(classes(), 3), (QStringList{"2", "3", "1", ""}));

        // On the first division now; a second "a" is refused.
        key("txtDivisionName", Qt::Key_Return);
        m_messages.expectInformation("Division Name Already Exists");
        enter("txtDivisionName", "a");
        QCOMPARE(textAt(divisionGrid, 1, 0), QString());

        // Save stops at the blank division name and points at it.
        m_messages.expectInformation("Enter Division Name To Class X");
        click("cmdSave");
        QCOMPARE(classGrid->currentRow(), 2);
        QCOMPARE(divisionGrid->currentRow(), 1);
        QCOMPARE(QApplication::focusWidget(), field("txtDivisionName"));
        enter("txtDivisionName", "B");

        m_messages.expectInformation("Record Updated");
        click("cmdSave");
        QCOMPARE(stored(*m_store), (QStringList{"X:2:1:A,B", "XII:2:2:A,B", "XI:1:3:A"}));
    }

    void usedDivisionAndClassRefusedOnEdit()
    {
        storeClasses(*m_store, {"XII:2", "XI:3", "X:1"});
        m_store->exec("INSERT INTO WorkAllotmentEntry VALUES (0, 2, 3, 0, 4, '', '', '', 0, 0, 0, '', '')");
        m_store->exec("INSERT INTO TimeTable VALUES (3, 1, 1, 1, 0, 0, 'M', '', '', '')");
        const QStringList before = stored(*m_store);
        open();
        FIND_OR_FAIL(classGrid, classes());
        click("cmdEdit");

        classGrid->setCurrentCell(1, 2);
        enter("txtNoOfDivisions", "2");
        m_messages.expectInformation("This Division 'XI - C' Is Used In Other Entry Screen(s). So You Cannot Delete");
        click("cmdSave");
        QCOMPARE(stored(*m_store), before);
        QVERIFY(enabled("cmdSave")); // the screen stays in Edit

        // Back to three divisions, C takes its old code again; removing X trips over its timetable row.
        classGrid->setCurrentCell(1, 2);
        enter("txtNoOfDivisions", "3");
        setText("txtDeleteSlNo", "3");
        m_messages.expectQuestion("Do You Want To Delete SNo. 3 ?", true);
        click("cmdDeleteRow");
        m_messages.expectInformation("This Division 'X - A' Is Used In Other Entry Screen(s). So You Cannot Delete");
        click("cmdSave");
        QCOMPARE(stored(*m_store), before);

        m_store->exec("DELETE FROM TimeTable");
        m_store->exec("INSERT INTO ClasswiseNoOfWorkingDays VALUES (3, 5)");
        m_messages.expectInformation("The Class 'X' Used In Other Entry Screen(s). So You Cannot Delete");
        click("cmdSave");
        QCOMPARE(stored(*m_store), before);
    }

    void deleteRowBySerial()
    {
        storeClasses(*m_store, {"XII:1", "XI:2", "X:1"});
        open();
        click("cmdEdit");
        setText("txtDeleteSlNo", "2");
        m_messages.expectQuestion("Do You Want To Delete SNo. 2 ?", false);
        click("cmdDeleteRow");
        QCOMPARE(column(classes(), 1), (QStringList{"XII", "XI", "X", ""}));

        m_messages.expectQuestion("Do You Want To Delete SNo. 2 ?", true);
        click("cmdDeleteRow");
        QCOMPARE(column(classes(), 0), (QStringList{"1", "2", "3"}));
        QCOMPARE(column(classes(), 1), (QStringList{"XII", "X", ""}));
        QCOMPARE(column(classes(), 3), (QStringList{"1", "2", ""}));

        m_messages.expectInformation("Record Updated");
        click("cmdSave");
        QCOMPARE(stored(*m_store), (QStringList{"XII:1:1:A", "X:1:2:A"}));
        QCOMPARE(m_store->count("ClassDivisionDetails"), 2);
    }

    // A New ranks its classes from 1 while stored classes hold those numbers: the ranks are rewritten.
    void newClassesBesideStoredOnesAreReArranged()
    {
        storeClasses(*m_store, {"XII:1", "XI:1"});
        open();
        click("cmdNew");
        m_messages.expectInformation("Class Name Already Exists");
        enter("txtClassName", "XI");
        enterClass("LKG", "1");
        m_messages.expectInformation("Record Saved");
        m_messages.expectInformation("Re-Arrange Class Order");
        click("cmdSave");
        QCOMPARE(stored(*m_store), (QStringList{"XII:1:1:A", "XI:1:2:A", "LKG:1:3:A"}));
    }

    void noBlankRowPast99Classes()
    {
        QStringList many;
        for (int i = 1; i <= 99; ++i)
            many.append(QStringLiteral("C%1:1").arg(i));
        storeClasses(*m_store, many);
        open();
        FIND_OR_FAIL(classGrid, classes());
        m_messages.expectInformation("You Cannot Create More Than 99 Classes");
        click("cmdEdit");
        QCOMPARE(classGrid->rowCount(), 99);
        QCOMPARE(textAt(classGrid, 98, 1), QStringLiteral("C99"));
    }
};

QTEST_MAIN(tst_frmClassSectionEntry)
#include "tst_frmclasssectionentry.moc"
