#pragma once
#include "generationengine.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>

class QLabel;
class QProgressBar;
class QPushButton;
class QWidget;

// Shows a generation run on a screen's progress bar and labels while the engine works on the GUI thread.
// The window keeps answering: events are processed a few times a second, every other control of the screen
// is off, the window cannot be closed, and the run's Cancel button asks the engine to stop after the row
// it is placing.
class RunProgress : public QObject
{
    Q_OBJECT
public:
    RunProgress(QWidget *screen, QProgressBar *bar, QLabel *lblProgress, QLabel *lblAchieved, QPushButton *cmdCancelRun);

    // The settings for one press; the screen's controls stay off until finish().
    GenerationSettings start();
    // The controls as they were before start(). The bar and the labels keep the last figures shown, for the
    // user to read after the run's closing messages, until the next run places its first row.
    void finish();
    bool running() const { return m_running; }

    // The label shows the stored "Total Achieved"; it keeps its text when nothing is allotted or placed.
    static void showTotalAchieved(QLabel *label, double value);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void show(const GenerationSettings::Progress &progress);
    void processEventsWhenDue();

    QWidget *m_screen;
    QProgressBar *m_bar;
    QLabel *m_lblProgress;
    QLabel *m_lblAchieved;
    QPushButton *m_cmdCancelRun;
    bool m_running = false;
    bool m_cancelRequested = false;
    QElapsedTimer m_sinceEvents;
    QList<QPointer<QWidget>> m_disabled; // the controls start() switched off
};
