#include "classdivisions.h"

#include <algorithm>

namespace ClassDivisions {

QString seriesName(int position)
{
    if (position < 1)
        return {};
    const QChar letter(QLatin1Char('A' + (position - 1) % 26));
    if (position <= 26)
        return letter;
    return QString(QChar(QLatin1Char('A' + (position - 1) / 26 - 1))) + letter;
}

void settleDivisions(ClassRow &row)
{
    const int wanted = std::max(0, row.divisionCount());
    while (row.divisions.size() > wanted)
        row.divisions.removeLast();

    auto used = [&row](const QString &name) {
        return std::any_of(row.divisions.cbegin(), row.divisions.cend(),
                           [&name](const CodeName &d) { return nameKey(d.name) == name; });
    };
    int position = row.divisions.size();
    while (row.divisions.size() < wanted) {
        // A renamed division may already hold the next name of the series; two divisions of one name
        // could never be told apart in a list.
        QString name;
        do
            name = seriesName(++position);
        while (used(name));
        int highest = 0;
        for (const CodeName &d : std::as_const(row.divisions))
            highest = std::max(highest, d.code);
        row.divisions.append({highest + 1, name});
    }
}

void rerank(QList<ClassRow> &rows, int changed)
{
    if (changed < 0 || changed >= rows.size() || rows[changed].orderText.isEmpty())
        return;
    const int taken = rows[changed].order();
    int counter = taken;
    for (int i = 0; i < rows.size(); ++i) {
        ClassRow &other = rows[i];
        if (i == changed || other.orderText.isEmpty() || other.order() < taken)
            continue;
        other.orderText = QString::number(++counter);
    }
}

bool removeRow(QList<ClassRow> &rows, int serial)
{
    if (serial < 1 || serial > rows.size())
        return false;
    if (rows.size() == 1) {
        rows[0] = ClassRow{};
        return true;
    }
    const ClassRow removed = rows.takeAt(serial - 1);
    if (removed.orderText.isEmpty())
        return true;
    for (ClassRow &row : rows) {
        if (!row.orderText.isEmpty() && row.order() > removed.order())
            row.orderText = QString::number(row.order() - 1);
    }
    return true;
}

int nextOrder(const QList<ClassRow> &rows)
{
    int highest = 0;
    for (const ClassRow &row : rows)
        highest = std::max(highest, row.order());
    return highest + 1;
}

bool orderBeyondRows(const QList<ClassRow> &rows, int row)
{
    const auto named = std::count_if(rows.cbegin(), rows.cend(), [](const ClassRow &r) { return r.isNamed(); });
    return rows.at(row).order() > named;
}

bool nameTaken(const QList<ClassRow> &rows, int row, const QStringList &otherNames)
{
    const QString key = nameKey(rows.at(row).name);
    if (key.isEmpty())
        return false;
    for (int i = 0; i < rows.size(); ++i) {
        if (i != row && nameKey(rows.at(i).name) == key)
            return true;
    }
    return std::any_of(otherNames.cbegin(), otherNames.cend(),
                       [&key](const QString &name) { return nameKey(name) == key; });
}

bool divisionNameTaken(const ClassRow &row, int division)
{
    const QString key = nameKey(row.divisions.at(division).name);
    if (key.isEmpty())
        return false;
    for (int i = 0; i < row.divisions.size(); ++i) {
        if (i != division && nameKey(row.divisions.at(i).name) == key)
            return true;
    }
    return false;
}

namespace {

ClassRefusal orderRefusal(const QList<ClassRow> &rows)
{
    for (int r = 0; r < rows.size(); ++r) {
        const ClassRow &row = rows.at(r);
        if (!row.isNamed())
            continue;
        if (row.orderText.isEmpty())
            return {QStringLiteral("Class Order Should  Not Be Empty"), r, OrderColumn};
        for (int i = 0; i < rows.size(); ++i) {
            if (i != r && rows.at(i).isNamed() && !rows.at(i).orderText.isEmpty() && rows.at(i).order() == row.order())
                return {QStringLiteral("Class Order Already Exists"), r, OrderColumn};
        }
    }
    return {};
}

}

ClassRefusal validate(const QList<ClassRow> &rows, const QStringList &otherNames)
{
    for (int r = 0; r < rows.size(); ++r) {
        if (!rows.at(r).isNamed() && !rows.at(r).divisionText.isEmpty())
            return {QStringLiteral("Class Name Should Not Be Empty"), r, NameColumn};
    }
    for (int r = 0; r < rows.size(); ++r) {
        if (!rows.at(r).isNamed() && !rows.at(r).orderText.isEmpty())
            return {QStringLiteral("Enter Class Name"), r, NameColumn};
    }
    for (int r = 0; r < rows.size(); ++r) {
        if (rows.at(r).isNamed() && rows.at(r).divisionCount() <= 0)
            return {QStringLiteral("Each Class Should Have Atleast One Division"), r, DivisionsColumn};
    }
    for (int r = 0; r < rows.size(); ++r) {
        if (nameTaken(rows, r, otherNames))
            return {QStringLiteral("Class Name Already Exists"), r, NameColumn};
    }
    if (ClassRefusal refusal = orderRefusal(rows); refusal.refused())
        return refusal;
    for (int r = 0; r < rows.size(); ++r) {
        if (rows.at(r).isNamed() && rows.at(r).order() == 0)
            return {QStringLiteral("Class Order Should Not Be Blank. Enter Class Order"), r, OrderColumn};
    }
    if (std::all_of(rows.cbegin(), rows.cend(), [](const ClassRow &row) { return row.divisions.isEmpty(); }))
        return {QStringLiteral("Enter Class/Division Details"), 0, NameColumn};
    for (int r = 0; r < rows.size(); ++r) {
        const ClassRow &row = rows.at(r);
        for (int d = 0; row.isNamed() && d < row.divisions.size(); ++d) {
            if (row.divisions.at(d).name.trimmed().isEmpty())
                return {QStringLiteral("Enter Division Name To Class ") + row.name.trimmed(), r, NameColumn, d};
        }
    }
    return {};
}

void assignCodes(QList<ClassRow> &rows, int storedMax)
{
    int highest = storedMax;
    for (const ClassRow &row : std::as_const(rows))
        highest = std::max(highest, row.code);
    for (ClassRow &row : rows) {
        if (row.code == 0)
            row.code = ++highest;
    }
}

}
