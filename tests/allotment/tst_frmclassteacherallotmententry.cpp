#include "frmclassteacherallotmententry.h"
#include "findcontrol.h"
#include "sampleschool.h"
#include "scriptedmessages.h"
#include "teststore.h"

#include <QComboBox>
#include <QFrame>
#include <QPushButton>
#include <QTest>

namespace {
const QString AlreadyClassTeacher =
    QStringLiteral("This Teacher Has Already Been Assigned As A Class Teacher\nDo You Want To View The Details ?");
const QString DeleteQuestion = QStringLiteral("Do You Want To Delete This Class Teacher Entry ?");

// The small sample school: Ajith Iyer is class teacher of VI-A (Mathematics, P1), and four class divisions
// have one, VIII-A and VIII-B none; Priya Philip teaches English in every division and is no class teacher;
// Ajith Iyer also has the row the Combined Teacher screen generated for VI-A (Music), Asha Sebastian only
// the one the Combined Class screen generated in VII-B (Physical Education).
}

class tst_frmClassTeacherAllotmentEntry : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;
    frmClassTeacherAllotmentEntry *m_form = nullptr;

    template<typename T>
    T *control(const char *name)
    {
        return findControl<T>(m_form, name);
    }
    QComboBox *combo(const char *name) { return control<QComboBox>(name); }
    QPushButton *button(const char *name) { return control<QPushButton>(name); }
    void click(const char *name)
    {
        FIND_OR_FAIL(pressed, button(name));
        QTest::mouseClick(pressed, Qt::LeftButton);
    }
    bool enabled(const char *name)
    {
        FIND_OR_FAIL(widget, control<QWidget>(name), false);
        return widget->isEnabled();
    }
    QString shown(const char *name)
    {
        FIND_OR_FAIL(list, combo(name), QString());
        return list->currentText();
    }
    bool choose(const char *name, const QString &text)
    {
        FIND_OR_FAIL(list, combo(name), false);
        const int index = list->findText(text);
        list->setCurrentIndex(index);
        return index >= 0;
    }
    QStringList items(const char *name)
    {
        FIND_OR_FAIL(list, combo(name), QStringList());
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts << list->itemText(i);
        return texts;
    }
    QString focused() const { return m_form->focusWidget() ? m_form->focusWidget()->objectName() : QString(); }

    // ClassCode, DivisionCode, SubjectCode, PeriodCode of the teacher.
    QString entryOf(const QString &teacher) const
    {
        return m_store->scalar(QStringLiteral("SELECT ClassCode || ',' || DivisionCode || ',' || SubjectCode || ',' "
                                              "|| PeriodCode FROM TeacherMaster WHERE TeacherName = ?"),
                               {teacher}).toString();
    }
    int classTeachers() const
    {
        return m_store->scalar(QStringLiteral("SELECT COUNT(*) FROM TeacherMaster WHERE ClassCode > 0")).toInt();
    }
    void noClassTeachers()
    {
        m_store->exec(QStringLiteral("UPDATE TeacherMaster SET ClassCode = 0, DivisionCode = 0, SubjectCode = 0, "
                                     "PeriodCode = 0"));
    }
    void openNew(const QString &className, const QString &divisionName)
    {
        click("cmdNew");
        QVERIFY(choose("cboClass", className));
        QVERIFY(choose("cboDivision", divisionName));
    }

private slots:
    void init()
    {
        m_store = new TestStore;
        m_messages.reset();
        m_store->setMessages(m_messages);
        SampleSchool::build(m_store->db(), SampleSchool::Size::Small);
        m_form = new frmClassTeacherAllotmentEntry(m_store->context());
        m_form->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_form));
    }

    void cleanup()
    {
        QVERIFY2(m_messages.done(), m_messages.report());
        delete m_form;
        delete m_store;
    }

    void generatedRowsAreNotOffered_data()
    {
        QTest::addColumn<QString>("className");
        QTest::addColumn<QString>("divisionName");
        QTest::addColumn<QString>("teacher");
        QTest::addColumn<QString>("subject");
        QTest::addColumn<bool>("offered");
        QTest::addColumn<QString>("before"); // makes the teacher's only row in the division the one tried
        QTest::newRow("generated combined teacher row")
            << "VI" << "A" << "Ajith Iyer" << "Music" << false
            << "DELETE FROM WorkAllotmentEntry WHERE TeacherCode = 3 AND ClassCode = 1 AND DivisionCode = 1 AND "
               "CTSystem IS NULL";
        QTest::newRow("generated combined class row")
            << "VII" << "B" << "Asha Sebastian" << "Physical Education" << false << QString();
        QTest::newRow("entered row, marks empty")
            << "VI" << "A" << "Priya Philip" << "English" << true
            << "UPDATE WorkAllotmentEntry SET CCSystem = '', CTSystem = '' WHERE TeacherCode = 1 AND ClassCode = 1 "
               "AND DivisionCode = 1";
        QTest::newRow("entered row, marks null") << "VII" << "A" << "Priya Philip" << "English" << true << QString();
    }

    void generatedRowsAreNotOffered()
    {
        QFETCH(QString, className);
        QFETCH(QString, divisionName);
        QFETCH(QString, teacher);
        QFETCH(QString, subject);
        QFETCH(bool, offered);
        QFETCH(QString, before);
        noClassTeachers();
        if (!before.isEmpty())
            m_store->exec(before);
        // Rows as the work allotment screen writes them have the system marks null.
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT COUNT(*) FROM WorkAllotmentEntry WHERE TeacherCode = 1 AND "
                                                "ClassCode = 2 AND DivisionCode = 1 AND CCSystem IS NULL AND "
                                                "CTSystem IS NULL")).toInt(),
                 1);
        openNew(className, divisionName);
        QCOMPARE(items("cboTeacher").contains(teacher), offered);
        QCOMPARE(items("cboSubject").contains(subject), offered);
        QCOMPARE(items("cboTeacher").first(), QString());
    }

    void loadsTheClassDivisionsEntry()
    {
        QVERIFY(!enabled("fraMain"));
        QCOMPARE(items("cboUniformPeriodName"), (QStringList{"", "P1", "P2", "P3", "P4", "P5", "P6", "P7"}));
        QCOMPARE(items("cboClass"), (QStringList{"", "VI", "VII", "VIII"}));
        openNew("VI", "A");
        QCOMPARE(shown("cboTeacher"), QStringLiteral("Ajith Iyer"));
        QCOMPARE(shown("cboSubject"), QStringLiteral("Mathematics"));
        QCOMPARE(shown("cboUniformPeriodAllocation"), QStringLiteral("YES"));
        QCOMPARE(shown("cboUniformPeriodName"), QStringLiteral("P1"));
        QVERIFY(enabled("cmdEdit"));
        QVERIFY(enabled("cmdDelete"));
        QVERIFY(!enabled("cmdSave"));
        QCOMPARE(focused(), QStringLiteral("cmdEdit"));

        // A class division without a class teacher is open for a new entry again.
        QVERIFY(choose("cboClass", "VIII"));
        QVERIFY(choose("cboDivision", "A"));
        QCOMPARE(shown("cboTeacher"), QString());
        QCOMPARE(shown("cboUniformPeriodAllocation"), QStringLiteral("NO"));
        QVERIFY(!enabled("cmdEdit"));
        QVERIFY(enabled("cmdSave"));
    }

    void saveWritesTheFourColumns_data()
    {
        QTest::addColumn<QStringList>("allocations");
        QTest::addColumn<QString>("stored");
        QTest::newRow("uniform period") << QStringList{"YES"} << "1,1,1,3";
        QTest::newRow("no uniform period") << QStringList{"NO"} << "1,1,1,0";
        QTest::newRow("yes, then no again") << QStringList{"YES", "NO"} << "1,1,1,0";
    }

    void saveWritesTheFourColumns()
    {
        QFETCH(QStringList, allocations);
        QFETCH(QString, stored);
        noClassTeachers();
        openNew("VI", "A");
        QVERIFY(choose("cboTeacher", "Priya Philip"));
        QCOMPARE(items("cboSubject"), (QStringList{"", "English"}));
        QVERIFY(choose("cboSubject", "English"));
        for (const QString &allocation : allocations) {
            QVERIFY(choose("cboUniformPeriodAllocation", allocation));
            if (allocation == QLatin1String("YES"))
                QVERIFY(choose("cboUniformPeriodName", "P3"));
        }
        QCOMPARE(enabled("cboUniformPeriodName"), allocations.last() == QLatin1String("YES"));
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        click("cmdSave");
        QCOMPARE(entryOf(QStringLiteral("Priya Philip")), stored);
        QCOMPARE(classTeachers(), 1);
        QVERIFY(enabled("cmdNew"));
        QVERIFY(!enabled("fraMain"));
        QCOMPARE(shown("cboClass"), QString());
    }

    void refusalsInOrder()
    {
        noClassTeachers();
        click("cmdNew");
        const struct
        {
            const char *text;
            const char *focus;
            const char *field;
            const char *value;
        } steps[] = {
            {"Select Class Name", "cboClass", "cboClass", "VI"},
            {"Select Division Name", "cboDivision", "cboDivision", "A"},
            {"Select Teacher Name", "cboTeacher", "cboTeacher", "Priya Philip"},
            {"Select Subject Name", "cboSubject", "cboSubject", "English"},
            {"Select Uniform Period Name", "cboUniformPeriodName", nullptr, nullptr},
        };
        for (const auto &step : steps) {
            if (!step.field) // a uniform period was asked for but not named
                QVERIFY(choose("cboUniformPeriodAllocation", "YES"));
            m_messages.expectInformation(QString::fromLatin1(step.text));
            click("cmdSave");
            QCOMPARE(focused(), QString::fromLatin1(step.focus));
            if (step.field)
                QVERIFY(choose(step.field, QString::fromLatin1(step.value)));
        }
        QCOMPARE(classTeachers(), 0);
    }

    // Asked when the teacher is chosen, and again at Save in case the teacher became class teacher since.
    void alreadyClassTeacher_data()
    {
        QTest::addColumn<bool>("atSave");
        QTest::addColumn<bool>("view");
        QTest::newRow("on choosing, view") << false << true;
        QTest::newRow("on choosing, choose again") << false << false;
        QTest::newRow("at save, view") << true << true;
        QTest::newRow("at save, choose again") << true << false;
    }

    void alreadyClassTeacher()
    {
        QFETCH(bool, atSave);
        QFETCH(bool, view);
        noClassTeachers();
        const QString priyaInVIIA = QStringLiteral("UPDATE TeacherMaster SET ClassCode = 2, DivisionCode = 1, "
                                                   "SubjectCode = 1, PeriodCode = 4 WHERE TeacherName = 'Priya Philip'");
        if (!atSave)
            m_store->exec(priyaInVIIA);
        openNew("VI", "A");
        if (!atSave)
            m_messages.expectQuestion(AlreadyClassTeacher, view);
        QVERIFY(choose("cboTeacher", "Priya Philip"));
        if (atSave) {
            QVERIFY(choose("cboSubject", "English"));
            m_store->exec(priyaInVIIA);
            m_messages.expectQuestion(AlreadyClassTeacher, view);
            click("cmdSave");
        }
        if (view) {
            QCOMPARE(shown("cboClass"), QStringLiteral("VII"));
            QCOMPARE(shown("cboDivision"), QStringLiteral("A"));
            QCOMPARE(shown("cboTeacher"), QStringLiteral("Priya Philip"));
            QCOMPARE(shown("cboUniformPeriodName"), QStringLiteral("P4"));
            QVERIFY(enabled("cmdEdit"));
            QVERIFY(!enabled("cmdSave"));
        } else {
            QCOMPARE(shown("cboClass"), QStringLiteral("VI"));
            QCOMPARE(shown("cboTeacher"), QString());
            QCOMPARE(focused(), QStringLiteral("cboTeacher"));
            QVERIFY(enabled("cmdSave"));
        }
        QCOMPARE(entryOf(QStringLiteral("Priya Philip")), QStringLiteral("2,1,1,4"));
        QCOMPARE(classTeachers(), 1);
    }

    // Changing the teacher releases the old one in the same transaction: a failure keeps both as they were.
    void editToAnotherTeacher_data()
    {
        QTest::addColumn<bool>("storeRefuses");
        QTest::addColumn<QString>("ajith");
        QTest::addColumn<QString>("priya");
        QTest::newRow("saved") << false << "0,0,0,0" << "1,1,1,0";
        QTest::newRow("store refuses") << true << "1,1,4,1" << "0,0,0,0";
    }

    void editToAnotherTeacher()
    {
        QFETCH(bool, storeRefuses);
        QFETCH(QString, ajith);
        QFETCH(QString, priya);
        if (storeRefuses)
            m_store->exec(QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE OF ClassCode ON TeacherMaster WHEN "
                                         "NEW.TeacherName = 'Priya Philip' BEGIN SELECT RAISE(ABORT, 'refused'); END"));
        openNew("VI", "A");
        click("cmdEdit");
        QVERIFY(!enabled("cboClass"));
        QVERIFY(!enabled("cboDivision"));
        QCOMPARE(focused(), QStringLiteral("cmdSave"));
        QVERIFY(choose("cboTeacher", "Priya Philip"));
        QVERIFY(choose("cboSubject", "English"));
        QVERIFY(choose("cboUniformPeriodAllocation", "NO"));
        if (storeRefuses)
            m_messages.expectCritical(QStringLiteral("refused"));
        else
            m_messages.expectInformation(QStringLiteral("Record Updated"));
        click("cmdSave");
        QCOMPARE(entryOf(QStringLiteral("Ajith Iyer")), ajith);
        QCOMPARE(entryOf(QStringLiteral("Priya Philip")), priya);
        QCOMPARE(enabled("cmdSave"), storeRefuses); // a failed Save leaves the screen as it was
    }

    void deleteClearsTheEntry_data()
    {
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QString>("stored");
        QTest::newRow("yes") << true << "0,0,0,0";
        QTest::newRow("no") << false << "1,1,4,1";
    }

    void deleteClearsTheEntry()
    {
        QFETCH(bool, answer);
        QFETCH(QString, stored);
        openNew("VI", "A");
        m_messages.expectQuestion(DeleteQuestion, answer);
        if (answer)
            m_messages.expectInformation(QStringLiteral("Record Deleted"));
        click("cmdDelete");
        QCOMPARE(entryOf(QStringLiteral("Ajith Iyer")), stored);
        QCOMPARE(enabled("cmdNew"), answer);
        QCOMPARE(classTeachers(), answer ? 3 : 4);
    }

    void deletedAllotmentIsRefused()
    {
        noClassTeachers();
        openNew("VI", "A");
        QVERIFY(choose("cboTeacher", "Priya Philip"));
        QVERIFY(choose("cboSubject", "English"));
        m_store->exec(QStringLiteral("DELETE FROM WorkAllotmentEntry WHERE TeacherCode = 1 AND ClassCode = 1 "
                                     "AND DivisionCode = 1"));
        m_messages.expectInformation(QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data."));
        click("cmdSave");
        QCOMPARE(shown("cboTeacher"), QString());
        QCOMPARE(shown("cboSubject"), QString());
        QVERIFY(!items("cboTeacher").contains(QStringLiteral("Priya Philip")));
        QCOMPARE(focused(), QStringLiteral("cboTeacher"));
        QCOMPARE(classTeachers(), 0);
    }

    void privilegesRefuse_data()
    {
        QTest::addColumn<QString>("granted");
        QTest::addColumn<QString>("pressed");
        QTest::addColumn<QString>("refusal");
        QTest::newRow("new") << "EX" << "cmdNew" << "You Have No Privilege To Create New Entry";
        QTest::newRow("edit") << "NX" << "cmdEdit" << "You Have No Privilege To Modify This Entry";
        QTest::newRow("delete") << "NE" << "cmdDelete" << "You Have No Privilege To Delete";
    }

    void privilegesRefuse()
    {
        QFETCH(QString, granted);
        QFETCH(QString, pressed);
        QFETCH(QString, refusal);
        m_store->exec(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (7, 'clerk', 'x', 'N', 0)"));
        for (const QChar code : granted)
            m_store->exec(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES "
                                         "('frmClassTeacherAllotmentEntry', ?, 7)"),
                          {QString(code)});
        m_store->context().session.userCode = 7;
        if (pressed != QLatin1String("cmdNew"))
            openNew("VI", "A");
        m_messages.expectInformation(refusal);
        click(qPrintable(pressed));
        QCOMPARE(enabled("fraMain"), pressed != QLatin1String("cmdNew"));
        QCOMPARE(enabled("cmdSave"), false);
        QCOMPARE(entryOf(QStringLiteral("Ajith Iyer")), QStringLiteral("1,1,4,1"));
    }
};

QTEST_MAIN(tst_frmClassTeacherAllotmentEntry)
#include "tst_frmclassteacherallotmententry.moc"
