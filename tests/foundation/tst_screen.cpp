#include "scriptedmessages.h"
#include "screen.h"
#include "session.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

class tst_Screen : public QObject
{
    Q_OBJECT

private slots:
    void enterMovesOnAndPushesButtons()
    {
        AppContext ctx;
        QWidget screen;
        auto *first = new QLineEdit(&screen);
        auto *digits = new QLineEdit(&screen);
        auto *save = new QPushButton(QStringLiteral("&Save"), &screen);
        auto *layout = new QVBoxLayout(&screen);
        layout->addWidget(first);
        layout->addWidget(digits);
        layout->addWidget(save);
        Screen::DigitsOnly(digits, 2);
        Screen::applyConventions(&screen, ctx, 6);
        screen.show();
        QApplication::setActiveWindow(&screen);
        QVERIFY(QTest::qWaitForWindowActive(&screen));

        first->setFocus();
        QTest::keyClicks(first, QStringLiteral("Rose"));
        QTest::keyClick(first, Qt::Key_Return);
        QTRY_VERIFY(digits->hasFocus());
        // Only digits come in, and no more than the field's limit.
        QTest::keyClicks(digits, QStringLiteral("4a-72"));
        QCOMPARE(digits->text(), QStringLiteral("47"));
        QTest::keyClick(digits, Qt::Key_Enter);
        QTRY_VERIFY(save->hasFocus());
        QSignalSpy pushed(save, &QPushButton::clicked);
        QTest::keyClick(save, Qt::Key_Return);
        QCOMPARE(pushed.count(), 1);

        // A field that takes focus has its text selected.
        first->setFocus();
        QTRY_COMPARE(first->selectedText(), QStringLiteral("Rose"));
    }

    void clearControls()
    {
        QWidget screen;
        auto *name = new QLineEdit(QStringLiteral("Rose"), &screen);
        auto *box = new QCheckBox(&screen);
        box->setChecked(true);
        auto *list = new QComboBox(&screen);
        list->addItem(QStringLiteral(" "), 0);
        list->addItem(QStringLiteral("Kerala"), 1);
        list->setCurrentIndex(1);
        auto *grid = new QTableWidget(5, 3, &screen);
        grid->setItem(2, 1, new QTableWidgetItem(QStringLiteral("x")));
        Screen::ClearControls(&screen);
        QVERIFY(name->text().isEmpty());
        QVERIFY(!box->isChecked());
        QCOMPARE(list->currentData().toInt(), 0);
        QCOMPARE(grid->rowCount(), 1);
        QCOMPARE(grid->columnCount(), 3);
    }

    void confirmExit()
    {
        ScriptedMessages messages;
        AppContext ctx;
        ctx.messages = &messages;
        QVERIFY(Screen::ConfirmExit(ctx, QStringLiteral("State Master"))); // options off: never asks
        ctx.session.confirmExit = true;
        QVERIFY(Screen::ConfirmExit(ctx, QStringLiteral("Pending Periods Yet To Be Allotted")));
        messages.expectQuestion(QStringLiteral("Do You Want To Exit State Master ?"), false);
        QVERIFY(!Screen::ConfirmExit(ctx, QStringLiteral("State Master")));
        QCOMPARE(messages.shown().last().title, QStringLiteral("State Master"));
        QVERIFY2(messages.done(), messages.report());
    }

    void entryButtonStates_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("expected"); // frame, New, Edit, Delete, Save as 0/1
        QTest::newRow("idle") << int(Screen::EntryState::Idle) << "01000";
        QTest::newRow("a row chosen") << int(Screen::EntryState::Chosen) << "01110";
        QTest::newRow("New pressed") << int(Screen::EntryState::New) << "10001";
        QTest::newRow("Edit pressed") << int(Screen::EntryState::Edit) << "10001";
    }

    void entryButtonStates()
    {
        QFETCH(int, state);
        QFETCH(QString, expected);
        QWidget screen;
        Screen::EntryButtons buttons{new QWidget(&screen), new QPushButton(&screen), new QPushButton(&screen),
                                     new QPushButton(&screen), new QPushButton(&screen)};
        buttons.setState(Screen::EntryState(state));
        QString actual;
        for (QWidget *w : {buttons.frame, static_cast<QWidget *>(buttons.cmdNew), static_cast<QWidget *>(buttons.cmdEdit),
                           static_cast<QWidget *>(buttons.cmdDelete), static_cast<QWidget *>(buttons.cmdSave)})
            actual += w->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
        QCOMPARE(actual, expected);
    }
};

QTEST_MAIN(tst_Screen)
#include "tst_screen.moc"
