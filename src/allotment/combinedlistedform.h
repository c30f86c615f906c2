#pragma once
#include "combinedmainrowform.h"

// The part of the class and teacher screens that only differs in the type of the listed rows. `Service` is
// the screen's store side (CombinedClassGroups, CombinedTeacherGroups), which names its listed row `Row`.
template<typename Service>
class CombinedListedForm : public CombinedMainRowForm
{
protected:
    using Row = typename Service::Row;
    using Draft = Combined::Draft<Row>;

    CombinedListedForm(AppContext &ctx, Combined::Kind kind, QWidget *parent)
        : CombinedMainRowForm(ctx, kind, parent), m_service(m_groups.db())
    {
    }

    // A listed row's cells in the order of the list's headers.
    virtual QStringList cellsOf(const Row &row) const = 0;

    Draft draft() const { return {mainRow(), m_listed, editing(), keptKey(), groupNo()}; }

    void showList()
    {
        QList<QStringList> cells;
        for (const Row &row : std::as_const(m_listed))
            cells.append(cellsOf(row));
        showListCells(cells);
    }

    void showGroup(const Combined::Key &key, int groupNo) override
    {
        showMainOfGroup(key, groupNo);
        m_listed = m_service.listed(groupNo);
        showList();
    }

    void clearList() override
    {
        m_listed.clear();
        showList();
        clearAddFields();
    }

    bool saveEntry() override
    {
        const Draft current = draft();
        if (!accept(m_service.checkSave(current, chosenClass(), chosenDivision(), chosenSubject())))
            return false;
        m_service.save(current);
        return true;
    }

    bool listedPlaced() const override { return m_service.listedPlaced(draft()); }
    qsizetype listedCount() const override { return m_listed.size(); }

    void removeListed(int row) override
    {
        m_listed.removeAt(row);
        showList();
    }

    Service m_service;
    QList<Row> m_listed;
};
