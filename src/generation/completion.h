#pragma once
#include "completionmodel.h"

#include <QElapsedTimer>
#include <functional>

class SplitMix;

// The search that completes a timetable: it places every open meeting, moving meetings the generator placed
// (never those placed by hand or the uniform periods) out of the way and placing them again elsewhere, each
// placement under the generator's rules. An ejection chain with a tabu memory: an open meeting takes the
// slot whose occupants cost least to move, they become open in turn, and the best state seen is kept.
// Every step is judged by the rules of the rule check, so the week never ends with more breaks than it had.
// Deterministic: the same model gives the same result.
class Completion
{
public:
    struct Settings
    {
        std::function<void(int openRows, int placedRows)> progress;
        std::function<bool()> cancelRequested;
        double timeLimitSeconds = 10;
        qint64 iterationLimit = 2000000;
    };
    struct Outcome
    {
        int openBefore = 0; // rows
        int openAfter = 0;
        int placed = 0;     // new rows standing at the end
        int moved = 0;      // stored rows standing in another slot
        bool cancelled = false;
        bool timedOut = false;
        qint64 iterations = 0;
        int breaksBefore = 0; // rule breaks of the week, by the rule check
        int breaksAfter = 0;
        bool undone = false;  // the search ended with more breaks than it began with: the week was put back
    };

    explicit Completion(CompletionModel &model) : m_model(model) {}

    Outcome run(const Settings &settings);

    // Whether the open meeting may stand at (day, period) once `evicted` are out of the way.
    bool allowed(int meeting, int day, int period, const QList<int> &evicted) const;
    // The meetings that hold a class or teacher of `meeting` at the slot; false when one of them cannot move.
    bool occupants(int meeting, int day, int period, QList<int> *found) const;

private:
    bool chain(int start, int maxSteps, SplitMix &random);
    void kick(QList<int> &open, const Settings &settings, const QElapsedTimer &clock, SplitMix &random, Outcome *outcome);
    // When only the spreading or a free-period type stands in the way, the meetings that cause it may move
    // too: the lesson's other periods that day, then one meeting of the teacher in the counted periods.
    bool widen(int meeting, int day, int period, QList<int> *evicted) const;
    int openRows() const;
    int breakCount() const;
    // Every meeting back where it stood before the completion, the new ones open.
    void restoreStart();
    int rowsOf(int meeting) const { return int(m_model.meetings()[meeting].rows.size()); }
    void undoNeedlessMoves();
    // Two meetings of the same allotments with the same Manual values: either may stand in the other's slot.
    bool sameRows(int a, int b) const;

    CompletionModel &m_model;
    int m_breaksBefore = 0;
};
