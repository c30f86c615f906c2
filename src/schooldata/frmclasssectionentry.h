#pragma once
#include "classdivisions.h"
#include "screen.h"

#include <QWidget>

class ClassDivisionGrids;
class QGroupBox;
class QLineEdit;
class QPushButton;
struct AppContext;

// The class division screen: every class with its divisions on one grid pair, saved as a whole. Enter leads
// from a class's name to its count, its priority and its division names, then on to the next class.
class frmClassSectionEntry : public QWidget
{
    Q_OBJECT
public:
    explicit frmClassSectionEntry(AppContext &ctx, QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Mode { Idle, New, Edit };

    void buildLayout();
    bool load();
    void newEntry();
    void editEntry();
    void startEntry(Mode mode);
    void save();
    void cancel();
    void exitScreen();
    void deleteRow();

    void classNameEntered();
    void divisionCountEntered();
    void classOrderEntered();
    void divisionNameEntered();
    bool addBlankRow();
    void refuse(const ClassRefusal &refusal);

    AppContext &m_ctx;
    Mode m_mode = Mode::Idle;
    QStringList m_keptNames; // stored classes outside the grid that stay (after New)
    int m_storedMax = 0;     // highest stored ClassCode

    QGroupBox *m_fraMain = nullptr;
    QGroupBox *m_fraDivisionDetails = nullptr;
    ClassDivisionGrids *m_grids = nullptr;
    QLineEdit *m_txtDeleteSlNo = nullptr;
    QPushButton *m_cmdDeleteRow = nullptr;
    QPushButton *m_cmdNew = nullptr;
    QPushButton *m_cmdEdit = nullptr;
    QPushButton *m_cmdSave = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
    Screen::EntryButtons m_buttons;
};
