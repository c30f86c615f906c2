#pragma once
#include "codename.h"

#include <QList>
#include <QString>
#include <QStringList>

// One row of the class grid. The counts are kept as typed, because a blank cell and a 0 are refused with
// different words.
struct ClassRow
{
    int code = 0;         // ClassCode
    QString name;         // ClassName
    QString divisionText; // NoOfDivisions
    QString orderText;    // ClassOrder, the Priority Number
    // DivisionCode, unique inside its class only, and DivisionName
    QList<CodeName> divisions;

    bool isNamed() const { return !name.trimmed().isEmpty(); }
    bool isBlank() const { return !isNamed() && divisionText.isEmpty() && orderText.isEmpty(); }
    int divisionCount() const { return divisionText.toInt(); }
    int order() const { return orderText.toInt(); }
    // The division list no longer matches the count typed for it.
    bool divisionsUnsettled() const { return divisions.size() != divisionCount(); }
};

// Where a refused entry or Save puts the user back: the class row, its grid column and, for a division
// name, the division's place in the class.
struct ClassRefusal
{
    QString text;
    int row = -1;
    int column = 1;
    int division = -1;

    bool refused() const { return !text.isEmpty(); }
};

// The rules of the class division screen on its working copy of every class and division: the default
// division names, the priority ranking, row removal and the checks before a Save.
namespace ClassDivisions {

constexpr int MaxClasses = 99;

// Grid columns of the class rows.
enum Column { SerialColumn = 0, NameColumn = 1, DivisionsColumn = 2, OrderColumn = 3 };

// Default name of the division at 1-based `position`: A to Z, then AA to AZ, BA to BZ, and CA onward.
QString seriesName(int position);

// Brings the class's divisions to the typed count: surplus ones go from the end, new ones take the series
// names (a name the class already uses is passed over) and the next DivisionCode of the class.
void settleDivisions(ClassRow &row);

// The row `changed` took a new priority: every other ranked row at or above it moves one place down, in
// grid order, so that no two rows share a number.
void rerank(QList<ClassRow> &rows, int changed);

// Removes the row at 1-based `serial` with its divisions; the priorities above its own close up. The last
// remaining row is emptied instead. False when no row has that serial.
bool removeRow(QList<ClassRow> &rows, int serial);

// The Priority Number generated for a newly named class: it ranks below every class entered before it.
int nextOrder(const QList<ClassRow> &rows);
// The row's priority is above the number of named classes.
bool orderBeyondRows(const QList<ClassRow> &rows, int row);

// Is the row's name used by another row, or by one of `otherNames` (classes outside the grid that stay)?
bool nameTaken(const QList<ClassRow> &rows, int row, const QStringList &otherNames = {});
// Is the division's name used by another division of the same class?
bool divisionNameTaken(const ClassRow &row, int division);

// The checks of Save, in their order; each runs over every row before the next begins.
ClassRefusal validate(const QList<ClassRow> &rows, const QStringList &otherNames = {});

// Gives every row without a ClassCode the next one above the rows' codes and `storedMax`: a new row never
// takes the code of a stored class, not even of one just removed from the grid, whose uses would pass to it.
void assignCodes(QList<ClassRow> &rows, int storedMax);

// Names compare without case and outer spaces.
inline QString nameKey(const QString &name) { return name.trimmed().toUpper(); }

}
