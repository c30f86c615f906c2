#pragma once
#include <QCommandLineParser>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>

// The exit codes of ttcli, the same for every command.
namespace ExitCode {
constexpr int Done = 0;    // every allotted period placed (check: no rule break; the others: done)
constexpr int Open = 1;    // periods stay open, the last line counts them (check: rule breaks listed)
constexpr int Refused = 2; // bad usage, or refused before anything ran: no store, no school, a bad option
}

// One option of ttcli: the names it answers to (the first is its key), the value it takes (none for a switch)
// and its line in the help.
struct CliOption
{
    QStringList names;
    QString valueName;
    QString description;
    QString defaultValue;
};

// One command: the words after its name, its line in the overview, the options it takes (by key) and what
// its exit codes say.
struct CliCommand
{
    enum class Codes { Placement, Check, Plain };
    QString name;
    QString arguments;
    QString summary;
    QStringList options;
    Codes codes = Codes::Plain;
};

// Every command and option of ttcli, parsed and explained from one table.
namespace CommandTable {

const QList<CliCommand> &commands();
const CliOption &option(const QString &key);

// Reads the command line into `parser`. Gives the command to run, or nullptr with `*exitCode` set when the run
// ends here: the help was asked for (printed to `out`, code 0) or the line is wrong (said on `err`, code 2).
const CliCommand *parse(QCommandLineParser &parser, const QStringList &arguments, QTextStream &out,
                        QTextStream &err, int *exitCode);

QString overview();                       // ttcli --help
QString help(const CliCommand &command);  // ttcli COMMAND --help

}
