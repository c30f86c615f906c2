#include "../reports/sheetreader.h"
#include "findcontrol.h"
#include "frmpendingperiods.h"
#include "generationfixture.h"
#include "generationscreens.h"
#include "launcher.h"
#include "scriptedmessages.h"

#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <memory>

class tst_frmPendingPeriods : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<frmPendingPeriods> m_form;
    ScriptedMessages m_messages;
    RecordingLauncher m_launcher;

    template<typename T = QPushButton> T *control(const char *name) const
    {
        return findControl<T>(m_form.get(), name);
    }
    QString label(const char *name) const
    {
        FIND_OR_FAIL(label, control<QLabel>(name), QString());
        return label->text();
    }
    QStringList row(int r) const
    {
        FIND_OR_FAIL(grid, control<QTableWidget>("msgDetails"), QStringList());
        QStringList cells;
        for (int c = 0; c < grid->columnCount(); ++c)
            cells << (grid->item(r, c) ? grid->item(r, c)->text() : QString());
        return cells;
    }
    QString reason() const
    {
        FIND_OR_FAIL(reason, control<QPlainTextEdit>("txtReason"), QString());
        return reason->toPlainText();
    }
    void click(const char *name)
    {
        FIND_OR_FAIL(button, control(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void comeForward()
    {
        QEvent activate(QEvent::WindowActivate);
        QCoreApplication::sendEvent(m_form.get(), &activate);
    }
    void writePhaseTwoBalance()
    {
        GenerationEngine engine(m_store->db(), ProgramRandom());
        engine.refreshPhaseTwoBalance();
    }

private slots:
    // Two open allotments in class I A, one placed whole in class II A; FreePeriodDetails is left empty,
    // so no teacher takes a generated period.
    void init()
    {
        m_store = std::make_unique<TestStore>();
        m_messages.reset();
        m_launcher = RecordingLauncher();
        Launcher::setDefault(&m_launcher);
        m_store->setMessages(m_messages);
        buildGenerationSchool(*m_store);
        allot(*m_store, 1, 1, 1, 1, 3);
        allot(*m_store, 2, 1, 1, 2, 2);
        allot(*m_store, 3, 2, 1, 3, 1);
        place(*m_store, 1, 1, 1, 1, 1, 1, "M");
        place(*m_store, 2, 1, 1, 3, 3, 3, "M");
        writePhaseTwoBalance();
        SetPendingView(PendingView::PhaseTwo);
        m_form = std::make_unique<frmPendingPeriods>(m_store->context());
        m_form->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_form.get()));
    }

    void cleanup()
    {
        QVERIFY2(m_messages.done(), m_messages.report());
        m_form.reset();
        m_store.reset();
        Launcher::setDefault(nullptr);
    }

    void listsTheBalanceAndWhy()
    {
        FIND_OR_FAIL(details, control<QTableWidget>("msgDetails"));
        FIND_OR_FAIL(exportButton, control("cmdExport"));
        QCOMPARE(m_form->windowTitle(), QStringLiteral("Pending Periods Yet To Be Allotted"));
        QCOMPARE(exportButton->toolTip(), QStringLiteral("Export To EXCEL"));
        QCOMPARE(details->rowCount(), 2);
        QCOMPARE(row(0), (QStringList{"1", "I", "A", "Teacher 1", "Subject 1", "2"}));
        QCOMPARE(row(1), (QStringList{"2", "I", "A", "Teacher 2", "Subject 2", "2"}));
        QCOMPARE(label("lblTotal"), QStringLiteral("4"));
        QCOMPARE(label("lblTotalPeriods"), QStringLiteral("6"));
        QCOMPARE(label("lblFilledPeriods"), QStringLiteral("2"));
        QCOMPARE(label("lblNotFilledPeriods"), QStringLiteral("4"));

        // Without a free-period type the generator refuses every period of the teacher.
        const QString refused = QStringLiteral("The Teacher's Free Period Type Refuses Every Period : ");
        QVERIFY2(reason().contains(refused + QStringLiteral("27")), qPrintable(reason()));
        details->selectRow(1);
        QVERIFY(reason().startsWith(QStringLiteral("27 Periods Are Free For Both The Class And The Teacher")));

        // Coming forward lists afresh, for the view its opener chose, and keeps the selected line.
        place(*m_store, 1, 1, 2, 1, 2, 2, "M");
        writePhaseTwoBalance();
        comeForward();
        QCOMPARE(row(1).last(), QStringLiteral("1"));
        QCOMPARE(label("lblNotFilledPeriods"), QStringLiteral("3"));
        QCOMPARE(details->currentRow(), 1);
        QVERIFY2(reason().startsWith(QStringLiteral("26 Periods")), qPrintable(reason()));

        SetPendingView(PendingView::PhaseOne); // AutoGenPhase1 was never built
        comeForward();
        QCOMPARE(details->rowCount(), 0);
        QCOMPARE(label("lblTotal"), QStringLiteral("0"));
        QCOMPARE(reason(), QString());
        QTest::mouseClick(exportButton, Qt::LeftButton); // nothing pending: nothing to export
        QVERIFY(m_launcher.documents.isEmpty());
    }

    void exportWritesTheGrid()
    {
        click("cmdExport");
        QCOMPARE(m_launcher.documents.size(), 1);
        const SheetXml sheet = SheetXml::read(m_launcher.documents.first());
        QVERIFY2(sheet.error.isEmpty(), qPrintable(sheet.error));
        QCOMPARE(sheet.text(QStringLiteral("A4")), QStringLiteral("Pending Periods"));
        QCOMPARE(sheet.text(QStringLiteral("A6")), QStringLiteral("Sl.No."));
        QCOMPARE(sheet.text(QStringLiteral("D8")), QStringLiteral("Teacher 2"));
        QCOMPARE(sheet.text(QStringLiteral("F8")), QStringLiteral("2"));

        // No spreadsheet program: the sheet is still written, and the user hears where.
        m_launcher.succeed = false;
        const QString second = QFileInfo(m_launcher.documents.first()).absolutePath() + QStringLiteral("/Pending Periods 2.xlsx");
        m_messages.expectQuestion(QStringList{QStringLiteral("The Report Is Saved In"), QDir::toNativeSeparators(second),
                                              QStringLiteral("But No Spreadsheet Program Could Be Started To Show It."),
                                              QStringLiteral("The Folder Is Emptied When 'Zarlo-TimeTable' Closes, So Copy The File To Keep It."),
                                              QStringLiteral("Do You Want To Open Its Folder ?")}
                                      .join(QLatin1Char('\n')),
                                  false);
        click("cmdExport");
        QVERIFY(QFile::exists(second));
    }

    // The pending window never asks before it closes, whatever the options say.
    void exitDoesNotAsk()
    {
        m_store->context().session.confirmExit = true;
        click("cmdExit");
        QVERIFY(!m_form->isVisible());
    }
};

QTEST_MAIN(tst_frmPendingPeriods)
#include "tst_frmpendingperiods.moc"
