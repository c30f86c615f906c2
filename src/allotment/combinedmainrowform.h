#pragma once
#include "combinedentryform.h"

class QGridLayout;
class QGroupBox;
class QLabel;

// The class and teacher group screens build a group on one entered allotment, the main row, chosen by
// class, division and subject, and list the rows their Save generates beside it. This piece holds the main
// fields and the tests made while they change, the add frame and the list.
class CombinedMainRowForm : public CombinedEntryForm
{
    Q_OBJECT
protected:
    // What the add frame and the list of a screen show; the two add drop-downs are the screen's own.
    struct ListedParts
    {
        QString addCaption;
        QString firstLabel;
        QComboBox *firstAdd = nullptr;
        QString secondLabel;
        QComboBox *secondAdd = nullptr;
        QString listCaption;
        QStringList headers; // two visible columns, then two hidden code columns
        QString removeQuestion;
        bool resetWhenPlaced = false; // does a refused removal also discard the screen's work?
    };

    CombinedMainRowForm(AppContext &ctx, Combined::Kind kind, QWidget *parent);
    // Lays the add frame and the list out below the main fields and finishes the screen. Call last in the
    // subclass's constructor.
    void finishListed(const ListedParts &parts);

    // The main row shown; its teacher is 0 while none is.
    const Combined::MainRow &mainRow() const { return m_main; }
    int chosenClass() const;
    int chosenDivision() const;
    int chosenSubject() const;

    // Empties the main fields and reloads the class list (part of clearEntry).
    void clearMain();
    // Shows the main row of a group in the fields, or, for want of one, the entered row of `key` (part of
    // showGroup).
    void showMainOfGroup(const Combined::Key &key, int groupNo);
    // Empties the add fields (part of clearList).
    void clearAddFields();
    void showListCells(const QList<QStringList> &cells);

    QWidget *firstField() const override;

    // Has a listed row of the group placed periods already? Then the main row may no longer change.
    virtual bool listedPlaced() const = 0;
    virtual qsizetype listedCount() const = 0;
    virtual void removeListed(int row) = 0;
    virtual void add() = 0; // cmdAdd

    QGroupBox *m_fraMain = nullptr;
    QGroupBox *m_fraAdd = nullptr;
    QPushButton *m_cmdAdd = nullptr;
    QTableWidget *m_msgDetails = nullptr;

private:
    void classChosen();
    void divisionChosen();
    void subjectChosen();
    bool mayChangeMain();
    void setMain(const Combined::MainRow &row);
    void listedClicked(int row);

    Combined::MainRow m_main;
    QComboBox *m_cboClass = nullptr;
    QComboBox *m_cboDivision = nullptr;
    QComboBox *m_cboSubject = nullptr;
    QLabel *m_lblTeacherName = nullptr;
    QLabel *m_lblNoOfSectionPeriods = nullptr;
    QComboBox *m_firstAdd = nullptr;
    QComboBox *m_secondAdd = nullptr;
    QString m_removeQuestion;
    bool m_resetWhenPlaced = false;
};
