#include "reportcommand.h"
#include "commandtable.h"
#include "excelexport.h"
#include "gridtextfile.h"
#include "reportcatalogue.h"
#include "reportrenderer.h"
#include "routines.h"
#include "schoolcalendar.h"
#include "sql.h"

#include <QDir>
#include <QFileInfo>

namespace {

// A selection given by its code or by its name (or short name), as a user would type it.
bool lookUp(const QSqlDatabase &db, const QString &given, const QString &statement, const QVariantList &scope,
            int *code)
{
    // A name first: classes are often named by numbers ("10"), which are not their codes.
    const QVariant found = Sql(db).scalar(statement, scope + QVariantList{given.trimmed(), given.trimmed()});
    if (found.isValid()) {
        *code = found.toInt();
        return true;
    }
    bool number = false;
    const int asNumber = given.toInt(&number);
    if (!number || asNumber < 0)
        return false;
    *code = asNumber;
    return true;
}

bool readSelection(const QSqlDatabase &db, const QCommandLineParser &parser, ReportSelection *selection,
                   QTextStream &err)
{
    struct Named
    {
        const char *option;
        int *code;
        QString statement;
    };
    const QList<Named> named = {
        {"class", &selection->classCode,
         QStringLiteral("SELECT ClassCode FROM ClassDivisionMaster WHERE ClassName = ? OR ClassName = ?")},
        {"teacher", &selection->teacherCode,
         QStringLiteral("SELECT TeacherCode FROM TeacherMaster WHERE TeacherName = ? OR TeacherShortName = ?")},
        {"subject", &selection->subjectCode,
         QStringLiteral("SELECT SubjectCode FROM SubjectMaster WHERE SubjectName = ? OR SubjectShortName = ?")},
        {"day", &selection->dayCode,
         QStringLiteral("SELECT DayCode FROM DayMaster WHERE DayName = ? OR substr(DayName, 1, 3) = ?")},
        {"period", &selection->periodCode,
         QStringLiteral("SELECT PeriodCode FROM PeriodDuration WHERE PeriodName = ? OR PeriodName = ?")},
    };
    for (const Named &entry : named) {
        const QString key = QLatin1String(entry.option);
        if (parser.isSet(key) && !lookUp(db, parser.value(key), entry.statement, {}, entry.code)) {
            err << "No " << key << ' ' << parser.value(key) << '\n';
            return false;
        }
    }
    if (parser.isSet(QStringLiteral("division"))
        && !lookUp(db, parser.value(QStringLiteral("division")),
                   QStringLiteral("SELECT DivisionCode FROM ClassDivisionDetails WHERE ClassCode = ? AND "
                                  "(DivisionName = ? OR DivisionName = ?)"),
                   {selection->classCode}, &selection->divisionCode)) {
        err << "No division " << parser.value(QStringLiteral("division")) << '\n';
        return false;
    }
    for (const char *key : {"from", "to"}) {
        const QString text = parser.value(QLatin1String(key));
        if (text.isEmpty())
            continue;
        const QDate date = QDate::fromString(text, Qt::ISODate);
        if (!date.isValid()) {
            err << "--" << key << " takes a date as YYYY-MM-DD\n";
            return false;
        }
        (QLatin1String(key) == QLatin1String("from") ? selection->from : selection->to) = date;
    }
    selection->order = parser.value(QStringLiteral("order"));
    selection->dayWise = parser.isSet(QStringLiteral("day-wise"));
    selection->withoutSeparator = parser.isSet(QStringLiteral("without-separator"));
    return true;
}

}

void listReports(QTextStream &out)
{
    for (const ReportEntry &entry : ReportCatalogue::all()) {
        out << entry.name.leftJustified(30) << entry.title;
        if (!entry.selections.isEmpty())
            out << "  (" << entry.selections.join(QStringLiteral(", ")) << ')';
        out << '\n';
    }
}

int runReport(const QSqlDatabase &db, const QCommandLineParser &parser, QTextStream &out, QTextStream &err)
{
    const QStringList words = parser.positionalArguments().mid(1);
    if (words.size() != 1) {
        err << "report takes the name of one report: ttcli report --list names them\n";
        return ExitCode::Refused;
    }
    const ReportEntry *entry = ReportCatalogue::find(words.first());
    if (!entry) {
        err << "No report " << words.first() << ": ttcli report --list names them\n";
        return ExitCode::Refused;
    }
    const QString format = parser.value(QStringLiteral("format")).toLower();
    const QString path = parser.value(QStringLiteral("out"));
    if (path.isEmpty()) {
        err << "--out names the file to write\n";
        return ExitCode::Refused;
    }
    ReportSelection selection;
    if (!readSelection(db, parser, &selection, err))
        return ExitCode::Refused;
    const ReportProduct product = entry->make(db, selection);
    if (!product.refusal.isEmpty()) {
        err << product.refusal << '\n';
        return ExitCode::Refused;
    }
    ReportFile file;
    if (format == QLatin1String("txt") && product.hasText) {
        file = GridTextFile::writeTo(path, product.textLines);
    } else if (format == QLatin1String("xlsx") && product.hasSheet) {
        SchoolCalendar calendar;
        calendar.load(db);
        file = writeGridSheet(path, LoadSchoolHeading(db), calendar, product.grid, product.lastRow, product.lastColumn,
                              product.sheetTitle, product.sheetSubtitle, product.dayBands);
    } else if (format == QLatin1String("pdf") && product.hasPrinted) {
        QString error;
        file.path = path;
        if (!ReportRenderer(product.printed).writePdf(path, &error))
            file.error = error;
    } else {
        err << entry->name << " has no " << (format.isEmpty() ? QStringLiteral("format") : format)
            << " form: --format takes";
        for (const auto &[name, has] : {std::pair{"txt", product.hasText}, std::pair{"xlsx", product.hasSheet},
                                        std::pair{"pdf", product.hasPrinted}})
            if (has)
                err << ' ' << name;
        err << '\n';
        return ExitCode::Refused;
    }
    if (!file.ok()) {
        err << file.error << '\n';
        return ExitCode::Refused;
    }
    out << entry->title << " written to " << QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()) << '\n';
    return ExitCode::Done;
}
