#include "frmcitymaster.h"
#include "codecombo.h"
#include "messageservice.h"
#include "session.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmCityMaster::frmCityMaster(AppContext &ctx, QWidget *parent)
    : MasterScreen(ctx,
                   {QStringLiteral("frmCityMaster"), QStringLiteral("City Master"), 4, QStringLiteral("dgddetails"),
                    {QStringLiteral("State Name"), QStringLiteral("City Name"), QStringLiteral("CityCode"),
                     QStringLiteral("StateCode")},
                    2, 1, QStringLiteral("txtSearchCityName"), QStringLiteral("C&ity Name :"), 30,
                    QStringLiteral("City Name Does Not Exists"), QStringLiteral("Do You Want To Delete This City Name ?")},
                   parent)
{
    m_dbcStateName = new QComboBox(this);
    m_dbcStateName->setObjectName(QStringLiteral("dbcStateName"));
    m_dbcStateName->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_dbcStateName->setMinimumContentsLength(20);
    m_cmdAddStateName = new QPushButton(QStringLiteral("&Add State..."), this);
    m_cmdAddStateName->setObjectName(QStringLiteral("cmdAddStateName"));
    m_cmdAddStateName->setAutoDefault(false);
    m_cmdAddStateName->setToolTip(QStringLiteral("Opens the State Master; the list is read again on return"));
    m_txtCityName = new QLineEdit(this);
    m_txtCityName->setObjectName(QStringLiteral("txtCityName"));
    m_txtCityName->setMaxLength(30);

    auto *stateRow = new QHBoxLayout;
    stateRow->addWidget(m_dbcStateName, 1);
    stateRow->addWidget(m_cmdAddStateName);
    auto *stateLabel = new QLabel(QStringLiteral("S&tate Name :"), this);
    stateLabel->setBuddy(m_dbcStateName);
    fieldLayout()->addRow(stateLabel, stateRow);
    fieldLayout()->addRow(QStringLiteral("City Name :"), m_txtCityName);
    // States added on the State Master meanwhile appear when the list is next used.
    m_dbcStateName->installEventFilter(this);

    connect(m_dbcStateName, &QComboBox::activated, this, [this] { refresh(); });
    connect(m_cmdAddStateName, &QPushButton::clicked, this, &frmCityMaster::addState);
    finishSetup();
}

CityService frmCityMaster::service() const
{
    return CityService(m_ctx.db());
}

int frmCityMaster::chosenState() const
{
    return CodeCombo::code(m_dbcStateName);
}

QList<QStringList> frmCityMaster::findRows(const QString &text) const
{
    QList<QStringList> rows;
    for (const CityRow &row : service().search(text, chosenState()))
        rows.append({row.stateName, row.cityName, QString::number(row.cityCode), QString::number(row.stateCode)});
    return rows;
}

bool frmCityMaster::recordExists(int code) const
{
    return service().city(code).has_value();
}

void frmCityMaster::showRecord(int code)
{
    const std::optional<CityRow> city = service().city(code);
    if (!city)
        return;
    CodeCombo::select(m_dbcStateName, city->stateCode);
    m_txtCityName->setText(city->cityName);
}

SaveResult frmCityMaster::saveRecord(int code)
{
    return service().save(code, chosenState(), m_txtCityName->text());
}

void frmCityMaster::removeRecord(int code)
{
    service().remove(code);
}

QWidget *frmCityMaster::fieldFor(MasterField field) const
{
    switch (field) {
    case MasterField::State:
        return m_dbcStateName;
    case MasterField::Name:
    case MasterField::ShortName:
        return m_txtCityName;
    case MasterField::None:
        break;
    }
    return nullptr;
}

QWidget *frmCityMaster::firstField() const
{
    return m_dbcStateName;
}

void frmCityMaster::reloadLists()
{
    CodeCombo::fill(m_dbcStateName, service().states(), false, chosenState());
    m_dbcStateName->setEnabled(true);
    m_cmdAddStateName->setEnabled(true);
}

void frmCityMaster::editStarted()
{
    // A city that a teacher or the school already names must stay in its state.
    const bool used = service().isUsed(currentCode());
    m_dbcStateName->setEnabled(!used);
    m_cmdAddStateName->setEnabled(!used);
    if (used)
        m_txtCityName->setFocus();
}

void frmCityMaster::newSaved()
{
    if (!m_ctx.messages->question(
            QStringLiteral("Do You Want To Enter New City Name Under The Same State Name ?"))) {
        cancel();
        return;
    }
    clearSearch();
    m_txtCityName->clear();
    refresh();
    continueNew();
    m_txtCityName->setFocus();
}

void frmCityMaster::addState()
{
    if (m_ctx.host)
        m_ctx.host->openScreen(QStringLiteral("frmStateMaster"));
}

bool frmCityMaster::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_dbcStateName && event->type() == QEvent::FocusIn)
        Screen::guarded(m_ctx, [this] { reloadLists(); });
    return MasterScreen::eventFilter(watched, event);
}
