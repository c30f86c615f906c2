#pragma once
#include "placement.h"

class MessageService;

// The class division, subject and teacher chosen on the manual screen.
struct ManualSelection
{
    int classCode = 0;
    int division = 0;
    int subject = 0;
    int teacher = 0;
    bool complete() const { return classCode > 0 && division > 0 && subject > 0; }
};

// Placing and removing periods by hand, check by check in the order the school office knows. The manual
// screen only wires its clicks to these; every question and refusal goes through the message service.
class ManualEntry
{
public:
    enum class Result {
        Nothing,  // an incomplete selection or no periods allotted: nothing happens
        Refused,  // a message said why; nothing was written (but a confirmed Modify's removal)
        Placed,
        Removed,
    };

    ManualEntry(const QSqlDatabase &db, const SchoolCalendar &calendar, MessageService &messages)
        : m_db(db), m_calendar(calendar), m_messages(messages) {}

    // A click on an empty or taken cell of the week: place the selection in the slot.
    Result place(const ManualSelection &selection, const PeriodSlot &slot);
    // A click that removes the teacher's entry in the slot (teacher grid).
    Result removeTeacherEntry(int teacher, const PeriodSlot &slot);
    // A click that removes the class division's entry in the slot (class grid).
    Result removeClassEntry(int classCode, int division, const PeriodSlot &slot);

private:
    bool beyondLastDay(const PeriodSlot &slot);
    bool confirmModify(int classCode, int division, const PeriodSlot &slot);
    Result removeEntry(int classCode, int division, int subject, const PeriodSlot &slot);

    QSqlDatabase m_db;
    const SchoolCalendar &m_calendar;
    MessageService &m_messages;
};
