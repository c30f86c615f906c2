#include "excelexport.h"
#include "findcontrol.h"
#include "frmrptteachertt.h"
#include "launcher.h"
#include "reportschool.h"
#include "scriptedmessages.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <memory>

class tst_frmrptTeacherTT : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<frmrptTeacherTT> m_form;
    ScriptedMessages m_messages;
    RecordingLauncher m_launcher;

    template<typename T = QPushButton> T *control(const char *name) const
    {
        return findControl<T>(m_form.get(), name);
    }
    void click(const char *name)
    {
        FIND_OR_FAIL(button, control(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    bool enabled(const char *name) const
    {
        FIND_OR_FAIL(button, control(name), false);
        return button->isEnabled();
    }
    void chooseTeacher(int code)
    {
        FIND_OR_FAIL(combo, control<QComboBox>("cboTeacher"));
        combo->setCurrentIndex(combo->findData(code));
    }
    QString cell(int row, int column) const
    {
        FIND_OR_FAIL(grid, control<QTableView>("msgTeacher"), QString());
        return grid->model()->index(row, column).data().toString();
    }
    void openForm()
    {
        m_form = std::make_unique<frmrptTeacherTT>(m_store->context());
        m_form->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_form.get()));
    }

private slots:
    void init()
    {
        m_store = std::make_unique<TestStore>();
        m_messages.reset();
        m_launcher = RecordingLauncher();
        Launcher::setDefault(&m_launcher);
        m_store->setMessages(m_messages);
        buildReportSchool(*m_store);
        openForm();
    }

    void cleanup()
    {
        QVERIFY2(m_messages.done(), m_messages.report());
        m_form.reset();
        m_store.reset();
        Launcher::setDefault(nullptr);
    }

    void choosingATeacherFillsTheWeek()
    {
        QCOMPARE(m_form->windowTitle(), QStringLiteral("Teacher Time Table"));
        FIND_OR_FAIL(combo, control<QComboBox>("cboTeacher"));
        FIND_OR_FAIL(print, control("cmdPrint"));
        FIND_OR_FAIL(exportButton, control("cmdExport"));
        FIND_OR_FAIL(grid, control<QTableView>("msgTeacher"));
        QCOMPARE(combo->count(), 3);
        QCOMPARE(combo->itemText(1), QStringLiteral("Anita Rao"));
        QCOMPARE(combo->itemData(0).toInt(), 0);
        QCOMPARE(print->toolTip(), QStringLiteral("View In NOTEPAD Editor"));
        QCOMPARE(exportButton->toolTip(), QStringLiteral("Export To EXCEL"));
        QCOMPARE(grid->model()->rowCount(), 5);
        QVERIFY(grid->isColumnHidden(5));
        QVERIFY(!enabled("cmdExport"));

        chooseTeacher(1);
        QCOMPARE(cell(0, 1), QStringLiteral("   XA   MA "));
        QCOMPARE(cell(4, 2), QStringLiteral("  'NC   MA "));
        QVERIFY(enabled("cmdExport"));

        chooseTeacher(2); // no periods: nothing to export
        QCOMPARE(cell(0, 1), QString());
        QVERIFY(!enabled("cmdExport"));

        chooseTeacher(1);
        click("cmdCancel");
        QCOMPARE(combo->currentData().toInt(), 0);
        QCOMPARE(cell(0, 1), QString());
        QVERIFY(!enabled("cmdExport"));
        QVERIFY(enabled("cmdPrint"));
    }

    void printWritesAndOpensTheFile()
    {
        chooseTeacher(1);
        click("cmdPrint");
        const QString path = m_store->folder() + QStringLiteral("/Anita Rao.txt");
        QCOMPARE(m_launcher.textFiles, QStringList{path});
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
        const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        QCOMPARE(lines.at(4), QStringLiteral("ANITA RAO"));
        QCOMPARE(lines.at(9), QStringLiteral("|Monday      |  XA   |       |       | XIISC |"));

        // With no teacher chosen there is nothing to print, and no file named by the blank entry.
        chooseTeacher(0);
        FIND_OR_FAIL(exitButton, control("cmdExit"));
        exitButton->setFocus();
        m_messages.expectInformation(QStringLiteral("Select Teacher Name"));
        click("cmdPrint");
        QCOMPARE(m_launcher.textFiles.size(), 1);
        QCOMPARE(m_form->focusWidget(), control<QComboBox>("cboTeacher"));
        QCOMPARE(QDir(m_store->folder()).entryList({QStringLiteral("*.txt")}), QStringList{"Anita Rao.txt"});
    }

    // A report written on a machine with no program to show it says where the file is, and may open its folder.
    void fileWrittenButNotShown_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("openFolder");
        QTest::newRow("print, folder opened") << "cmdPrint" << true;
        QTest::newRow("print, folder not wanted") << "cmdPrint" << false;
        QTest::newRow("export, folder opened") << "cmdExport" << true;
    }

    void fileWrittenButNotShown()
    {
        QFETCH(QString, button);
        QFETCH(bool, openFolder);
        chooseTeacher(1);
        m_launcher.succeed = false;
        const bool print = button == QLatin1String("cmdPrint");
        const QString folder = print ? m_store->folder() : m_store->context().tempFolder;
        const QString path = folder + (print ? QStringLiteral("/Anita Rao.txt") : QStringLiteral("/TEACHER TIME TABLE 1.xlsx"));
        QStringList question = {QStringLiteral("The Report Is Saved In"), QDir::toNativeSeparators(path)};
        if (print) {
            question << QStringLiteral("But No Text Editor Could Be Started To Show It.");
        } else {
            question << QStringLiteral("But No Spreadsheet Program Could Be Started To Show It.")
                     << QStringLiteral("The Folder Is Emptied When 'Zarlo-TimeTable' Closes, So Copy The File To Keep It.");
        }
        question << QStringLiteral("Do You Want To Open Its Folder ?");
        m_messages.expectQuestion(question.join(QLatin1Char('\n')), openFolder);
        click(qPrintable(button));
        QVERIFY(QFile::exists(path));
        QCOMPARE(m_launcher.folders, openFolder ? QStringList{QDir(folder).absolutePath()} : QStringList());
    }

    void printFailures()
    {
        m_store->exec(QStringLiteral("UPDATE PeriodDuration SET PeriodName = 'Recess Time' WHERE PeriodCode = 3"));
        m_store->exec(QStringLiteral("UPDATE TeacherMaster SET TeacherName = 'Anita/Rao' WHERE TeacherCode = 1"));
        openForm();
        // An 11-letter period name fits the grid on screen, but not a column of the text file.
        FIND_OR_FAIL(grid, control<QTableView>("msgTeacher"));
        QCOMPARE(grid->model()->headerData(3, Qt::Horizontal).toString(),
                 QStringLiteral("Recess Time"));
        chooseTeacher(2);
        m_messages.expectCritical();
        click("cmdPrint");
        QVERIFY(m_messages.shown().last().text.contains(QStringLiteral("Recess Time")));

        m_store->exec(QStringLiteral("UPDATE PeriodDuration SET PeriodName = 'P3' WHERE PeriodCode = 3"));
        openForm();
        chooseTeacher(1);
        m_messages.expectCritical();
        click("cmdPrint"); // a name that cannot be a file name
        QVERIFY(m_messages.shown().last().text.contains(QStringLiteral("Anita/Rao.txt")));
        QVERIFY(m_launcher.textFiles.isEmpty());
    }

    void exportOpensTheSheet()
    {
        chooseTeacher(1);
        click("cmdExport");
        QCOMPARE(m_launcher.documents.size(), 1);
        QVERIFY(m_launcher.documents.first().startsWith(m_store->context().tempFolder));
        QVERIFY(QFile::exists(m_launcher.documents.first()));

        // No sheet at all: the one message of every export.
        m_store->context().tempFolder = m_launcher.documents.first(); // a file where the folder should be
        m_messages.expectCritical(exportFailedText());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^Export failed")));
        click("cmdExport");
        QCOMPARE(m_launcher.documents.size(), 1); // nothing written, nothing launched
    }
};

QTEST_MAIN(tst_frmrptTeacherTT)
#include "tst_frmrptteachertt.moc"
