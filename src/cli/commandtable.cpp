#include "commandtable.h"

#include <QCommandLineOption>

namespace {

// Options every command takes.
const QStringList GlobalOptions = {QStringLiteral("data"), QStringLiteral("help")};

const QList<CliOption> &allOptions()
{
    static const QList<CliOption> options = {
        {{QStringLiteral("data"), QStringLiteral("folder"), QStringLiteral("f")}, QStringLiteral("DIR"),
         QStringLiteral("folder of TimeTable.mdb (default: the current folder)"), QString()},
        {{QStringLiteral("help"), QStringLiteral("h")}, QString(),
         QStringLiteral("this help; after a command, the command's options"), QString()},
        {{QStringLiteral("size")}, QStringLiteral("SIZE"),
         QStringLiteral("the sample school: small, medium, large or tight (default small)"), QStringLiteral("small")},
        {{QStringLiteral("seed")}, QStringLiteral("N"), QStringLiteral("seed of the sample school (default 1)"),
         QStringLiteral("1")},
        {{QStringLiteral("uniform")}, QStringLiteral("yes|no"),
         QStringLiteral("uniform period required, when Phase I has no settings saved (default yes)"),
         QStringLiteral("yes")},
        {{QStringLiteral("uniform-remainder-cap")}, QStringLiteral("N"),
         QStringLiteral("attempts before Phase I gives up a uniform remainder unit (default 200000)"),
         QStringLiteral("200000")},
        {{QStringLiteral("fix-presses")}, QStringLiteral("N"),
         QStringLiteral("presses of Fix Balance Periods at most (default 3)"), QStringLiteral("3")},
        {{QStringLiteral("complete")}, QString(),
         QStringLiteral("complete each phase's balance instead of pressing Fix Balance Periods"), QString()},
        {{QStringLiteral("time-limit")}, QStringLiteral("S"),
         QStringLiteral("seconds a completion may search (default 10)"), QStringLiteral("10")},
        {{QStringLiteral("login")}, QStringLiteral("ID"), QStringLiteral("user add: the login ID"), QString()},
        {{QStringLiteral("all-privileges")}, QString(), QStringLiteral("user add: grant every screen and button"),
         QString()},
        {{QStringLiteral("list")}, QString(), QStringLiteral("report: name every report and what it asks for"), QString()},
        {{QStringLiteral("format")}, QStringLiteral("txt|xlsx|pdf"),
         QStringLiteral("report: text file, spreadsheet or printed report"), QString()},
        {{QStringLiteral("out")}, QStringLiteral("FILE"), QStringLiteral("report: the file to write"), QString()},
        {{QStringLiteral("class")}, QStringLiteral("C"), QStringLiteral("report: class, by name or code"), QString()},
        {{QStringLiteral("division")}, QStringLiteral("D"), QStringLiteral("report: division of the class, by name or code"),
         QString()},
        {{QStringLiteral("teacher")}, QStringLiteral("T"), QStringLiteral("report: teacher, by name, short name or code"),
         QString()},
        {{QStringLiteral("subject")}, QStringLiteral("S"), QStringLiteral("report: subject, by name, short name or code"),
         QString()},
        {{QStringLiteral("day")}, QStringLiteral("D"), QStringLiteral("report: day, by name or day number"), QString()},
        {{QStringLiteral("period")}, QStringLiteral("P"), QStringLiteral("report: period, by name or number"), QString()},
        {{QStringLiteral("from")}, QStringLiteral("DATE"), QStringLiteral("report: first date, YYYY-MM-DD"), QString()},
        {{QStringLiteral("to")}, QStringLiteral("DATE"), QStringLiteral("report: last date, YYYY-MM-DD"), QString()},
        {{QStringLiteral("order")}, QStringLiteral("ORDER"),
         QStringLiteral("report: sort or grouping, by its option's words (TeacherName, Classwise, ...)"), QString()},
        {{QStringLiteral("day-wise")}, QString(), QStringLiteral("report: the day-wise text file, not the full week"),
         QString()},
        {{QStringLiteral("without-separator")}, QString(), QStringLiteral("report: the text file without separators"),
         QString()},
    };
    return options;
}

// "-f, --data, --folder DIR": the names as typed, the short one first, and the value.
QString synopsis(const CliOption &option)
{
    QStringList shorts, longs;
    for (const QString &name : option.names)
        (name.size() == 1 ? shorts : longs) << (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
    longs.sort();
    const QString names = (shorts + longs).join(QStringLiteral(", "));
    return option.valueName.isEmpty() ? names : names + QLatin1Char(' ') + option.valueName;
}

// Two columns, one line a row, the second column lined up.
QString table(const QList<QPair<QString, QString>> &rows)
{
    qsizetype width = 0;
    for (const auto &[left, right] : rows)
        width = qMax(width, left.size());
    QString text;
    for (const auto &[left, right] : rows)
        text += QStringLiteral("  ") + left.leftJustified(width + 2) + right + QLatin1Char('\n');
    return text;
}

const QString Refused = QStringLiteral("bad usage, or refused before anything ran (no store, no school, a bad option)");

QString exitCodes(CliCommand::Codes codes)
{
    switch (codes) {
    case CliCommand::Codes::Placement:
        return table({{QStringLiteral("0"), QStringLiteral("every allotted period is placed")},
                      {QStringLiteral("1"), QStringLiteral("periods stay open; the last line says how many")},
                      {QStringLiteral("2"), Refused}});
    case CliCommand::Codes::Check:
        return table({{QStringLiteral("0"), QStringLiteral("no rule is broken")},
                      {QStringLiteral("1"), QStringLiteral("rule breaks, each listed")},
                      {QStringLiteral("2"), Refused}});
    case CliCommand::Codes::Plain:
        break;
    }
    return table({{QStringLiteral("0"), QStringLiteral("done")}, {QStringLiteral("2"), Refused}});
}

// The key of the option named `name` as typed ("f" gives "data"); empty for none.
QString keyOf(const QString &name)
{
    for (const CliOption &option : allOptions())
        if (option.names.contains(name))
            return option.names.first();
    return QString();
}

QString usage(const QString &command, const QString &arguments)
{
    return QStringLiteral("Usage: ttcli [--data DIR] ") + command + (arguments.isEmpty() ? QString() : QLatin1Char(' ') + arguments)
        + QLatin1Char('\n');
}

}

namespace CommandTable {

const QList<CliCommand> &commands()
{
    using Codes = CliCommand::Codes;
    static const QList<CliCommand> list = {
        {QStringLiteral("init"), QString(), QStringLiteral("make the folder and the store files when missing"), {},
         Codes::Plain},
        {QStringLiteral("status"), QString(), QStringLiteral("print the school's calendar and row counts"), {},
         Codes::Plain},
        {QStringLiteral("sample"), QStringLiteral("[--size SIZE] [--seed N]"),
         QStringLiteral("write a sample school into a new store"),
         {QStringLiteral("size"), QStringLiteral("seed")}, Codes::Plain},
        {QStringLiteral("phase1"), QStringLiteral("[--uniform yes|no] [--uniform-remainder-cap N]"),
         QStringLiteral("Auto Generation Phase I"),
         {QStringLiteral("uniform"), QStringLiteral("uniform-remainder-cap")}, Codes::Placement},
        {QStringLiteral("phase2"), QString(), QStringLiteral("Auto Generation Phase II"), {}, Codes::Placement},
        {QStringLiteral("fix"), QString(), QStringLiteral("press Fix Balance Periods once"), {}, Codes::Placement},
        {QStringLiteral("generate"), QStringLiteral("[options]"),
         QStringLiteral("Phase I, Phase II, then Fix Balance Periods while periods stay open (or --complete)"),
         {QStringLiteral("uniform"), QStringLiteral("uniform-remainder-cap"), QStringLiteral("fix-presses"),
          QStringLiteral("complete"), QStringLiteral("time-limit")},
         Codes::Placement},
        {QStringLiteral("pending"), QString(), QStringLiteral("list the periods still open"), {}, Codes::Plain},
        {QStringLiteral("complete"), QStringLiteral("[--time-limit S]"),
         QStringLiteral("place the current phase's open periods by moving generated ones"),
         {QStringLiteral("time-limit")}, Codes::Placement},
        {QStringLiteral("check"), QString(), QStringLiteral("list every break of the placement rules in the timetable"),
         {}, Codes::Check},
        {QStringLiteral("user"), QStringLiteral("add NAME --login ID [--all-privileges] | list"),
         QStringLiteral("add a user with a login (password on standard input), or list the users"),
         {QStringLiteral("login"), QStringLiteral("all-privileges")}, Codes::Plain},
        {QStringLiteral("report"), QStringLiteral("NAME --format txt|xlsx|pdf --out FILE [selections] | --list"),
         QStringLiteral("write a report to a file, as its screen would; --list names the reports"),
         {QStringLiteral("list"), QStringLiteral("format"), QStringLiteral("out"), QStringLiteral("class"),
          QStringLiteral("division"), QStringLiteral("teacher"), QStringLiteral("subject"), QStringLiteral("day"),
          QStringLiteral("period"), QStringLiteral("from"), QStringLiteral("to"), QStringLiteral("order"),
          QStringLiteral("day-wise"), QStringLiteral("without-separator")},
         Codes::Plain},
    };
    return list;
}

const CliOption &option(const QString &key)
{
    for (const CliOption &option : allOptions())
        if (option.names.first() == key)
            return option;
    Q_UNREACHABLE();
}

QString overview()
{
    QList<QPair<QString, QString>> commandRows, optionRows;
    for (const CliCommand &command : commands())
        commandRows.append({command.name, command.summary});
    for (const QString &key : GlobalOptions)
        optionRows.append({synopsis(option(key)), option(key).description});
    return usage(QStringLiteral("COMMAND"), QStringLiteral("[options]"))
        + QStringLiteral("Zarlo-TimeTable headless tool: one command a run on the store in DIR.\n\nCommands:\n")
        + table(commandRows) + QStringLiteral("\nOptions:\n") + table(optionRows)
        + QStringLiteral("\nttcli COMMAND --help lists the options of a command.\n\nExit codes:\n")
        + table({{QStringLiteral("0"), QStringLiteral("phase1, phase2, fix, generate, complete: every allotted period is "
                                                      "placed; check: no rule is broken; the others: done")},
                 {QStringLiteral("1"), QStringLiteral("phase1, phase2, fix, generate, complete: periods stay open, the "
                                                      "last line says how many; check: rule breaks, each listed")},
                 {QStringLiteral("2"), Refused}});
}

QString help(const CliCommand &command)
{
    QList<QPair<QString, QString>> rows;
    for (const QString &key : command.options + GlobalOptions)
        rows.append({synopsis(option(key)), option(key).description});
    const QString sentence = command.summary.left(1).toUpper() + command.summary.mid(1) + QLatin1Char('.');
    return usage(command.name, command.arguments) + sentence + QStringLiteral("\n\nOptions:\n") + table(rows)
        + QStringLiteral("\nExit codes:\n") + exitCodes(command.codes);
}

const CliCommand *parse(QCommandLineParser &parser, const QStringList &arguments, QTextStream &out, QTextStream &err,
                        int *exitCode)
{
    *exitCode = ExitCode::Refused;
    for (const CliOption &option : allOptions()) {
        QCommandLineOption parsed(option.names, option.description);
        if (!option.valueName.isEmpty()) {
            parsed.setValueName(option.valueName);
            parsed.setDefaultValue(option.defaultValue);
        }
        parser.addOption(parsed);
    }
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("the command"));
    if (!parser.parse(arguments)) {
        err << parser.errorText() << "\nttcli --help lists the commands and their options\n";
        return nullptr;
    }
    const QStringList words = parser.positionalArguments();
    const CliCommand *command = nullptr;
    for (const CliCommand &candidate : commands())
        if (!words.isEmpty() && candidate.name == words.first())
            command = &candidate;
    if (!words.isEmpty() && !command) {
        err << "Unknown command: " << words.first() << "\nttcli --help lists the commands\n";
        return nullptr;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        out << (command ? help(*command) : overview());
        *exitCode = ExitCode::Done;
        return nullptr;
    }
    if (!command) {
        err << overview();
        return nullptr;
    }
    for (const QString &name : parser.optionNames()) {
        const QString key = keyOf(name);
        if (!GlobalOptions.contains(key) && !command->options.contains(key)) {
            err << (name.size() == 1 ? "-" : "--") << name << " is not an option of " << command->name
                << "\nttcli " << command->name << " --help lists its options\n";
            return nullptr;
        }
    }
    if (command->name != QLatin1String("user") && command->name != QLatin1String("report") && words.size() > 1) {
        err << command->name << " takes no word after it: " << words.mid(1).join(QLatin1Char(' ')) << '\n'
            << usage(command->name, command->arguments);
        return nullptr;
    }
    return command;
}

}
