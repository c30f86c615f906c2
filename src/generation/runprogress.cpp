#include "runprogress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {
// Often enough for a smooth bar and a prompt Cancel, rarely enough to cost the run nothing.
constexpr int EventsEveryMs = 40;

QString oneDecimal(double value)
{
    QString text = QString::number(value, 'f', 1);
    if (text.endsWith(QLatin1String(".0")))
        text.chop(2);
    return text;
}
}

RunProgress::RunProgress(QWidget *screen, QProgressBar *bar, QLabel *lblProgress, QLabel *lblAchieved,
                         QPushButton *cmdCancelRun)
    : QObject(screen), m_screen(screen), m_bar(bar), m_lblProgress(lblProgress), m_lblAchieved(lblAchieved),
      m_cmdCancelRun(cmdCancelRun)
{
    m_cmdCancelRun->setEnabled(false);
    connect(m_cmdCancelRun, &QPushButton::clicked, this, [this] {
        m_cancelRequested = true;
        m_cmdCancelRun->setEnabled(false);
    });
}

void RunProgress::showTotalAchieved(QLabel *label, double value)
{
    if (value >= 0)
        label->setText(oneDecimal(value));
}

GenerationSettings RunProgress::start()
{
    m_running = true;
    m_cancelRequested = false;
    m_disabled.clear();
    for (QWidget *control : m_screen->findChildren<QWidget *>()) {
        if (control == m_cmdCancelRun || !control->isEnabled() || control->isWindow())
            continue;
        if (qobject_cast<QPushButton *>(control) || control->inherits("QAbstractItemView") || control->inherits("QComboBox")) {
            control->setEnabled(false);
            m_disabled.append(control);
        }
    }
    m_cmdCancelRun->setEnabled(true);
    // The child window around the screen receives the close request.
    QWidget *window = m_screen->parentWidget() ? m_screen->parentWidget() : m_screen;
    window->installEventFilter(this);
    m_screen->installEventFilter(this);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_sinceEvents.start();

    GenerationSettings settings;
    settings.progress = [this](const GenerationSettings::Progress &progress) { show(progress); };
    settings.cancelRequested = [this] {
        processEventsWhenDue();
        return m_cancelRequested;
    };
    return settings;
}

// The figures are set at every placed row and drawn when events are next processed. The engine asks for
// Cancel far more often than it places a row: had the figures waited for their own turn at the events, the
// bar of a run with many attempts per row would hardly ever move.
void RunProgress::show(const GenerationSettings::Progress &progress)
{
    m_bar->setMaximum(progress.maximum);
    m_bar->setValue(qMin(progress.value, progress.maximum));
    m_lblProgress->setText(oneDecimal(progress.percent));
    showTotalAchieved(m_lblAchieved, progress.totalAchieved);
    processEventsWhenDue();
}

void RunProgress::processEventsWhenDue()
{
    if (m_sinceEvents.elapsed() < EventsEveryMs)
        return;
    QApplication::processEvents();
    m_sinceEvents.restart();
}

void RunProgress::finish()
{
    QApplication::restoreOverrideCursor();
    QWidget *window = m_screen->parentWidget() ? m_screen->parentWidget() : m_screen;
    window->removeEventFilter(this);
    m_screen->removeEventFilter(this);
    for (const QPointer<QWidget> &control : std::as_const(m_disabled))
        if (control)
            control->setEnabled(true);
    m_disabled.clear();
    m_cmdCancelRun->setEnabled(false);
    m_running = false;
}

bool RunProgress::eventFilter(QObject *watched, QEvent *event)
{
    // A run ends by itself or by Cancel, never by closing the window under it.
    if (m_running && event->type() == QEvent::Close) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}
