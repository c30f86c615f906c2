#pragma once
#include "combinedentryform.h"

class QGridLayout;
class QGroupBox;
class QLabel;

// The class and teacher group screens build a group on one entered allotment, the main row, chosen by
// class, division and subject. This piece holds those fields and the tests made while they change.
class CombinedMainRowForm : public CombinedEntryForm
{
    Q_OBJECT
protected:
    CombinedMainRowForm(AppContext &ctx, Combined::Kind kind, QWidget *parent);

    // The main row shown; its teacher is 0 while none is.
    const Combined::MainRow &mainRow() const { return m_main; }
    int chosenClass() const;
    int chosenDivision() const;
    int chosenSubject() const;

    // Empties the main fields and reloads the class list (part of clearEntry).
    void clearMain();
    // Shows a group's main row in the fields (part of showGroup).
    void showMain(const Combined::MainRow &row);

    QWidget *firstField() const override;

    // Has a listed row of the group placed periods already? Then the main row may no longer change.
    virtual bool listedPlaced() const = 0;

    QGroupBox *m_fraMain = nullptr;

private:
    void classChosen();
    void divisionChosen();
    void subjectChosen();
    bool mayChangeMain();
    void setMain(const Combined::MainRow &row);

    Combined::MainRow m_main;
    QComboBox *m_cboClass = nullptr;
    QComboBox *m_cboDivision = nullptr;
    QComboBox *m_cboSubject = nullptr;
    QLabel *m_lblTeacherName = nullptr;
    QLabel *m_lblNoOfSectionPeriods = nullptr;
};
