#include "frmsubjectmaster.h"
#include "masterscreendriver.h"
#include "scriptedmessages.h"
#include "teststore.h"

#include <QTest>
#include <memory>

namespace {
const QString EditOrDelete = QStringLiteral("Do You Want To Edit/Delete ?");
}

class tst_frmSubjectMaster : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<TestStore> m_store;
    ScriptedMessages m_messages;

    QStringList subjects() const
    {
        QStringList rows;
        for (int code = 1; code <= m_store->scalar(QStringLiteral("SELECT MAX(SubjectCode) FROM SubjectMaster")).toInt();
             ++code)
            rows << m_store->scalar(QStringLiteral("SELECT SubjectName || '/' || SubjectShortName FROM SubjectMaster "
                                                   "WHERE SubjectCode = ?"), {code}).toString();
        return rows;
    }

private slots:
    void init()
    {
        m_store = std::make_unique<TestStore>();
        m_messages.reset();
        m_store->setMessages(m_messages);
        m_store->exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (1, 'English', 'ENG'), (2, 'Maths ', 'MAT')"));
    }

    void cleanup()
    {
        QVERIFY2(m_messages.done(), m_messages.report());
        m_store.reset();
    }

    void newSubjectChecks_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shortName");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");

        QTest::newRow("saved trimmed") << " Science " << " sc" << "Subject Name Saved" << "cmdNew";
        QTest::newRow("blank name") << "  " << "SC" << "Enter Subject Name" << "txtSubjectName";
        QTest::newRow("blank short name") << "Science" << " " << "Enter Subject Short Name" << "txtSubjectShort";
        QTest::newRow("name: case and blanks ignored") << " MATHS" << "MT" << "Subject Name Already Exists"
                                                       << "txtSubjectName";
        QTest::newRow("short name: case ignored") << "Maths II" << "mat" << "Subject Short Name Already Exists"
                                                  << "txtSubjectShort";
        QTest::newRow("both taken: the name is told first") << "english" << "Eng" << "Subject Name Already Exists"
                                                            << "txtSubjectName";
    }

    void newSubjectChecks()
    {
        QFETCH(QString, name);
        QFETCH(QString, shortName);
        QFETCH(QString, message);
        QFETCH(QString, focus);
        frmSubjectMaster screen(m_store->context());
        MasterScreenDriver driver(screen);

        driver.click(QStringLiteral("cmdNew"));
        driver.type(QStringLiteral("txtSubjectName"), name);
        driver.type(QStringLiteral("txtSubjectShort"), shortName);
        m_messages.expectInformation(message);
        driver.click(QStringLiteral("cmdSave"));
        QCOMPARE(driver.focused(), driver.control(focus));
        if (message == QLatin1String("Subject Name Saved")) {
            QCOMPARE(subjects(), (QStringList{"English/ENG", "Maths /MAT", "Science/sc"}));
            QCOMPARE(driver.column(0), (QStringList{"English", "Maths ", "Science"}));
        } else {
            QCOMPARE(m_store->count(QStringLiteral("SubjectMaster")), 3);
        }
    }

    // Phase I keeps its own copies of subject names: the subject-teacher check always, the subject settings
    // table only while those settings are saved.
    void renameCarriedIntoPhaseOneSettings_data()
    {
        QTest::addColumn<bool>("settingsSaved");
        QTest::newRow("without subject settings") << false;
        QTest::newRow("with subject settings") << true;
    }

    void renameCarriedIntoPhaseOneSettings()
    {
        QFETCH(bool, settingsSaved);
        m_store->exec(QStringLiteral("INSERT INTO AGP1SubjectTeacherDetails VALUES ('English', 'Anu', 5), "
                                     "('Maths', 'Anu', 3)"));
        if (settingsSaved) {
            m_store->exec(QStringLiteral("CREATE TABLE AGP1SubjectDetails (SubjectName TEXT, P1 TEXT, P2 TEXT, "
                                         "SubjectCode INTEGER, Counts TEXT, POLWDC TEXT)"));
            m_store->exec(QStringLiteral("INSERT INTO AGP1SubjectDetails VALUES ('English', 'Y', '', 1, '1', '0'), "
                                         "('Maths', '', 'Y', 2, '1', '0')"));
        }
        frmSubjectMaster screen(m_store->context());
        MasterScreenDriver driver(screen);

        m_messages.expectQuestion(EditOrDelete, true).expectInformation(QStringLiteral("Subject Name Updated"));
        driver.choose(QStringLiteral("English"));
        QCOMPARE(driver.text(QStringLiteral("txtSubjectShort")), QStringLiteral("ENG"));
        driver.click(QStringLiteral("cmdEdit"));
        driver.type(QStringLiteral("txtSubjectName"), QStringLiteral("English Literature"));
        driver.type(QStringLiteral("txtSubjectShort"), QStringLiteral("EL"));
        driver.click(QStringLiteral("cmdSave"));

        QCOMPARE(subjects(), (QStringList{"English Literature/EL", "Maths /MAT"}));
        QCOMPARE(m_store->scalar(QStringLiteral("SELECT group_concat(SubjectName, ',') FROM "
                                                "(SELECT SubjectName FROM AGP1SubjectTeacherDetails ORDER BY 1)")).toString(),
                 QStringLiteral("English Literature,Maths"));
        if (settingsSaved)
            QCOMPARE(m_store->scalar(QStringLiteral("SELECT group_concat(SubjectName, ',') FROM "
                                                    "(SELECT SubjectName FROM AGP1SubjectDetails ORDER BY SubjectCode)")).toString(),
                     QStringLiteral("English Literature,Maths"));
    }

    void searchAndDelete()
    {
        m_store->exec(QStringLiteral("INSERT INTO SubjectMaster VALUES (3, 'Children''s [Art]', 'ART')"));
        m_store->setUpSchool(5, 6, 6, 4);
        m_store->exec(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 1, 1)"));
        m_store->exec(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1)"));
        m_store->addTeacher({1, QStringLiteral("Anu"), QStringLiteral("AN")});
        m_store->exec(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (1, 1, 1, 2, 6, '', '', '', 0, 0, 0, '', '')"));
        frmSubjectMaster screen(m_store->context());
        MasterScreenDriver driver(screen);

        driver.type(QStringLiteral("txtSubjectNameSearch"), QStringLiteral("n's ["));
        QCOMPARE(driver.column(1), QStringList{"ART"});
        driver.type(QStringLiteral("txtSubjectNameSearch"), QStringLiteral("a"));
        QCOMPARE(driver.column(0), (QStringList{"Children's [Art]", "Maths "}));

        m_messages.expectQuestion(EditOrDelete, true)
            .expectQuestion(QStringLiteral("Do You Want To Delete This Subject Name ?"), true)
            .expectCritical(QStringLiteral("This Record Is Used In 'Work Allotment Entry'. So You Cannot Delete It"));
        driver.choose(QStringLiteral("Maths "));
        driver.click(QStringLiteral("cmdDelete"));
        QCOMPARE(m_store->count(QStringLiteral("SubjectMaster")), 4);

        // Delete asks the privilege before its question.
        m_store->exec(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (1, 'clerk', 'pw', 'N', 0)"));
        m_store->context().session.userCode = 1;
        m_messages.expectInformation(QStringLiteral("You Have No Privilege To Delete"));
        driver.click(QStringLiteral("cmdDelete"));
        m_store->exec(QStringLiteral("INSERT INTO UserPrivilegeDetails VALUES ('frmSubjectMaster', 'X', 1)"));

        m_messages.expectQuestion(EditOrDelete, true)
            .expectQuestion(QStringLiteral("Do You Want To Delete This Subject Name ?"), true)
            .expectInformation(QStringLiteral("Record Deleted"));
        driver.choose(QStringLiteral("Children's [Art]"));
        driver.click(QStringLiteral("cmdDelete"));
        QCOMPARE(driver.column(0), (QStringList{"English", "Maths "}));
        QVERIFY(!driver.enabled(QStringLiteral("cmdDelete")));
    }
};

QTEST_MAIN(tst_frmSubjectMaster)
#include "tst_frmsubjectmaster.moc"
