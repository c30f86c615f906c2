#include "frmworkallotmententry.h"
#include "findcontrol.h"
#include "sampleschool.h"
#include "scriptedmessages.h"
#include "teststore.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QTest>

#include <array>

using namespace AllotmentColumn;

namespace {
const QString CannotEdit = QStringLiteral("TimeTable Entry Exists For This Row\nSo You Cannot Edit This Row");
const QString CannotReduce = QStringLiteral("Timetable Entry Exists For More Periods Than The Entered 'Periods'\nSo You Cannot Reduce 'Periods'");
const QString Duplicate = QStringLiteral("No Two Rows Should Have Same Class-Division-Subject Entry Or\nAlready An Entry Exists For The Same Class-Division-Subject In Work Allotment Entry For Another Teacher");
const QString DeleteQuestion = QStringLiteral("Do You Want To Delete This Work Allotment Entry ?");
constexpr int NewTeacher = 99;
// A teacher with at least two rows, none in a group and none a class teacher entry.
const QString PlainTeacher = QStringLiteral(
    "t.ClassCode = 0 AND (SELECT COUNT(*) FROM WorkAllotmentEntry p WHERE p.TeacherCode = w.TeacherCode) >= 2 "
    "AND NOT EXISTS (SELECT 1 FROM WorkAllotmentEntry g WHERE g.TeacherCode = w.TeacherCode AND "
    "(g.CPGroupNo > 0 OR g.CCGroupNo > 0 OR g.CTGroupNo > 0))");

// Records the screens asked for.
class RecordingHost : public ScreenHost
{
public:
    void openScreen(const QString &formName) override { opened << formName; }
    QStringList opened;
};

// The small sample school: VI, VII and VIII with divisions A and B. Nobody teaches Sanskrit in VI or Moral
// Science anywhere, which leaves those free for a new teacher.
}

class tst_frmWorkAllotmentEntry : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;
    QPointer<frmWorkAllotmentEntry> m_form;

    template<typename T>
    T *control(const char *name)
    {
        return findControl<T>(m_form, name);
    }
    QTableWidget *grid() { return control<QTableWidget>("msgDetails"); }
    QComboBox *combo(const char *name) { return control<QComboBox>(name); }
    QString label(const char *name)
    {
        FIND_OR_FAIL(label, control<QLabel>(name), QString());
        return label->text();
    }
    QString cell(int row, int column)
    {
        FIND_OR_FAIL(table, grid(), QString());
        return table->item(row, column) ? table->item(row, column)->text() : QString();
    }
    int gridRows()
    {
        FIND_OR_FAIL(table, grid(), -1);
        return table->rowCount();
    }
    bool enabled(const char *name)
    {
        FIND_OR_FAIL(widget, control<QWidget>(name), false);
        return widget->isEnabled();
    }
    bool visible(const char *name)
    {
        FIND_OR_FAIL(widget, control<QWidget>(name), false);
        return widget->isVisible();
    }
    void click(const char *name)
    {
        FIND_OR_FAIL(button, control<QPushButton>(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void key(const char *name, Qt::Key key)
    {
        FIND_OR_FAIL(widget, control<QWidget>(name));
        QTest::keyClick(widget, key);
    }
    void setText(const char *name, const QString &text)
    {
        FIND_OR_FAIL(field, control<QLineEdit>(name));
        field->setText(text);
    }

    void clickCell(int row, int column)
    {
        FIND_OR_FAIL(table, grid());
        table->scrollToItem(table->item(row, column));
        const QPoint centre = table->visualItemRect(table->item(row, column)).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, centre);
    }
    void chooseTeacher(int code)
    {
        FIND_OR_FAIL(teachers, combo("cboTeacher"));
        teachers->setCurrentIndex(teachers->findData(code));
    }
    // New, then the teacher; with Edit for a teacher who has rows.
    void openTeacher(int code, bool edit = true)
    {
        click("cmdNew");
        chooseTeacher(code);
        if (edit)
            click("cmdEdit");
    }
    void pick(const char *editor, const QString &text)
    {
        FIND_OR_FAIL(list, combo(editor));
        QVERIFY2(list->isVisible(), editor);
        list->setCurrentIndex(list->findText(text));
        QTest::keyClick(list, Qt::Key_Return);
    }
    void typePeriods(const QString &periods)
    {
        FIND_OR_FAIL(editor, control<QLineEdit>("txtPeriods"));
        QVERIFY(editor->isVisible());
        editor->setText(periods);
        QTest::keyClick(editor, Qt::Key_Return);
    }
    void enterRow(const QString &className, const QString &division, const QString &subject, const QString &periods)
    {
        pick("cboClass", className);
        pick("cboDivision", division);
        pick("cboSubject", subject);
        typePeriods(periods);
    }
    int gridRowOf(int classCode, int division, int subject)
    {
        for (int r = 0; r < gridRows(); ++r)
            if (cell(r, ClassCode).toInt() == classCode && cell(r, DivisionCode).toInt() == division
                && cell(r, SubjectCode).toInt() == subject)
                return r;
        return -1;
    }
    int teacherWith(const QString &condition)
    {
        return m_store->scalar(QStringLiteral("SELECT w.TeacherCode FROM WorkAllotmentEntry w JOIN TeacherMaster t ON "
                                              "t.TeacherCode = w.TeacherCode WHERE ") + condition
                               + QStringLiteral(" ORDER BY w.TeacherCode LIMIT 1"))
            .toInt();
    }
    int plainTeacher() { return teacherWith(PlainTeacher); }
    // ClassCode, DivisionCode and SubjectCode of a grid row.
    std::array<int, 3> keyOf(int row)
    {
        return {cell(row, ClassCode).toInt(), cell(row, DivisionCode).toInt(), cell(row, SubjectCode).toInt()};
    }
    void place(int teacher, int row, int day)
    {
        const auto key = keyOf(row);
        m_store->exec(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, ?, 1, ?, ?, 'M', '', '', '')"),
                      {key[0], key[1], day, key[2], teacher});
    }
    int storedPeriods(int teacher, int classCode, int division, int subject)
    {
        return m_store->scalar(QStringLiteral("SELECT NoOfSectionPeriods FROM WorkAllotmentEntry WHERE TeacherCode = ? "
                                              "AND ClassCode = ? AND DivisionCode = ? AND SubjectCode = ?"),
                               {teacher, classCode, division, subject})
            .toInt();
    }
    int rowCountOf(int teacher)
    {
        const QString count = QStringLiteral("SELECT COUNT(*) FROM WorkAllotmentEntry WHERE TeacherCode = ?");
        return m_store->scalar(count, {teacher}).toInt();
    }

private slots:
    void init()
    {
        m_store = new TestStore;
        m_messages.reset();
        m_store->setMessages(m_messages);
        SampleSchool::build(m_store->db(), SampleSchool::Size::Small);
        m_store->exec(QStringLiteral("INSERT INTO TeacherMaster VALUES (?, 1, 'Zachariah New', 'ZN', NULL, 'S', NULL, "
                                     "NULL, '', '', '', 1, '', '', 0, '', 10, 99, 0, 0, 0, 0)"),
                      {NewTeacher});
        m_form = new frmWorkAllotmentEntry(m_store->context());
        m_form->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_form));
    }

    void cleanup()
    {
        QVERIFY2(m_messages.done(), m_messages.report());
        delete m_form;
        delete m_store;
    }

    void newSaveThenEditRoundTrip()
    {
        openTeacher(NewTeacher, false);
        QVERIFY(enabled("cmdSave"));
        key("cboTeacher", Qt::Key_Return);
        enterRow("VI", "A", "Sanskrit", "3");
        enterRow("VI", "B", "Moral Science", "2");
        QCOMPARE(cell(1, SlNo), QStringLiteral("2"));
        QCOMPARE(gridRows(), 3);
        QCOMPARE(label("lblAllotedPeriods"), QStringLiteral("5"));
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        click("cmdSave");
        QVERIFY(enabled("cmdNew"));
        // Only the five columns are written; the group columns stay empty.
        const QString written = QStringLiteral(
            "SELECT GROUP_CONCAT(ClassCode || '/' || DivisionCode || ':' || SubjectCode || '=' || NoOfSectionPeriods, "
            "' ') FROM WorkAllotmentEntry WHERE TeacherCode = ? AND CP IS NULL AND CPGroupNo IS NULL AND CCSystem IS NULL");
        QCOMPARE(m_store->scalar(written, {NewTeacher}).toString(), QStringLiteral("1/1:18=3 1/2:17=2"));

        openTeacher(NewTeacher);
        QCOMPARE(label("lblTeacherShortName"), QStringLiteral("ZN"));
        QCOMPARE(label("lblNoOfPeriods"), QStringLiteral("10"));
        clickCell(0, Periods);
        typePeriods("4");
        QVERIFY(visible("cboClass")); // Enter moved on to the next row
        setText("txtDeleteSlNo", QStringLiteral("3"));
        m_messages.expectInformation(QStringLiteral("No Row Exists"));
        click("cmdDeleteRow");
        setText("txtDeleteSlNo", QStringLiteral("1"));
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete Sl.No. 1 ?"), true);
        click("cmdDeleteRow");
        QCOMPARE(cell(0, SubjectName), QStringLiteral("Moral Science"));
        QCOMPARE(cell(0, SlNo), QStringLiteral("1"));
        QCOMPARE(label("lblAllotedPeriods"), QStringLiteral("2"));
        m_messages.expectInformation(QStringLiteral("Record Updated"));
        click("cmdSave");
        QCOMPARE(rowCountOf(NewTeacher), 1);
        QCOMPARE(storedPeriods(NewTeacher, 1, 2, 17), 2);
    }

    // Esc in a cell editor drops what it holds and leaves the cell; from the grid or the teacher list, Esc asks
    // for Exit as the Exit button does.
    void escapeLeavesTheCellThenAsksForExit()
    {
        m_store->context().session.confirmExit = true;
        const QString question = QStringLiteral("Do You Want To Exit Work Allotment Entry ?");
        openTeacher(NewTeacher, false);
        key("cboTeacher", Qt::Key_Return);
        enterRow("VI", "A", "Sanskrit", "3");
        QVERIFY(visible("cboClass")); // the next row's class cell
        key("cboClass", Qt::Key_Escape);
        QVERIFY(!visible("cboClass"));

        clickCell(0, Periods);
        FIND_OR_FAIL(periods, control<QLineEdit>("txtPeriods"));
        QVERIFY(periods->isVisible());
        periods->setText(QStringLiteral("7"));
        QTest::keyClick(periods, Qt::Key_Escape);
        QVERIFY(!periods->isVisible());
        QCOMPARE(cell(0, Periods), QStringLiteral("3"));
        QCOMPARE(m_form->focusWidget(), grid());

        m_messages.expectQuestion(question, false);
        key("msgDetails", Qt::Key_Escape);
        QVERIFY(m_form->isVisible());
        m_messages.expectQuestion(question, true);
        key("cboTeacher", Qt::Key_Escape);
        QVERIFY(!m_form->isVisible());
    }

    // Periods may come down to the placed count, not below: on the cell, and again at Save when more were
    // placed meanwhile.
    void periodsDownToThePlacedCount()
    {
        const int teacher = plainTeacher();
        openTeacher(teacher);
        const auto key = keyOf(0);
        QVERIFY(cell(0, Periods).toInt() >= 3);
        place(teacher, 0, 1);
        place(teacher, 0, 2);

        m_messages.expectInformation(CannotEdit);
        clickCell(0, ClassName);
        QVERIFY(!visible("cboClass"));
        clickCell(0, Periods);
        m_messages.expectInformation(CannotReduce);
        typePeriods("1");
        QVERIFY(visible("txtPeriods"));
        QCOMPARE(cell(0, Periods).toInt(), storedPeriods(teacher, key[0], key[1], key[2]));
        typePeriods("2");
        QCOMPARE(cell(0, Periods), QStringLiteral("2"));
        m_messages.expectInformation(QStringLiteral("Record Updated"));
        click("cmdSave");
        QCOMPARE(storedPeriods(teacher, key[0], key[1], key[2]), 2);

        openTeacher(teacher);
        place(teacher, gridRowOf(key[0], key[1], key[2]), 3);
        m_messages.expectInformation(QStringLiteral("Timetable Entry Exists For More Periods Than The Entered 'Periods'\nSo You Cannot Save This WorkAllotment Entry"));
        click("cmdSave");
        QVERIFY(enabled("cmdNew"));
        QCOMPARE(storedPeriods(teacher, key[0], key[1], key[2]), 2);
    }

    // A row taken out of the grid gets placed periods before the Save: nothing of the edit is written.
    void droppingAPlacedRowDiscardsTheWholeEdit()
    {
        const int teacher = plainTeacher();
        openTeacher(teacher);
        const int rows = rowCountOf(teacher);
        const auto dropped = keyOf(0);
        const auto kept = keyOf(1);
        const int keptPeriods = cell(1, Periods).toInt();
        clickCell(1, Periods);
        typePeriods(QString::number(keptPeriods - 1));
        setText("txtDeleteSlNo", QStringLiteral("1"));
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete Sl.No. 1 ?"), true);
        click("cmdDeleteRow");
        m_store->exec(QStringLiteral("INSERT INTO TimeTable VALUES (?, ?, 1, 1, ?, ?, 'M', '', '', '')"),
                      {dropped[0], dropped[1], dropped[2], teacher});
        m_messages.expectInformation(QStringLiteral("Changes You Made Is Not Saved\nBecause Time Table Entry Already Exists"));
        click("cmdSave");
        QCOMPARE(rowCountOf(teacher), rows);
        QCOMPARE(storedPeriods(teacher, kept[0], kept[1], kept[2]), keptPeriods);

        // The grid itself refuses to let such a row go.
        openTeacher(teacher);
        const int slNo = gridRowOf(dropped[0], dropped[1], dropped[2]) + 1;
        setText("txtDeleteSlNo", QString::number(slNo));
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete Sl.No. %1 ?").arg(slNo), true);
        m_messages.expectInformation(QStringLiteral("TimeTable Entry Exists For This Row\nSo You Cannot Delete This Row"));
        click("cmdDeleteRow");
        QCOMPARE(gridRows(), rows + 1);
    }

    // An Edit writes the plain rows again; the group rows keep their marks and periods.
    void editKeepsGroupRowsAsStored()
    {
        const int teacher = teacherWith(QStringLiteral("w.CCSystem = 'Y'"));
        const QString groupRows = QStringLiteral(
            "SELECT GROUP_CONCAT(ClassCode || '/' || DivisionCode || ':' || SubjectCode || '=' || NoOfSectionPeriods "
            "|| CC || CCGroupNo || CCSystem, ' ') FROM WorkAllotmentEntry WHERE TeacherCode = ? AND CCGroupNo > 0");
        const QString before = m_store->scalar(groupRows, {teacher}).toString();
        openTeacher(teacher);
        int plain = 0;
        while (!cell(plain, CombinedClass).isEmpty())
            ++plain;
        const auto key = keyOf(plain);
        const int periods = cell(plain, Periods).toInt();
        clickCell(plain, Periods);
        typePeriods(QString::number(periods + 1));
        m_messages.expectInformation(QStringLiteral("Record Updated"));
        click("cmdSave");
        QCOMPARE(m_store->scalar(groupRows, {teacher}).toString(), before);
        QCOMPARE(storedPeriods(teacher, key[0], key[1], key[2]), periods + 1);
    }

    void allottedPeriods_data()
    {
        QTest::addColumn<QString>("generated");
        QTest::addColumn<int>("groupColumn");
        QTest::addColumn<bool>("counts");
        QTest::newRow("combined class: the generated row costs nothing") << "CCSystem" << int(CombinedClass) << false;
        QTest::newRow("combined teacher: the generated row counts") << "CTSystem" << int(CombinedTeacher) << true;
    }

    void allottedPeriods()
    {
        QFETCH(QString, generated);
        QFETCH(int, groupColumn);
        QFETCH(bool, counts);
        const int teacher = teacherWith(QStringLiteral("w.") + generated + QStringLiteral(" = 'Y'"));
        const QString sum =
            QStringLiteral("SELECT SUM(NoOfSectionPeriods) FROM WorkAllotmentEntry WHERE TeacherCode = ?");
        const int all = m_store->scalar(sum, {teacher}).toInt();
        const QString ofGenerated = sum + QStringLiteral(" AND ") + generated + QStringLiteral(" = 'Y'");
        const int generatedPeriods = m_store->scalar(ofGenerated, {teacher}).toInt();
        QVERIFY(generatedPeriods > 0);
        openTeacher(teacher, false);
        QCOMPARE(label("lblAllotedPeriods").toInt(), counts ? all : all - generatedPeriods);
        int shown = 0;
        for (int r = 0; r + 1 < gridRows(); ++r)
            shown += cell(r, groupColumn).toInt() > 0 ? 1 : 0;
        QVERIFY(shown >= 1);
    }

    void rowsKeptAsStoredRefuseEditing_data()
    {
        QTest::addColumn<QString>("condition");
        QTest::addColumn<QString>("message");
        QTest::newRow("combined class") << "w.CCGroupNo > 0"
                                        << "You Cannot Edit This Row Because Combined Class Entry Exists";
        QTest::newRow("combined teacher") << "w.CTGroupNo > 0"
                                          << "You Cannot Edit This Row Because Combined Teacher Entry Exists";
        QTest::newRow("combined subject") << "w.CPGroupNo > 0"
                                          << "You Cannot Edit This Row Because Combined Subject entry Exists";
        QTest::newRow("class teacher") << "t.ClassCode = w.ClassCode AND t.DivisionCode = w.DivisionCode AND "
                                          "t.SubjectCode = w.SubjectCode"
                                       << "You Cannot Edit This Row Because 'Class Teacher Entry' Exists For This Row";
    }

    void rowsKeptAsStoredRefuseEditing()
    {
        QFETCH(QString, condition);
        QFETCH(QString, message);
        const int teacher = teacherWith(condition);
        QSqlQuery key(m_store->db());
        key.prepare(QStringLiteral("SELECT w.ClassCode, w.DivisionCode, w.SubjectCode FROM WorkAllotmentEntry w JOIN "
                                   "TeacherMaster t ON t.TeacherCode = w.TeacherCode WHERE w.TeacherCode = ? AND ")
                    + condition);
        key.addBindValue(teacher);
        QVERIFY(key.exec() && key.next());
        openTeacher(teacher);
        const int row = gridRowOf(key.value(0).toInt(), key.value(1).toInt(), key.value(2).toInt());
        QVERIFY(row >= 0);
        for (int column : {int(ClassName), int(Periods)}) {
            m_messages.expectInformation(message);
            clickCell(row, column);
            QVERIFY(!visible("cboClass"));
            QVERIFY(!visible("txtPeriods"));
        }
    }

    void duplicateClassDivisionSubject()
    {
        openTeacher(NewTeacher, false);
        clickCell(0, ClassName);
        enterRow("VI", "A", "Sanskrit", "3");
        pick("cboClass", "VI");
        pick("cboDivision", "A");
        m_messages.expectInformation(Duplicate);
        pick("cboSubject", "Sanskrit"); // the same grid
        QVERIFY(cell(1, SubjectName).isEmpty());
        QCOMPARE(m_form->focusWidget(), combo("cboSubject"));
        m_messages.expectInformation(Duplicate);
        pick("cboSubject", "English"); // another teacher's stored row
        QVERIFY(cell(1, SubjectCode).isEmpty());
        pick("cboSubject", "Moral Science");
        QVERIFY(visible("txtPeriods"));
    }

    void deleteWholeList_data()
    {
        QTest::addColumn<QString>("condition");
        QTest::addColumn<bool>("placed");
        QTest::addColumn<QString>("refusal");
        QTest::newRow("timetable") << "t.ClassCode = 0 AND IFNULL(w.CPGroupNo, 0) = 0" << true
                                   << "Already Timetable Entries Exist For The Selected Teacher\nSo You Cannot Delete This Teacher's WorkAllotment Entry\nAfter Removing Timetable Entries Of This Teacher, You Can Delete This WorkAllotment Entry";
        QTest::newRow("class teacher") << "t.ClassCode > 0" << false
                                       << "Already 'Class Teacher Entry' Exists For The Selected Teacher\nSo You Cannot Delete This Teacher's WorkAllotment Entry\nAfter Removing His/Her 'Class Teacher Entry', You Can Delete This WorkAllotment Entry";
        QTest::newRow("combined") << "t.ClassCode = 0 AND w.CTGroupNo > 0" << false
                                  << "Already Combined Entry Exists For The Selected Teacher\nSo You Cannot Delete This Teacher's WorkAllotment Entry\nAfter Removing Combined Entry Of This Teacher, You Can Delete This WorkAllotment Entry";
        QTest::newRow("plain") << PlainTeacher << false << QString();
    }

    void deleteWholeList()
    {
        QFETCH(QString, condition);
        QFETCH(bool, placed);
        QFETCH(QString, refusal);
        const int teacher = teacherWith(condition);
        QVERIFY(teacher > 0);
        openTeacher(teacher, false);
        if (placed)
            place(teacher, 0, 1);
        const int rows = rowCountOf(teacher);
        if (!refusal.isEmpty()) {
            m_messages.expectInformation(refusal);
            click("cmdDelete");
            QCOMPARE(rowCountOf(teacher), rows);
            return;
        }
        m_messages.expectQuestion(DeleteQuestion, false);
        click("cmdDelete");
        QCOMPARE(rowCountOf(teacher), rows);
        m_messages.expectQuestion(DeleteQuestion, true);
        m_messages.expectInformation(QStringLiteral("Record Deleted"));
        click("cmdDelete");
        QCOMPARE(rowCountOf(teacher), 0);
        QVERIFY(enabled("cmdNew"));
    }

    void saveRefusals()
    {
        click("cmdNew");
        m_messages.expectInformation(QStringLiteral("Select Teacher"));
        clickCell(0, ClassName);
        m_messages.expectInformation(QStringLiteral("Select Teacher Name"));
        click("cmdSave");
        chooseTeacher(NewTeacher);
        m_messages.expectInformation(QStringLiteral("Enter WorkAllotment Details"));
        click("cmdSave");
        QVERIFY(visible("cboClass"));
        pick("cboClass", "VII");
        m_messages.expectInformation(QStringLiteral("Enter Details Properly"));
        click("cmdSave");
        FIND_OR_FAIL(details, grid());
        QCOMPARE(details->currentColumn(), int(ClassName));
        QCOMPARE(rowCountOf(NewTeacher), 0);
    }

    // A teacher whose working periods were lowered below the stored rows cannot save until rows go.
    void loweredCeilingRefusesSave()
    {
        const int teacher = plainTeacher();
        m_store->exec(QStringLiteral("UPDATE TeacherMaster SET NoOfPeriods = 1 WHERE TeacherCode = ?"), {teacher});
        m_messages.expectInformation(QStringLiteral("'Alloted Periods' Should Not Exceed 'No.Of Working Periods'"));
        openTeacher(teacher);
        m_messages.expectInformation(QStringLiteral("'Alloted Periods' Should Not Exceed 'No.Of Working Periods'"));
        click("cmdSave");
        QVERIFY(enabled("cmdSave"));
    }

    void addButtonsOpenMastersAndListsFollow()
    {
        FIND_OR_FAIL(teachers, combo("cboTeacher"));
        FIND_OR_FAIL(subjects, combo("cboSubject"));
        RecordingHost host;
        m_store->context().host = &host;
        QMdiArea area;
        QMdiSubWindow *own = area.addSubWindow(m_form);
        QMdiSubWindow *other = area.addSubWindow(new QWidget);
        area.show();
        QVERIFY(QTest::qWaitForWindowExposed(&area));
        area.setActiveSubWindow(own);
        click("cmdNew");
        click("cmdAddTeacherName");
        click("cmdAddClassName");
        click("cmdAddSubjectName");
        QCOMPARE(host.opened, (QStringList{"frmTeacherMaster", "frmClassSectionEntry", "frmSubjectMaster"}));

        area.setActiveSubWindow(other);
        m_store->exec(QStringLiteral("INSERT INTO TeacherMaster VALUES (100, 1, 'Aaron Added', 'AA', NULL, 'S', NULL, "
                                     "NULL, '', '', '', 1, '', '', 0, '', 10, 100, 0, 0, 0, 0)"));
        m_store->exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (50, 'Astronomy', 'AST')"));
        area.setActiveSubWindow(own);
        QVERIFY(teachers->findText(QStringLiteral("Aaron Added")) > 0);
        QVERIFY(subjects->findData(50) > 0);
        m_store->context().host = nullptr;
    }
};

QTEST_MAIN(tst_frmWorkAllotmentEntry)
#include "tst_frmworkallotmententry.moc"
