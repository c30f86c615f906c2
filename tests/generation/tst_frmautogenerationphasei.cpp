#include "frmautogenerationphasei.h"
#include "findcontrol.h"
#include "generationfixture.h"
#include "runprogress.h"
#include "scriptedmessages.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

namespace {
const QString NoAnswer = QStringLiteral("Select Whether Uniform Period Is Required Or Not");
// Teacher 1 takes 20 periods; the week is 4 x 6 + 4 = 28 periods.
const QString SecondFreePeriodRefused =
    QStringLiteral("No. Of Periods Alloted For Teacher 1 Is 20\nBut This Selection Allows Only 18 Periods To Be "
                   "FilledHence You Cannot Select More 'Teachers Uniform Free Periods' For Teacher 1\n");
}

class tst_frmAutoGenerationPhaseI : public QObject
{
    Q_OBJECT

private:
    TestStore *m_store = nullptr;
    ScriptedMessages m_messages;
    frmAutoGenerationPhaseI *m_form = nullptr;

    template<typename T>
    T *control(const char *name)
    {
        return findControl<T>(m_form, name);
    }
    QPushButton *button(const char *name) { return control<QPushButton>(name); }
    QTableWidget *grid(const char *name) { return control<QTableWidget>(name); }
    void click(const char *name)
    {
        FIND_OR_FAIL(b, button(name));
        QTest::mouseClick(b, Qt::LeftButton);
    }
    void clickCell(const char *name, int row, int column)
    {
        FIND_OR_FAIL(g, grid(name));
        QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, g->visualRect(g->model()->index(row, column)).center());
    }
    QString cell(const char *name, int row, int column)
    {
        FIND_OR_FAIL(g, grid(name), QString());
        QTableWidgetItem *item = g->item(row, column);
        return item ? item->text() : QString();
    }
    int rows(const char *name)
    {
        FIND_OR_FAIL(g, grid(name), -1);
        return g->rowCount();
    }
    QString text(const char *name)
    {
        FIND_OR_FAIL(label, control<QLabel>(name), QString());
        return label->text();
    }
    void answer(const QString &text)
    {
        FIND_OR_FAIL(combo, control<QComboBox>("cboUniformPeriod"));
        combo->setCurrentIndex(combo->findText(text));
        emit combo->activated(combo->currentIndex());
    }
    // Types a name into the floating combo and presses Enter, as the user does.
    void choose(const char *comboName, const QString &name)
    {
        FIND_OR_FAIL(combo, control<QComboBox>(comboName));
        QVERIFY(combo->isVisible());
        combo->setEditText(name);
        QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    }
    void open()
    {
        delete m_form;
        m_form = new frmAutoGenerationPhaseI(m_store->context());
        m_form->resize(1200, 800);
        m_form->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_form));
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

private slots:
    void init()
    {
        m_messages.reset();
        m_store = new TestStore;
        m_store->setMessages(m_messages);
        buildGenerationSchool(*m_store);
        m_store->exec(QStringLiteral("UPDATE TeacherMaster SET NoOfPeriods = 20 WHERE TeacherCode = 1"));
        open();
    }
    void cleanup()
    {
        QVERIFY2(m_messages.done(), m_messages.report());
        delete m_form;
        m_form = nullptr;
        delete m_store;
    }

    void newSettingsAreSavedAndShownAgain()
    {
        QVERIFY(enabled("cmdNew"));
        QVERIFY(!enabled("cmdEdit") && !enabled("cmdDelete") && !enabled("cmdProcess") && !enabled("cmdSave"));
        m_store->exec(QStringLiteral("DELETE FROM ClasswiseNoOfWorkingDays"));
        click("cmdNew");
        // New rebuilds the class-wise days from the school's week.
        QCOMPARE(m_store->count(QStringLiteral("ClasswiseNoOfWorkingDays")), 2);
        m_messages.expectInformation(NoAnswer);
        click("cmdSave");

        answer(QStringLiteral("NO"));
        QVERIFY(enabled("Frame3"));
        choose("cboTeacher", QStringLiteral("teacher 1"));
        QCOMPARE(cell("msgTeacherDetails", 0, 0), QStringLiteral("Teacher 1"));
        m_messages.expectInformation(QStringLiteral("Teacher Already Selected"));
        choose("cboTeacher", QStringLiteral("Teacher 1"));
        choose("cboTeacher", QStringLiteral("Teacher 3"));
        QCOMPARE(rows("msgTeacherDetails"), 3); // two names and the spare row

        clickCell("msgTeacherDetails", 0, 2);
        QCOMPARE(cell("msgTeacherDetails", 0, 2), QStringLiteral("No"));
        m_messages.expectInformation(SecondFreePeriodRefused);
        clickCell("msgTeacherDetails", 0, 3);
        m_messages.expectQuestion(QStringLiteral("Do You Want To Remove The Entry ?"), false);
        clickCell("msgTeacherDetails", 0, 2);
        QCOMPARE(cell("msgTeacherDetails", 0, 2), QStringLiteral("No"));

        m_messages.expectInformation(QStringLiteral("Record Saved"));
        click("cmdSave");
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT UniformPeriodRequired FROM AGP1Master")).toString(), QStringLiteral("NO"));
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT group_concat(TeacherName || ':' || P2 || ':' || Counts || ':' || POLWDC, ',') "
                                                "FROM AGP1TeacherDetails")).toString(),
                 QStringLiteral("Teacher 1:No:1:1,Teacher 3::0:0"));
        QVERIFY(enabled("cmdEdit") && enabled("cmdDelete") && enabled("cmdProcess"));
        QVERIFY(!enabled("cmdNew") && !enabled("cmdSave"));
        QVERIFY(!enabled("Frame3"));

        open();
        FIND_OR_FAIL(uniform, control<QComboBox>("cboUniformPeriod"));
        QCOMPARE(uniform->currentText(), QStringLiteral("NO"));
        QCOMPARE(cell("msgTeacherDetails", 0, 2), QStringLiteral("No"));
        QCOMPARE(cell("msgTeacherDetails", 1, 0), QStringLiteral("Teacher 3"));
    }

    void clicksRefusedByTheWeekAndTheDeadRow()
    {
        place(*m_store, 1, 1, 2, 3, 1, 1, "M"); // Teacher 1 already placed by hand at period 3
        click("cmdNew");
        answer(QStringLiteral("NO"));
        choose("cboTeacher", QStringLiteral("Teacher 1"));
        m_messages.expectInformation(
            QStringLiteral("Already A Period Is Alloted For Teacher Teacher 1 In 'Manual Period Entry'. Hence He/She Cannot Be "
                           "Free In This Period. If You Want To Make This Period Free Make Modifications In 'Manual Period "
                           "Entry' Screen For This Teacher And Make An Entry Here."));
        clickCell("msgTeacherDetails", 0, 3);

        // Subjects: the check rows follow the chosen subject; the fourth row takes no clicks.
        allot(*m_store, 2, 1, 1, 2, 6);
        allot(*m_store, 2, 2, 1, 2, 6);
        allot(*m_store, 3, 1, 2, 2, 5);
        clickCell("msgSubjectDetails", 0, 0);
        choose("cboSubject", QStringLiteral("Subject 2"));
        QCOMPARE(rows("msgSubjectTeacherCheck"), 2);
        QCOMPARE(cell("msgSubjectTeacherCheck", 0, 1) + cell("msgSubjectTeacherCheck", 0, 2), QStringLiteral("Teacher 212"));
        clickCell("msgSubjectDetails", 0, 0);
        choose("cboSubject", QStringLiteral("Subject 3"));
        QCOMPARE(rows("msgSubjectTeacherCheck"), 0);
        choose("cboSubject", QStringLiteral("Subject 2"));
        choose("cboSubject", QStringLiteral("Subject 1"));
        choose("cboSubject", QStringLiteral("Subject 4"));
        QCOMPARE(cell("msgSubjectDetails", 3, 0), QStringLiteral("Subject 4"));
        clickCell("msgSubjectDetails", 3, 1);
        QCOMPARE(cell("msgSubjectDetails", 3, 1), QString());
        clickCell("msgSubjectDetails", 1, 1);
        QCOMPARE(cell("msgSubjectDetails", 1, 1), QStringLiteral("No"));
        // Each free period costs 4 days, and one more within the short last day's 4 periods: P1, P2 and P5
        // leave 28 - 14 = 14 periods for Teacher 2's 12; P6 would leave 10.
        clickCell("msgSubjectDetails", 1, 2);
        clickCell("msgSubjectDetails", 1, 5);
        QCOMPARE(cell("msgSubjectDetails", 1, 5), QStringLiteral("No"));
        m_messages.expectInformation(
            QStringLiteral("No. Of Periods Alloted For Teacher 2 Is 12\nBut This Selection Allows Only 10 Periods To Be "
                           "FilledHence You Cannot Select More 'Subject Uniform Free Periods' For Teacher 2\n"));
        clickCell("msgSubjectDetails", 1, 6);
    }

    void uniformAnswerChecksTheClassTeachers()
    {
        // Teacher 1 is class teacher of I-A at period 1 with 5 periods of Subject 1.
        m_store->exec(QStringLiteral("UPDATE TeacherMaster SET ClassCode = 1, DivisionCode = 1, SubjectCode = 1, PeriodCode = 1 "
                                     "WHERE TeacherCode = 1"));
        allot(*m_store, 1, 1, 1, 1, 5);
        click("cmdNew");
        answer(QStringLiteral("YES"));
        QVERIFY(enabled("Frame3"));
        QVERIFY(!visible("fraValidity"));
        choose("cboTeacher", QStringLiteral("Teacher 1"));
        m_messages.expectInformation(QStringLiteral("Teacher Teacher 1 Is Alloted As Class Teacher In This Period.\n"
                                                    "Hence He/She Cannot Be Free During This Period"));
        clickCell("msgTeacherDetails", 0, 1);
        m_messages.expectQuestion(QStringLiteral("All Teacher And Subject Setting Will Be Cleared And You Have To Make New "
                                                 "Settings.\nDo You Want To Proceed ?"),
                                  true);
        answer(QStringLiteral("YES"));
        QCOMPARE(rows("msgTeacherDetails"), 1);

        // Other teachers hold I-A's period 1 on three days: five uniform periods no longer fit.
        place(*m_store, 1, 1, 1, 1, 2, 2, "M");
        place(*m_store, 1, 1, 2, 1, 3, 3, "M");
        place(*m_store, 1, 1, 3, 1, 4, 4, "M");
        answer(QStringLiteral("YES"));
        QVERIFY(visible("fraValidity"));
        QVERIFY(!enabled("Frame3") && !enabled("Frame4"));
        FIND_OR_FAIL(validity, grid("msgValidity"));
        QCOMPARE(validity->item(0, 0)->text(), QStringLiteral("Teacher 1"));
        QCOMPARE(validity->item(0, 1)->text(), QStringLiteral("5"));
        QCOMPARE(validity->item(0, 1)->background().color(), QColor(255, 200, 200));
        QCOMPARE(validity->item(1, 1)->background().style(), Qt::NoBrush);
        click("cmdClose");
        QVERIFY(!visible("fraValidity"));
        QVERIFY(visible("lblExit"));
        QVERIFY(!enabled("Frame4"));
        // Only Esc leaves the screen now, through Exit: the screen holds the focus for it.
        QCOMPARE(m_form->focusWidget(), m_form);
        QTest::keyClick(m_form, Qt::Key_Escape);
        QVERIFY(!m_form->isVisible());
    }

    void editUpdatesAndDeleteClearsEverything()
    {
        click("cmdNew");
        answer(QStringLiteral("NO"));
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        click("cmdSave");
        click("cmdEdit");
        QVERIFY(!enabled("cmdEdit") && !enabled("cmdDelete") && !enabled("cmdProcess") && enabled("cmdSave"));
        QVERIFY(enabled("Frame3"));
        clickCell("msgTeacherDetails", 0, 0);
        choose("cboTeacher", QStringLiteral("Teacher 2"));
        m_messages.expectInformation(QStringLiteral("Record Updated"));
        click("cmdSave");
        QCOMPARE(m_store->count(QStringLiteral("AGP1TeacherDetails")), 1);

        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Record ?"), false);
        click("cmdDelete");
        QCOMPARE(m_store->count(QStringLiteral("AGP1Master")), 1);
        m_messages.expectQuestion(QStringLiteral("Do You Want To Delete This Record ?"), true);
        m_messages.expectInformation(QStringLiteral("Record Deleted"));
        click("cmdDelete");
        QCOMPARE(m_store->count(QStringLiteral("AGP1Master")), 0);
        QCOMPARE(m_store->count(QStringLiteral("ClasswiseNoOfWorkingDays")), 0);
        QVERIFY(!m_store->scalar(QStringLiteral("SELECT 1 FROM sqlite_master WHERE name = 'AGP1TeacherDetails'")).isValid());
        QVERIFY(enabled("cmdNew") && !enabled("cmdEdit"));
        QCOMPARE(rows("msgTeacherDetails"), 1);
    }

    void processPlacesTheSetTeachersAndLocksTheSettings()
    {
        allot(*m_store, 1, 1, 1, 1, 4);
        allot(*m_store, 2, 1, 1, 2, 3);
        click("cmdNew");
        answer(QStringLiteral("NO"));
        choose("cboTeacher", QStringLiteral("Teacher 1"));
        clickCell("msgTeacherDetails", 0, 6); // Teacher 1 stays free in period 6
        m_messages.expectInformation(QStringLiteral("Record Saved"));
        click("cmdSave");

        m_messages.expectQuestion(QStringLiteral("Working Periods In Few Classes Are Not Properly Filled\nYou Can See These Details "
                                                 "In ' Work Allotment Details Report' Or ' Work Allotment Non Tallied Classes "
                                                 "Report'\nWithout Filling These Periods You Can Proceed With 'Auto Generation "
                                                 "Phase I'\nDo You Want To Proceed ?"),
                                  true);
        m_messages.expectInformation(QStringLiteral("Auto Generation Phase I Completed"));
        click("cmdProcess");
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable WHERE TeacherCode = 1 AND Manual = '1'")).toInt(), 4);
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable WHERE PeriodCode = 6")).toInt(), 0);
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT COUNT(*) FROM TimeTable WHERE TeacherCode = 2")).toInt(), 0); // Phase II's
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT PIStatus FROM TTCode")).toString(), QStringLiteral("Y"));
        QVERIFY(!enabled("cmdProcess") && !enabled("cmdEdit") && !enabled("cmdDelete"));
        // The run's figures stay once its closing message is read: all 4 periods of the work list placed.
        FIND_OR_FAIL(progress, control<QProgressBar>("prgDisplay"));
        QCOMPARE(progress->value(), 4);
        QCOMPARE(progress->maximum(), 4);
        QCOMPARE(text("lblProgress"), QStringLiteral("100"));
        QCOMPARE(text("lblAchieved"), QStringLiteral("57.1")); // 4 of 7

        click("cmdTimeTablePercentage");
        QCOMPARE(text("lblAchieved"), QStringLiteral("57.1"));
    }

    void checkBeforeGenerationAndCompletionNeedPhaseOne()
    {
        m_messages.expectInformation(QStringLiteral("No Count Shows That The TimeTable Cannot Be Completed"));
        click("cmdCheckBeforeGeneration");
        allot(*m_store, 2, 1, 1, 2, 20);
        allot(*m_store, 3, 1, 1, 3, 10);
        m_messages.expectInformation(QStringLiteral("The TimeTable Cannot Be Completed For These Reasons :\n"
                                                    "Class I A Needs 30 Periods But Has Only 28 Periods On Its Working Days"));
        click("cmdCheckBeforeGeneration");
        m_messages.expectInformation(QStringLiteral("Without Performing Auto Generation Phase I Periods Cannot Be Completed"));
        click("cmdCompletePeriods");
    }

    void cancelStopsARunAndGivesTheScreenBack()
    {
        FIND_OR_FAIL(cancel, button("cmdCancelRun"));
        FIND_OR_FAIL(progress, control<QProgressBar>("prgDisplay"));
        FIND_OR_FAIL(percent, control<QLabel>("lblProgress"));
        FIND_OR_FAIL(achieved, control<QLabel>("lblAchieved"));
        QVERIFY(!cancel->isEnabled());
        RunProgress run(m_form, progress, percent, achieved, cancel);
        const GenerationSettings settings = run.start();
        QVERIFY(cancel->isEnabled() && !enabled("cmdExit"));
        QVERIFY(!settings.cancelRequested());
        QTimer::singleShot(0, cancel, &QPushButton::click);
        QTRY_VERIFY(settings.cancelRequested());
        run.finish();
        QVERIFY(!cancel->isEnabled() && enabled("cmdExit"));
    }
};

QTEST_MAIN(tst_frmAutoGenerationPhaseI)
#include "tst_frmautogenerationphasei.moc"
