#include "screen.h"
#include "messageservice.h"
#include "session.h"
#include "storeerror.h"

#include <QAbstractButton>
#include <QApplication>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QShortcut>
#include <QTableWidget>
#include <QTextEdit>
#include <QTimer>

namespace {

// Moves focus to the next control of the screen that takes Tab. Past the screen's last control it goes round
// to its first: the window's focus chain runs on into the other child windows, and focus landing there
// would bring another screen to the front.
void moveFocusOn(QWidget *widget, const QWidget *screen)
{
    QWidget *next = widget->nextInFocusChain();
    while (next && next != widget
           && (!screen->isAncestorOf(next) || !(next->focusPolicy() & Qt::TabFocus) || !next->isEnabled()
               || !next->isVisible()))
        next = next->nextInFocusChain();
    if (next && next != widget)
        next->setFocus(Qt::TabFocusReason);
}

// The grid whose cell a control edits: the control, or the list box it belongs to, lies on the grid's viewport.
QAbstractItemView *cellEditorGrid(QWidget *control)
{
    for (QWidget *w = control; w && !w->isWindow(); w = w->parentWidget()) {
        QWidget *parent = w->parentWidget();
        auto *grid = parent ? qobject_cast<QAbstractItemView *>(parent->parentWidget()) : nullptr;
        if (grid && grid->viewport() == parent)
            return grid;
    }
    return nullptr;
}

// Enter as Tab, Esc as Exit, and select-all on focus, for every control of one screen.
class ConventionFilter : public QObject
{
public:
    ConventionFilter(QWidget *screen, QAbstractButton *exit) : QObject(screen), m_screen(screen), m_exit(exit) {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn) {
            // Not when the window comes back (after a message box, say): a key typed then would replace
            // the whole text.
            const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
            if (auto *field = qobject_cast<QLineEdit *>(watched);
                field && reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
                QTimer::singleShot(0, field, &QLineEdit::selectAll);
            return false;
        }
        auto *widget = qobject_cast<QWidget *>(watched);
        if (!widget || event->type() != QEvent::KeyPress)
            return false;
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Escape)
            return escape(widget);
        if (widget == m_screen)
            return false; // the screen itself hears Esc only
        if ((key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) || key->modifiers() & Qt::ShiftModifier)
            return false;
        if (qobject_cast<QTextEdit *>(widget) || qobject_cast<QPlainTextEdit *>(widget))
            return false;
        if (auto *button = qobject_cast<QAbstractButton *>(widget)) {
            if (qobject_cast<QCheckBox *>(widget))
                moveFocusOn(widget, m_screen);
            else
                button->click();
            return true;
        }
        if (qobject_cast<QAbstractItemView *>(widget))
            return false; // grids give Enter to their own editing
        if (auto *combo = qobject_cast<QComboBox *>(widget); combo && combo->view()->isVisible())
            return false;
        if (auto *field = qobject_cast<QLineEdit *>(widget))
            emit field->editingFinished();
        moveFocusOn(widget, m_screen);
        return true;
    }

private:
    // Esc asks for Exit through the Exit button's own handler, so that it asks and closes as the button does.
    // The first Esc in an open drop-down or a cell editor is theirs: the list closes, the editor is left for
    // its grid (a screen that knows what to put back in its editors takes the key before this).
    bool escape(QWidget *widget) const
    {
        if (widget->window()->windowType() == Qt::Popup)
            return false;
        if (QAbstractItemView *grid = cellEditorGrid(widget)) {
            grid->setFocus(Qt::OtherFocusReason);
            return true;
        }
        if (!m_exit)
            return false; // a dialog keeps its own Esc
        // A screen that locks its whole button row (Phase I after a failed check) is still left by Esc; an
        // Exit switched off itself, as during a generation run, is not pressed.
        if (m_exit->isEnabledTo(m_exit->parentWidget()))
            emit m_exit->clicked();
        return true;
    }

    QWidget *m_screen;
    QAbstractButton *m_exit;
};

// Runs a screen's step when it comes forward: on WindowActivate, and on the activation of the child window the
// screen sits in (hooked when the screen is put in that window or shown there).
class ComeForwardFilter : public QObject
{
public:
    ComeForwardFilter(QWidget *screen, const std::function<void()> &step)
        : QObject(screen), m_screen(screen), m_step(step)
    {
        screen->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched != m_screen)
            return false;
        if (event->type() == QEvent::WindowActivate) {
            m_step();
        } else if (event->type() == QEvent::ParentChange || event->type() == QEvent::Show) {
            auto *frame = qobject_cast<QMdiSubWindow *>(m_screen->parentWidget());
            if (frame && frame != m_frame) {
                m_frame = frame;
                connect(frame, &QMdiSubWindow::aboutToActivate, this, [this] { m_step(); });
            }
        }
        return false;
    }

private:
    QWidget *m_screen;
    std::function<void()> m_step;
    QPointer<QMdiSubWindow> m_frame;
};

// The field's caption, from the label that names it, without its accelerator and colon.
QString captionOf(const QWidget *screen, const QWidget *field)
{
    const QList<QLabel *> labels = screen->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->buddy() == field) {
            QString caption = label->text().remove(QLatin1Char('&'));
            while (caption.endsWith(QLatin1Char(':')) || caption.endsWith(QLatin1Char(' ')))
                caption.chop(1);
            return caption.trimmed();
        }
    }
    return {};
}

// A field that refuses a key, or cuts a pasted text, at its limit says so: a name cut short without a word
// is only found when it is printed.
void sayWhenFull(QWidget *screen, QLineEdit *field, AppContext &ctx)
{
    constexpr int NoLimit = 32767; // QLineEdit's own default
    if (field->maxLength() >= NoLimit)
        return;
    QObject::connect(field, &QLineEdit::inputRejected, screen, [screen, field, &ctx] {
        if (!ctx.messages || field->text().size() < field->maxLength())
            return; // a key refused for another reason, such as a letter in a number
        const QString caption = captionOf(screen, field);
        ctx.messages->information((caption.isEmpty() ? QStringLiteral("This Field") : caption)
                                  + QStringLiteral(" Can Have At Most %1 Characters").arg(field->maxLength()));
    });
}

}

namespace Screen {

void applyConventions(QWidget *screen, AppContext &ctx, int helpScreenNo)
{
    auto *filter = new ConventionFilter(screen, screen->findChild<QAbstractButton *>(QStringLiteral("cmdExit")));
    const QList<QWidget *> controls = screen->findChildren<QWidget *>();
    for (QWidget *control : controls) {
        control->installEventFilter(filter);
        if (auto *field = qobject_cast<QLineEdit *>(control))
            sayWhenFull(screen, field, ctx);
    }
    // Esc also reaches the screen from a control made later, or when no control can hold the focus.
    screen->installEventFilter(filter);
    auto *help = new QShortcut(QKeySequence(Qt::Key_F1), screen);
    help->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(help, &QShortcut::activated, screen, [&ctx, helpScreenNo] {
        ctx.session.helpScreenNo = helpScreenNo;
        if (ctx.host)
            ctx.host->openScreen(QStringLiteral("frmHelp"));
    });
}

bool guarded(AppContext &ctx, const std::function<void()> &step)
{
    bool failing = false;
    return guardedOnce(ctx, failing, step);
}

bool guardedOnce(AppContext &ctx, bool &failing, const std::function<void()> &step)
{
    try {
        step();
        failing = false;
        return true;
    } catch (const StoreError &error) {
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
        if (!failing)
            ctx.messages->critical(error.text());
        failing = true;
        return false;
    }
}

void onComeForward(QWidget *screen, const std::function<void()> &step)
{
    new ComeForwardFilter(screen, step);
}

QPushButton *button(QWidget *screen, const char *name, const QString &caption)
{
    auto *push = new QPushButton(caption, screen);
    push->setObjectName(QLatin1String(name));
    return push;
}

void DigitsOnly(QLineEdit *field, int maxLength)
{
    static const QRegularExpression digits(QStringLiteral("[0-9]*"));
    field->setValidator(new QRegularExpressionValidator(digits, field));
    if (maxLength > 0)
        field->setMaxLength(maxLength);
}

void ClearControls(QWidget *screen)
{
    for (QLineEdit *field : screen->findChildren<QLineEdit *>()) {
        if (!qobject_cast<QComboBox *>(field->parentWidget()))
            field->clear();
    }
    for (QComboBox *combo : screen->findChildren<QComboBox *>()) {
        if (combo->isEditable())
            combo->setEditText(QStringLiteral(" "));
        combo->setCurrentIndex(combo->findData(0) >= 0 ? combo->findData(0) : -1);
    }
    for (QListWidget *list : screen->findChildren<QListWidget *>())
        list->clearSelection();
    // A grid keeps its heading and one empty row.
    for (QTableWidget *grid : screen->findChildren<QTableWidget *>()) {
        grid->clearContents();
        grid->setRowCount(1);
    }
    for (QDateEdit *date : screen->findChildren<QDateEdit *>())
        date->setDate(QDate::currentDate());
    for (QCheckBox *box : screen->findChildren<QCheckBox *>())
        box->setChecked(false);
    for (QTextEdit *text : screen->findChildren<QTextEdit *>())
        text->clear();
}

bool ConfirmExit(AppContext &ctx, const QString &title)
{
    if (!ctx.session.confirmExit || title == QStringLiteral("Pending Periods Yet To Be Allotted"))
        return true;
    return ctx.messages->question(QStringLiteral("Do You Want To Exit ") + title + QStringLiteral(" ?"), title);
}

void closeScreen(QWidget *screen)
{
    screen->setProperty("ttExitConfirmed", true);
    if (auto *window = qobject_cast<QMdiSubWindow *>(screen->parentWidget()))
        window->close();
    else
        screen->close();
}

void CentreForm(QWidget *form, const QWidget *mainWindow)
{
    if (!mainWindow)
        return;
    const QRect area = mainWindow->geometry();
    QRect frame = form->frameGeometry();
    frame.moveCenter(area.center());
    form->move(frame.topLeft());
}

void WidenDropDown(QComboBox *combo)
{
    const QFontMetrics metrics(combo->font());
    int widest = combo->width();
    for (int i = 0; i < combo->count(); ++i)
        widest = qMax(widest, metrics.horizontalAdvance(combo->itemText(i)) + 20);
    combo->view()->setMinimumWidth(widest);
}

void EntryButtons::setState(EntryState state) const
{
    const bool editing = state == EntryState::New || state == EntryState::Edit;
    if (frame)
        frame->setEnabled(editing);
    cmdNew->setEnabled(!editing);
    cmdEdit->setEnabled(state == EntryState::Chosen);
    if (cmdDelete)
        cmdDelete->setEnabled(state == EntryState::Chosen);
    cmdSave->setEnabled(editing);
    if (state == EntryState::Idle)
        cmdNew->setFocus();
}

}
