#include "frmteachersearch.h"
#include "codecombo.h"
#include "messageservice.h"
#include "screen.h"
#include "session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
constexpr int HelpScreenNo = 10;
enum Column { CodeColumn, NameColumn, ShortNameColumn, TelephoneColumn, PeriodsColumn, SeniorityColumn,
              StateColumn, CityColumn, BloodGroupColumn, ColumnCount };
}

frmTeacherSearch::frmTeacherSearch(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx), m_lists(ctx.db()), m_search(ctx.db())
{
    setObjectName(QStringLiteral("frmTeacherSearch"));
    setWindowTitle(QStringLiteral("Teacher Search"));
    buildLayout();
    loadStates();
    Screen::applyConventions(this, ctx, HelpScreenNo);
    m_txtTeacherName->setFocus();
}

void frmTeacherSearch::buildLayout()
{
    const auto named = [](QWidget *widget, const char *name) {
        widget->setObjectName(QString::fromLatin1(name));
        return widget;
    };
    m_txtTeacherName = new QLineEdit(this);
    named(m_txtTeacherName, "txtTeacherName");
    m_txtTeacherName->setMaxLength(100);
    m_txtPeriods = new QLineEdit(this);
    named(m_txtPeriods, "txtPeriods");
    Screen::DigitsOnly(m_txtPeriods, 3);
    m_txtPeriods->setMaximumWidth(m_txtPeriods->fontMetrics().horizontalAdvance(QStringLiteral("WWWW")) + 16);
    m_dbcStateName = new QComboBox(this);
    named(m_dbcStateName, "dbcStateName");
    m_dbcCityName = new QComboBox(this);
    named(m_dbcCityName, "dbcCityName");
    m_cmdSearch = new QPushButton(QStringLiteral("&Search"), this);
    named(m_cmdSearch, "cmdSearch");
    m_cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    named(m_cmdCancel, "cmdCancel");
    m_cmdExit = new QPushButton(QStringLiteral("E&xit"), this);
    named(m_cmdExit, "cmdExit");

    m_dgdDetails = new QTableWidget(0, ColumnCount, this);
    named(m_dgdDetails, "dgdDetails");
    m_dgdDetails->setHorizontalHeaderLabels({QStringLiteral("TeacherCode"), QStringLiteral("Teacher Name"),
                                             QStringLiteral("Teacher Short Name"), QStringLiteral("Telephone"),
                                             QStringLiteral("No Of Periods"), QStringLiteral("Seniority No"),
                                             QStringLiteral("State Name"), QStringLiteral("City Name"),
                                             QStringLiteral("Blood Group")});
    m_dgdDetails->setColumnHidden(CodeColumn, true);
    m_dgdDetails->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_dgdDetails->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_dgdDetails->setSelectionMode(QAbstractItemView::SingleSelection);
    m_dgdDetails->setAlternatingRowColors(true);
    m_dgdDetails->verticalHeader()->hide();
    m_dgdDetails->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_dgdDetails->horizontalHeader()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);

    auto *criteria = new QGridLayout;
    criteria->setHorizontalSpacing(10);
    const auto caption = [&](int row, int column, const QString &text, QWidget *buddy) {
        auto *label = new QLabel(text, this);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setBuddy(buddy);
        criteria->addWidget(label, row, column);
    };
    caption(0, 0, QStringLiteral("Teacher Name :"), m_txtTeacherName);
    criteria->addWidget(m_txtTeacherName, 0, 1);
    caption(0, 2, QStringLiteral("Periods >= :"), m_txtPeriods);
    criteria->addWidget(m_txtPeriods, 0, 3, Qt::AlignLeft);
    caption(1, 0, QStringLiteral("S&tate Name :"), m_dbcStateName);
    criteria->addWidget(m_dbcStateName, 1, 1);
    caption(1, 2, QStringLiteral("C&ity Name :"), m_dbcCityName);
    criteria->addWidget(m_dbcCityName, 1, 3);
    criteria->setColumnStretch(1, 3);
    criteria->setColumnStretch(3, 2);
    m_dbcCityName->setMinimumWidth(180);
    auto *buttons = new QVBoxLayout;
    for (QPushButton *button : {m_cmdSearch, m_cmdCancel, m_cmdExit})
        buttons->addWidget(button);
    buttons->addStretch();
    criteria->addLayout(buttons, 0, 4, 3, 1);
    criteria->setColumnMinimumWidth(4, 100);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(criteria);
    layout->addWidget(m_dgdDetails, 1);
    resize(860, 440);

    connect(m_dbcStateName, &QComboBox::currentIndexChanged, this, &frmTeacherSearch::loadCities);
    connect(m_cmdSearch, &QPushButton::clicked, this, &frmTeacherSearch::search);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmTeacherSearch::cancel);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmTeacherSearch::exitScreen);
    connect(m_dgdDetails, &QTableWidget::activated, this, &frmTeacherSearch::choose);
}

void frmTeacherSearch::loadStates()
{
    Screen::guarded(m_ctx, [this] {
        CodeCombo::fill(m_dbcStateName, m_lists.states(), false, CodeCombo::code(m_dbcStateName));
    });
    loadCities();
}

void frmTeacherSearch::loadCities()
{
    Screen::guarded(m_ctx, [this] {
        CodeCombo::fill(m_dbcCityName, m_lists.cities(CodeCombo::code(m_dbcStateName)), false);
    });
}

void frmTeacherSearch::search()
{
    TeacherSearch::Criteria criteria;
    criteria.name = m_txtTeacherName->text().trimmed();
    if (!m_txtPeriods->text().isEmpty())
        criteria.minPeriods = m_txtPeriods->text().toInt();
    criteria.stateCode = CodeCombo::code(m_dbcStateName);
    criteria.cityCode = CodeCombo::code(m_dbcCityName);
    if (criteria.isEmpty() && !m_ctx.messages->question(QStringLiteral("Do You Want To View All Teacher Details ?")))
        return;

    QList<TeacherSearch::Row> rows;
    if (!Screen::guarded(m_ctx, [&] { rows = m_search.find(criteria); }))
        return;
    m_dgdDetails->setRowCount(0);
    m_dgdDetails->setRowCount(int(rows.size()));
    for (int r = 0; r < rows.size(); ++r) {
        const TeacherSearch::Row &row = rows.at(r);
        const QStringList cells{QString::number(row.code), row.name, row.shortName, row.telephone,
                                QString::number(row.noOfPeriods), row.seniorityNo, row.stateName, row.cityName,
                                row.bloodGroupName};
        for (int c = 0; c < cells.size(); ++c) {
            auto *item = new QTableWidgetItem(cells.at(c));
            if (c == PeriodsColumn || c == SeniorityColumn)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_dgdDetails->setItem(r, c, item);
        }
    }
    if (rows.isEmpty()) {
        m_ctx.messages->information(QStringLiteral("No Record Exists"));
        return;
    }
    m_dgdDetails->selectRow(0);
    m_dgdDetails->setFocus();
}

void frmTeacherSearch::choose(const QModelIndex &index)
{
    const QTableWidgetItem *cell = index.isValid() ? m_dgdDetails->item(index.row(), CodeColumn) : nullptr;
    const int code = cell ? cell->text().toInt() : 0;
    if (code <= 0)
        return;
    bool exists = false;
    if (!Screen::guarded(m_ctx, [&] { exists = m_search.exists(code); }))
        return;
    if (!exists) {
        m_ctx.messages->information(QStringLiteral("Record Has Been Deleted In Master Screen"));
        return;
    }
    if (!m_ctx.messages->question(QStringLiteral("Do You Want To Edit/Delete ?")))
        return;
    emit teacherChosen(code);
    Screen::closeScreen(this);
}

void frmTeacherSearch::cancel()
{
    m_txtTeacherName->clear();
    m_txtPeriods->clear();
    CodeCombo::select(m_dbcStateName, 0);
    m_dgdDetails->setRowCount(0);
    m_txtTeacherName->setFocus();
}

void frmTeacherSearch::exitScreen()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}
