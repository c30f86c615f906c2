#include "sampleschool.h"
#include "routines.h"
#include "sampleplan.h"
#include "sql.h"
#include "storeerror.h"
#include "transaction.h"

#include <QDate>
#include <QSet>
#include <random>

namespace SampleSchool {
namespace {

struct Subject
{
    const char *name;
    const char *shortName;
};

// In SubjectCode order.
const Subject Subjects[] = {
    {"English", "ENG"},        {"Malayalam", "MAL"},         {"Hindi", "HIN"},          {"Mathematics", "MAT"},
    {"Environmental Studies", "EVS"}, {"Science", "SCI"},   {"Social Science", "SOC"}, {"Physics", "PHY"},
    {"Chemistry", "CHE"},      {"Biology", "BIO"},           {"Computer Science", "CSC"}, {"Physical Education", "PED"},
    {"Art Education", "ART"},  {"Music", "MUS"},             {"Work Experience", "WEX"}, {"Library", "LIB"},
    {"Moral Science", "MSC"},  {"Sanskrit", "SAN"},
};
static_assert(std::size(Subjects) == SubjectCount);

const char *const FemaleNames[] = {"Anitha", "Beena", "Deepa", "Divya", "Geetha", "Jaya", "Lakshmi", "Latha",
                                   "Mary", "Meera", "Nisha", "Priya", "Rekha", "Sheela", "Sindhu", "Sreeja",
                                   "Suja", "Susan", "Swapna", "Usha", "Asha", "Bindu", "Remya", "Shobha"};
const char *const MaleNames[] = {"Abraham", "Ajith", "Anil", "Arun", "Biju", "George", "Hari", "Jacob",
                                 "Jose", "Krishnan", "Manoj", "Mathew", "Mohan", "Rajesh", "Ravi", "Sabu",
                                 "Suresh", "Thomas", "Vinod", "Varghese", "Dinesh", "Gopan", "Shaji", "Paul"};
const char *const Surnames[] = {"Nair", "Menon", "Pillai", "Kurian", "Joseph", "Varghese", "Thomas", "Das",
                                "Kumar", "Iyer", "Chacko", "Raj", "Philip", "Warrier", "Namboothiri", "Mathew",
                                "Antony", "Krishnan", "Paul", "Sebastian", "Abraham", "Jacob", "Rao", "Shenoy"};

struct Person
{
    QString name;
    QString shortName;
    int salutation = 1;
};

// Writes a plan into the store as the office would enter it, screen by screen.
class Writer
{
public:
    Writer(const QSqlDatabase &db, const Plan &plan, quint32 seed) : m_sql(db), m_db(db), m_plan(plan), m_random(seed) {}

    Summary run()
    {
        if (m_sql.scalar(QStringLiteral("SELECT COUNT(*) FROM ClassDivisionMaster WHERE ClassCode > 0")).toInt() > 0
            || m_sql.exists(QStringLiteral("SELECT 1 FROM SchoolSetup")))
            throw StoreError(QStringLiteral("The store already holds a school"));
        Transaction transaction(m_db);
        writeCalendar();
        writePlaces();
        writeClasses();
        writeSubjects();
        writeTeachers();
        writeAllotments();
        writeCombinedClasses();
        writeCombinedTeachers();
        writeCombinedSubjects();
        writeClassTeachers();
        transaction.commit();
        m_summary.periodsPerWeek = m_plan.week.periods();
        return m_summary;
    }

private:
    void writeCalendar()
    {
        const Week &w = m_plan.week;
        m_sql.run(QStringLiteral("INSERT INTO SchoolSetup VALUES (?, ?, ?, 1, ?, ?, ?, ?, ?, 1)"),
                  {QStringLiteral("St. Thomas Higher Secondary School"), QStringLiteral("Church Road"),
                   QStringLiteral("Kaloor"), QStringLiteral("682017"), w.days, w.periodsPerDay, w.lastDay, w.morning});
        for (int p = 1; p <= w.periodsPerDay; ++p)
            m_sql.run(QStringLiteral("INSERT INTO PeriodDuration VALUES (?, ?, ?)"),
                      {p, QStringLiteral("P%1").arg(p), p <= w.morning ? 45 : 40});
    }

    void writePlaces()
    {
        m_sql.run(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Kerala')"));
        m_sql.run(QStringLiteral("INSERT INTO StateMaster VALUES (2, 'Tamil Nadu')"));
        const char *const cities[] = {"Kochi", "Aluva", "Thrissur", "Kottayam"};
        for (int i = 0; i < 4; ++i)
            m_sql.run(QStringLiteral("INSERT INTO CityMaster VALUES (?, 1, ?)"), {i + 1, QString::fromLatin1(cities[i])});
        m_sql.run(QStringLiteral("INSERT INTO CityMaster VALUES (5, 2, 'Coimbatore')"));
        const char *const groups[] = {"A+", "A-", "B+", "B-", "O+", "O-", "AB+", "AB-"};
        for (int i = 0; i < 8; ++i)
            m_sql.run(QStringLiteral("INSERT INTO BloodGroupMaster VALUES (?, ?)"), {i + 1, QString::fromLatin1(groups[i])});
        // A salutation carries its own spacing: reports join it straight to the name.
        const char *const salutations[] = {"Mr. ", "Mrs. ", "Ms. ", "Dr. "};
        for (int i = 0; i < 4; ++i)
            m_sql.run(QStringLiteral("INSERT INTO SalutationMaster VALUES (?, ?)"),
                      {i + 1, QString::fromLatin1(salutations[i])});
    }

    void writeClasses()
    {
        for (int c = 0; c < m_plan.classNames.size(); ++c) {
            const int classCode = c + 1;
            m_sql.run(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (?, ?, ?, ?)"),
                      {classCode, m_plan.classNames[c], m_plan.divisionsPerClass, classCode});
        }
        for (const ClassDivision &d : m_plan.divisions) {
            m_sql.run(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (?, ?, ?)"),
                      {d.classCode, QString(QChar(u'A' + d.division - 1)), d.division});
            ++m_summary.classDivisions;
        }
    }

    void writeSubjects()
    {
        int code = 0;
        for (const Subject &subject : Subjects)
            m_sql.run(QStringLiteral("INSERT INTO SubjectMaster VALUES (?, ?, ?)"),
                      {++code, QString::fromLatin1(subject.name), QString::fromLatin1(subject.shortName)});
        m_summary.subjects = code;
    }

    Person newPerson()
    {
        Person person;
        for (;;) {
            const bool female = m_random() % 5 < 3;
            const QString first = QString::fromLatin1(female ? FemaleNames[m_random() % std::size(FemaleNames)]
                                                             : MaleNames[m_random() % std::size(MaleNames)]);
            const QString last = QString::fromLatin1(Surnames[m_random() % std::size(Surnames)]);
            person.name = first + QLatin1Char(' ') + last;
            if (m_names.contains(person.name.toUpper())) {
                const QChar initial(u'A' + int(m_random() % 26));
                person.name = first + QLatin1Char(' ') + initial + QStringLiteral(". ") + last;
            }
            if (m_names.contains(person.name.toUpper()))
                continue;
            person.salutation = female ? (m_random() % 2 ? 2 : 3) : 1;
            if (m_random() % 20 == 0)
                person.salutation = 4;
            person.shortName = shortNameFor(first, last);
            break;
        }
        m_names.insert(person.name.toUpper());
        return person;
    }

    // Three letters at most, unique: the initials, then with a digit or a third letter.
    QString shortNameFor(const QString &first, const QString &last)
    {
        const QString initials = QString(first.at(0)) + last.at(0);
        QStringList candidates = {initials};
        for (int i = 1; i <= 9; ++i)
            candidates << initials + QString::number(i);
        for (QChar c = u'A'; c <= u'Z'; c = QChar(c.unicode() + 1))
            candidates << initials + c;
        for (const QString &candidate : candidates) {
            if (!m_shortNames.contains(candidate.toUpper())) {
                m_shortNames.insert(candidate.toUpper());
                return candidate.toUpper();
            }
        }
        QString fallback;
        do
            fallback = QStringLiteral("%1").arg(m_shortNames.size() % 1000, 3, 10, QLatin1Char('0'));
        while (m_shortNames.contains(fallback));
        m_shortNames.insert(fallback);
        return fallback;
    }

    void writeTeachers()
    {
        const QDate today(2026, 6, 1);
        for (int t = 0; t < m_plan.teachers.size(); ++t) {
            const Teacher &teacher = m_plan.teachers[t];
            const Person person = newPerson();
            const QDate born = today.addYears(-25 - int(m_random() % 30)).addDays(-int(m_random() % 365));
            const QDate joined = born.addYears(23 + int(m_random() % 5));
            const bool married = m_random() % 4 != 0;
            const QVariant wedding = married ? QVariant(born.addYears(24 + int(m_random() % 6)).toString(Qt::ISODate))
                                             : QVariant();
            const QString subject = QString::fromLatin1(Subjects[teacher.subject - 1].name);
            const QString degree = teacher.subject == PhysicalEducation ? QStringLiteral("B.P.Ed")
                : teacher.subject <= Evs || teacher.subject >= Art ? QStringLiteral("B.A., B.Ed")
                                                                    : QStringLiteral("M.Sc., B.Ed");
            m_sql.run(QStringLiteral("INSERT INTO TeacherMaster VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
                                     "?, ?, ?, 0, 0, 0, 0)"),
                      {t + 1, person.salutation, person.name, person.shortName,
                       born.toString(Qt::ISODate), married ? QStringLiteral("M") : QStringLiteral("S"), wedding,
                       joined.toString(Qt::ISODate), QStringLiteral("K. ") + QString::fromLatin1(Surnames[m_random() % std::size(Surnames)]),
                       QStringLiteral("House No. %1").arg(10 + m_random() % 400), QStringLiteral("Ward %1").arg(1 + m_random() % 30),
                       1 + int(m_random() % 5), QStringLiteral("6820%1").arg(10 + m_random() % 80),
                       QStringLiteral("98470%1").arg(10000 + m_random() % 89999), 1 + int(m_random() % 8),
                       degree + QStringLiteral(" (") + subject + QLatin1Char(')'), teacher.noOfPeriods, t + 1});
        }
        m_summary.teachers = int(m_plan.teachers.size());
    }

    QVariantList keyOf(const Allotment &a) const
    {
        const ClassDivision &d = m_plan.divisions[a.division];
        return {a.teacher + 1, d.classCode, d.division, a.subject};
    }

    // Teacher by teacher, class by class, as the Work Allotment Entry screen saves them: the five columns
    // it owns, the rest left empty.
    void writeAllotments()
    {
        for (int t = 0; t < m_plan.teachers.size(); ++t) {
            for (int i = 0; i < m_plan.allotments.size(); ++i) { // allotments run in class division order
                const Allotment &a = m_plan.allotments[i];
                if (a.teacher != t || a.added())
                    continue;
                QVariantList values = keyOf(a);
                values << a.periods;
                m_sql.run(QStringLiteral("INSERT INTO WorkAllotmentEntry (TeacherCode, ClassCode, DivisionCode, "
                                         "SubjectCode, NoOfSectionPeriods) VALUES (?, ?, ?, ?, ?)"),
                          values);
                ++m_summary.allotments;
            }
        }
    }

    QList<const Group *> groupsOf(Group::Kind kind) const
    {
        QList<const Group *> groups;
        for (const Group &g : m_plan.groups)
            if (g.kind == kind)
                groups << &g;
        return groups;
    }

    // The Combined Class screen: the main row marked, a generated row for each further class division.
    void writeCombinedClasses()
    {
        for (const Group *g : groupsOf(Group::Kind::Class)) {
            const int groupNo = NextGroupNo(m_db, QStringLiteral("CC"));
            const Allotment &main = m_plan.allotments[g->allotments.first()];
            m_sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CC = 'CC', CCGroupNo = ? WHERE TeacherCode = ? "
                                     "AND ClassCode = ? AND DivisionCode = ? AND SubjectCode = ?"),
                      QVariantList{groupNo} + keyOf(main));
            for (int i : g->allotments.mid(1)) {
                const ClassDivision &d = m_plan.divisions[m_plan.allotments[i].division];
                m_sql.run(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, '', 'CC', '', 0, ?, 0, "
                                         "'Y', '')"),
                          {main.teacher + 1, d.classCode, d.division, main.subject, main.periods, groupNo});
                ++m_summary.allotments;
            }
            ++m_summary.combinedClassGroups;
        }
    }

    // The Combined Teacher screen: the main row marked, a generated row for each further teacher.
    void writeCombinedTeachers()
    {
        for (const Group *g : groupsOf(Group::Kind::Teacher)) {
            const int groupNo = NextGroupNo(m_db, QStringLiteral("CT"));
            const Allotment &main = m_plan.allotments[g->allotments.first()];
            m_sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CT = 'CT', CTGroupNo = ? WHERE TeacherCode = ? "
                                     "AND ClassCode = ? AND DivisionCode = ? AND SubjectCode = ?"),
                      QVariantList{groupNo} + keyOf(main));
            for (int i : g->allotments.mid(1)) {
                const Allotment &added = m_plan.allotments[i];
                const ClassDivision &d = m_plan.divisions[main.division];
                m_sql.run(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, '', '', 'CT', 0, 0, ?, '', "
                                         "'Y')"),
                          {added.teacher + 1, d.classCode, d.division, added.subject, main.periods, groupNo});
                ++m_summary.allotments;
            }
            ++m_summary.combinedTeacherGroups;
        }
    }

    // The Combined Subject screen: each member row marked.
    void writeCombinedSubjects()
    {
        for (const Group *g : groupsOf(Group::Kind::Subject)) {
            const int groupNo = NextGroupNo(m_db, QStringLiteral("CP"));
            for (int i : g->allotments)
                m_sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CP = 'CP', CPGroupNo = ? WHERE TeacherCode = ? "
                                         "AND ClassCode = ? AND DivisionCode = ? AND SubjectCode = ?"),
                          QVariantList{groupNo} + keyOf(m_plan.allotments[i]));
            ++m_summary.combinedSubjectGroups;
        }
    }

    // The Class Teacher Allotment screen: the four columns of the teacher, the uniform period the first.
    void writeClassTeachers()
    {
        for (int t = 0; t < m_plan.teachers.size(); ++t) {
            const Teacher &teacher = m_plan.teachers[t];
            if (teacher.classDivision < 0)
                continue;
            const ClassDivision &d = m_plan.divisions[teacher.classDivision];
            m_sql.run(QStringLiteral("UPDATE TeacherMaster SET ClassCode = ?, DivisionCode = ?, SubjectCode = ?, "
                                     "PeriodCode = ? WHERE TeacherCode = ?"),
                      {d.classCode, d.division, teacher.classSubject, 1, t + 1});
            ++m_summary.classTeachers;
        }
    }

    Sql m_sql;
    QSqlDatabase m_db;
    const Plan &m_plan;
    std::mt19937 m_random;
    QSet<QString> m_names;
    QSet<QString> m_shortNames;
    Summary m_summary;
};

}

bool parseSize(const QString &word, Size *size)
{
    const QString w = word.trimmed().toLower();
    if (w == QLatin1String("small"))
        *size = Size::Small;
    else if (w == QLatin1String("medium"))
        *size = Size::Medium;
    else if (w == QLatin1String("large"))
        *size = Size::Large;
    else if (w == QLatin1String("tight"))
        *size = Size::Tight;
    else
        return false;
    return true;
}

Summary build(const QSqlDatabase &db, Size size, quint32 seed)
{
    const Plan plan = MakePlan(size, seed);
    return Writer(db, plan, seed).run();
}

QList<WeekPeriod> plantedWeek(Size size, quint32 seed)
{
    const Plan plan = MakePlan(size, seed);
    QList<WeekPeriod> week;
    for (int i = 0; i < plan.allotments.size(); ++i) {
        const Allotment &a = plan.allotments[i];
        const ClassDivision &d = plan.divisions[a.division];
        const QString cc = a.mark == Allotment::Mark::CombinedClassAdded ? QStringLiteral("Y") : QStringLiteral("");
        const QString ct = a.mark == Allotment::Mark::CombinedTeacherAdded ? QStringLiteral("Y") : QStringLiteral("");
        for (const Slot &slot : plan.placed[i])
            week.append({d.classCode, d.division, slot.day, slot.period, a.subject, a.teacher + 1, cc, ct});
    }
    return week;
}

}
