#pragma once
#include "masterscreen.h"
#include "subjectservice.h"

// Keeps the subjects: a name and the short name shown in timetable cells.
class frmSubjectMaster : public MasterScreen
{
    Q_OBJECT
public:
    explicit frmSubjectMaster(AppContext &ctx, QWidget *parent = nullptr);

protected:
    QList<QStringList> findRows(const QString &text) const override;
    bool recordExists(int code) const override;
    void showRecord(int code) override;
    SaveResult saveRecord(int code) override;
    void removeRecord(int code) override;
    QWidget *fieldFor(MasterField field) const override;

private:
    SubjectService service() const;

    QLineEdit *m_txtSubjectName = nullptr;
    QLineEdit *m_txtSubjectShort = nullptr;
};
