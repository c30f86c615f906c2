#pragma once
#include <QCommandLineParser>
#include <QSqlDatabase>
#include <QString>
#include <QTextStream>

// The settings of the generation commands, from their options.
struct GenerationOptions
{
    QString uniform = QStringLiteral("YES");
    int fixPresses = 3;
    qint64 cap = 200000;
    bool complete = false; // generate: complete each phase's balance instead of pressing Fix Balance Periods
    double timeLimit = 10; // seconds a completion may search
};

// Reads the options into `options`; false, with the reason on `err`, for a value out of range.
bool readGenerationOptions(const QCommandLineParser &parser, GenerationOptions *options, QTextStream &err);

// phase1, phase2, fix, generate, complete and pending over the store. The placement commands end with the line
// "Periods placed: P of T, open: O, seconds: S", counted from the store, and give its exit code: 0 when nothing
// is open, 1 when periods are; 2 when the school is not set up.
int runGeneration(const QString &command, const QSqlDatabase &db, const GenerationOptions &options, QTextStream &out,
                  QTextStream &err);

// check: every break of the placement rules, one a line, then their count; 0 without a break, 1 with.
int checkRules(const QSqlDatabase &db, QTextStream &out);
