#include "scriptedmessages.h"
#include "screen.h"
#include "session.h"
#include "storeerror.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
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

    void escapeAsksForExit_data()
    {
        QTest::addColumn<QString>("focus");      // where Esc is pressed
        QTest::addColumn<int>("afterFirst");     // Exit presses after one Esc
        QTest::addColumn<int>("afterSecond");    // and after another
        QTest::newRow("a text box") << "field" << 1 << 2;
        QTest::newRow("a grid") << "grid" << 1 << 2;
        QTest::newRow("an open drop-down closes first") << "open list" << 0 << 1;
        QTest::newRow("a grid's own cell editor is cancelled first") << "cell editor" << 0 << 1;
        QTest::newRow("a box laid over a cell is left first") << "box on a cell" << 0 << 1;
        // Phase I locks its button row after a failed check, and then Esc is the way out.
        QTest::newRow("Exit in a locked frame") << "locked frame" << 1 << 2;
        QTest::newRow("Exit switched off, as during a run") << "exit off" << 0 << 0;
    }

    void escapeAsksForExit()
    {
        QFETCH(QString, focus);
        AppContext ctx;
        QWidget screen;
        auto *field = new QLineEdit(&screen);
        auto *list = new QComboBox(&screen);
        list->addItems({QStringLiteral("NO"), QStringLiteral("YES")});
        Screen::WidenDropDown(list); // as screens do: its list then exists before the conventions see it
        auto *grid = new QTableWidget(2, 2, &screen);
        grid->setItem(0, 0, new QTableWidgetItem(QStringLiteral("Rose")));
        auto *box = new QLineEdit(grid->viewport());
        auto *buttons = new QWidget(&screen);
        auto *exit = new QPushButton(QStringLiteral("E&xit"), buttons);
        exit->setObjectName(QStringLiteral("cmdExit"));
        (new QVBoxLayout(buttons))->addWidget(exit);
        auto *layout = new QVBoxLayout(&screen);
        for (QWidget *w : {static_cast<QWidget *>(field), static_cast<QWidget *>(list), static_cast<QWidget *>(grid), buttons})
            layout->addWidget(w);
        Screen::applyConventions(&screen, ctx, 6);
        QSignalSpy pressed(exit, &QPushButton::clicked);
        screen.show();
        QApplication::setActiveWindow(&screen);
        QVERIFY(QTest::qWaitForWindowActive(&screen));

        QWidget *target = field;
        if (focus == QLatin1String("grid") || focus == QLatin1String("cell editor")) {
            grid->setFocus();
            grid->setCurrentCell(0, 0);
            target = grid;
            if (focus == QLatin1String("cell editor")) {
                grid->editItem(grid->item(0, 0));
                QTRY_VERIFY(QApplication::focusWidget() != grid);
                QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Lily"));
                target = QApplication::focusWidget();
            }
        } else if (focus == QLatin1String("open list")) {
            list->setFocus();
            list->showPopup();
            QTRY_VERIFY(list->view()->isVisible());
            target = list->view();
        } else if (focus == QLatin1String("box on a cell")) {
            box->setFocus();
            target = box;
        } else if (focus == QLatin1String("locked frame")) {
            buttons->setEnabled(false);
        } else if (focus == QLatin1String("exit off")) {
            exit->setEnabled(false);
        }
        if (target == field)
            field->setFocus();

        QTest::keyClick(target, Qt::Key_Escape);
        QTEST(int(pressed.count()), "afterFirst");
        QVERIFY(!list->view()->isVisible());
        QCOMPARE(grid->item(0, 0)->text(), QStringLiteral("Rose")); // what the cell editor held is dropped
        if (focus == QLatin1String("cell editor") || focus == QLatin1String("box on a cell"))
            QTRY_VERIFY(grid->hasFocus());
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &screen, Qt::Key_Escape);
        QTEST(int(pressed.count()), "afterSecond");
    }

    // Enter on the screen's last control goes round to its first, never into the next window's controls.
    void enterStaysInTheScreen()
    {
        AppContext ctx;
        QMdiArea area;
        auto *other = new QWidget;
        (new QVBoxLayout(other))->addWidget(new QLineEdit(other));
        auto *screen = new QWidget;
        auto *save = new QPushButton(QStringLiteral("&Save"), screen);
        auto *name = new QLineEdit(screen);
        auto *layout = new QVBoxLayout(screen);
        layout->addWidget(save);
        layout->addWidget(name);
        Screen::applyConventions(screen, ctx, 3);
        area.addSubWindow(other)->show();
        QMdiSubWindow *window = area.addSubWindow(screen);
        window->show();
        area.show();
        QApplication::setActiveWindow(&area);
        QVERIFY(QTest::qWaitForWindowActive(&area));
        area.setActiveSubWindow(window);
        name->setFocus();
        QTRY_VERIFY(name->hasFocus());

        QTest::keyClick(name, Qt::Key_Return);
        QTRY_VERIFY(save->hasFocus());
        QCOMPARE(area.activeSubWindow(), window);
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

    // A failing step is said in one box, with the wait cursor put back; a step that fails each time the screen
    // comes forward is said once until it has run through again.
    void guardedSaysAStoreError()
    {
        ScriptedMessages messages;
        AppContext ctx;
        ctx.messages = &messages;
        const auto fail = [] { throw StoreError(QStringLiteral("disk I/O error")); };
        QApplication::setOverrideCursor(Qt::WaitCursor);
        messages.expectCritical(QStringLiteral("disk I/O error"));
        QVERIFY(!Screen::guarded(ctx, fail));
        QVERIFY(!QApplication::overrideCursor());
        QVERIFY(Screen::guarded(ctx, [] {}));

        bool failing = false;
        messages.expectCritical(QStringLiteral("disk I/O error"));
        QVERIFY(!Screen::guardedOnce(ctx, failing, fail));
        QVERIFY(!Screen::guardedOnce(ctx, failing, fail)); // no second box
        QVERIFY(Screen::guardedOnce(ctx, failing, [] {}));
        messages.expectCritical(QStringLiteral("disk I/O error"));
        QVERIFY(!Screen::guardedOnce(ctx, failing, fail));
        QVERIFY2(messages.done(), messages.report());
    }

    // Coming forward is its window's activation, or inside the main window its child window's.
    void comingForwardRunsTheStep()
    {
        QMdiArea area;
        auto *screen = new QWidget;
        int steps = 0;
        Screen::onComeForward(screen, [&steps] { ++steps; });
        QMdiSubWindow *own = area.addSubWindow(screen);
        QMdiSubWindow *other = area.addSubWindow(new QWidget);
        area.show();
        QVERIFY(QTest::qWaitForWindowExposed(&area));
        area.setActiveSubWindow(other);
        steps = 0;
        area.setActiveSubWindow(own);
        QCOMPARE(steps, 1);
        QEvent activate(QEvent::WindowActivate);
        QCoreApplication::sendEvent(screen, &activate);
        QCOMPARE(steps, 2);
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
