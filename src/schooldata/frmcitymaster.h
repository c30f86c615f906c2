#pragma once
#include "cityservice.h"
#include "masterscreen.h"

class QComboBox;

// Keeps the cities of each state. A city names its state; a city already used by a teacher or the school
// keeps its state, and after a new city the office may go on entering cities of the same state.
class frmCityMaster : public MasterScreen
{
    Q_OBJECT
public:
    explicit frmCityMaster(AppContext &ctx, QWidget *parent = nullptr);

protected:
    QList<QStringList> findRows(const QString &text) const override;
    bool recordExists(int code) const override;
    void showRecord(int code) override;
    SaveResult saveRecord(int code) override;
    void removeRecord(int code) override;
    QWidget *fieldFor(MasterField field) const override;
    QWidget *firstField() const override;
    void reloadLists() override;
    void editStarted() override;
    void newSaved() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    CityService service() const;
    int chosenState() const;
    void addState();

    QComboBox *m_dbcStateName = nullptr;
    QPushButton *m_cmdAddStateName = nullptr;
    QLineEdit *m_txtCityName = nullptr;
};
