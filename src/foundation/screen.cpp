#include "screen.h"
#include "messageservice.h"
#include "session.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QShortcut>
#include <QTableWidget>
#include <QTextEdit>
#include <QTimer>

namespace {

// Moves focus to the next control that takes Tab, as the Tab key does.
void moveFocusOn(QWidget *widget)
{
    QWidget *next = widget->nextInFocusChain();
    while (next && next != widget
           && (!(next->focusPolicy() & Qt::TabFocus) || !next->isEnabled() || !next->isVisible()))
        next = next->nextInFocusChain();
    if (next && next != widget)
        next->setFocus(Qt::TabFocusReason);
}

// Enter as Tab and select-all on focus, for every control of one screen.
class ConventionFilter : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn) {
            if (auto *field = qobject_cast<QLineEdit *>(watched))
                QTimer::singleShot(0, field, &QLineEdit::selectAll);
            return false;
        }
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto *key = static_cast<QKeyEvent *>(event);
        if ((key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) || key->modifiers() & Qt::ShiftModifier)
            return false;
        auto *widget = qobject_cast<QWidget *>(watched);
        if (!widget || qobject_cast<QTextEdit *>(widget) || qobject_cast<QPlainTextEdit *>(widget))
            return false;
        if (auto *button = qobject_cast<QAbstractButton *>(widget)) {
            if (qobject_cast<QCheckBox *>(widget))
                moveFocusOn(widget);
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
        moveFocusOn(widget);
        return true;
    }
};

}

namespace Screen {

void applyConventions(QWidget *screen, AppContext &ctx, int helpScreenNo)
{
    auto *filter = new ConventionFilter(screen);
    const QList<QWidget *> controls = screen->findChildren<QWidget *>();
    for (QWidget *control : controls)
        control->installEventFilter(filter);
    auto *help = new QShortcut(QKeySequence(Qt::Key_F1), screen);
    help->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(help, &QShortcut::activated, screen, [&ctx, helpScreenNo] {
        ctx.session.helpScreenNo = helpScreenNo;
        if (ctx.host)
            ctx.host->openScreen(QStringLiteral("frmHelp"));
    });
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
