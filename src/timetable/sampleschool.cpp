#include "sampleschool.h"
#include "routines.h"
#include "sql.h"
#include "storeerror.h"
#include "transaction.h"

#include <QDate>
#include <QSet>
#include <QSqlQuery>
#include <algorithm>
#include <random>

namespace SampleSchool {
namespace {

struct Shape
{
    int days, periodsPerDay, lastDay, morning;
    QStringList classes;
    int divisions;
    double loadShare;   // the share of the week a teacher is given, before rounding to whole classes
    int targetTeachers; // when set, the share is chosen to come near this many teachers
};

Shape shapeOf(Size size)
{
    switch (size) {
    case Size::Small:
        return {5, 7, 5, 4, {"VI", "VII", "VIII"}, 2, 0.75, 0};
    case Size::Medium:
        return {6, 7, 5, 4, {"I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX", "X"}, 3, 0.8, 0};
    case Size::Large:
        return {6, 8, 8, 4, {"I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX", "X", "XI", "XII"}, 10, 0.6, 200};
    }
    return {};
}

struct Subject
{
    const char *name;
    const char *shortName;
};

// Subject codes are positions in this list + 1.
const Subject Subjects[] = {
    {"English", "ENG"},        {"Malayalam", "MAL"},         {"Hindi", "HIN"},          {"Mathematics", "MAT"},
    {"Environmental Studies", "EVS"}, {"Science", "SCI"},   {"Social Science", "SOC"}, {"Physics", "PHY"},
    {"Chemistry", "CHE"},      {"Biology", "BIO"},           {"Computer Science", "CSC"}, {"Physical Education", "PED"},
    {"Art Education", "ART"},  {"Music", "MUS"},             {"Work Experience", "WEX"}, {"Library", "LIB"},
    {"Moral Science", "MSC"},  {"Sanskrit", "SAN"},
};
enum SubjectId { English = 1, Malayalam, Hindi, Maths, Evs, Science, Social, Physics, Chemistry, Biology, Computer,
                 PhysicalEducation, Art, Music, WorkExperience, Library, MoralScience, Sanskrit };

// What a class level studies, by weight: the week is shared out in these proportions. The first subject is
// the class teacher's.
int gradeOf(int level, int classCount)
{
    return classCount <= 3 ? level + 6 : level + 1; // the school's own numbering of the class
}

QList<QPair<int, int>> curriculum(int level, int classCount)
{
    const int grade = gradeOf(level, classCount);
    if (grade <= 4)
        return {{English, 8}, {Malayalam, 6}, {Hindi, 4}, {Maths, 8}, {Evs, 6}, {Art, 2}, {Music, 2},
                {PhysicalEducation, 3}, {Library, 1}, {MoralScience, 1}};
    if (grade <= 8)
        return {{English, 7}, {Malayalam, 5}, {Hindi, 4}, {Maths, 7}, {Science, 6}, {Social, 5}, {Computer, 2},
                {PhysicalEducation, 2}, {Art, 2}, {WorkExperience, 1}, {Library, 1}};
    if (grade <= 10)
        return {{English, 6}, {Malayalam, 4}, {Hindi, 3}, {Maths, 7}, {Physics, 4}, {Chemistry, 4}, {Biology, 4},
                {Social, 6}, {WorkExperience, 2}, {PhysicalEducation, 2}, {Art, 1}};
    return {{English, 6}, {Physics, 8}, {Chemistry, 8}, {Maths, 8}, {Biology, 8}, {PhysicalEducation, 2},
            {Malayalam, 3}};
}

// Shares `week` periods out by weight (largest remainder), each subject at least one; the first subject
// gets at least `firstAtLeast` so that its teacher can hold a period every day.
QList<QPair<int, int>> shareOut(const QList<QPair<int, int>> &weights, int week, int firstAtLeast)
{
    int total = 0;
    for (const auto &w : weights)
        total += w.second;
    QList<QPair<int, int>> periods;
    QList<QPair<double, int>> remainders;
    int given = 0;
    for (int i = 0; i < weights.size(); ++i) {
        const double exact = double(week) * weights[i].second / total;
        const int whole = qMax(1, int(exact));
        periods.append({weights[i].first, whole});
        remainders.append({exact - int(exact), i});
        given += whole;
    }
    std::stable_sort(remainders.begin(), remainders.end(), [](auto a, auto b) { return a.first > b.first; });
    for (int i = 0; given < week; i = (i + 1) % remainders.size(), ++given)
        ++periods[remainders[i].second].second;
    while (given > week) { // the "at least one" rule may overshoot on a short week
        auto largest = std::max_element(periods.begin(), periods.end(), [](auto a, auto b) { return a.second < b.second; });
        --largest->second;
        --given;
    }
    while (periods[0].second < firstAtLeast) {
        auto largest = std::max_element(periods.begin() + 1, periods.end(),
                                        [](auto a, auto b) { return a.second < b.second; });
        --largest->second;
        ++periods[0].second;
    }
    return periods;
}

struct Demand
{
    int classCode;
    int division;
    int subject;
    int periods;
    int teacher = 0;
    bool generatedCC = false; // a Combined Class row for a further class division
};

struct Teacher
{
    int code;
    int subject;
    int load = 0; // allotted periods: generated Combined Class rows do not count
    QString name;
    QString shortName;
    int salutation;
};

const char *const FemaleNames[] = {"Anitha", "Beena", "Deepa", "Divya", "Geetha", "Jaya", "Lakshmi", "Latha",
                                   "Mary", "Meera", "Nisha", "Priya", "Rekha", "Sheela", "Sindhu", "Sreeja",
                                   "Suja", "Susan", "Swapna", "Usha", "Asha", "Bindu", "Remya", "Shobha"};
const char *const MaleNames[] = {"Abraham", "Ajith", "Anil", "Arun", "Biju", "George", "Hari", "Jacob",
                                 "Jose", "Krishnan", "Manoj", "Mathew", "Mohan", "Rajesh", "Ravi", "Sabu",
                                 "Suresh", "Thomas", "Vinod", "Varghese", "Dinesh", "Gopan", "Shaji", "Paul"};
const char *const Surnames[] = {"Nair", "Menon", "Pillai", "Kurian", "Joseph", "Varghese", "Thomas", "Das",
                                "Kumar", "Iyer", "Chacko", "Raj", "Philip", "Warrier", "Namboothiri", "Mathew",
                                "Antony", "Krishnan", "Paul", "Sebastian", "Abraham", "Jacob", "Rao", "Shenoy"};

class Builder
{
public:
    Builder(const QSqlDatabase &db, Size size, quint32 seed) : m_sql(db), m_db(db), m_shape(shapeOf(size)), m_random(seed) {}

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
        planDemands();
        planCombinedClasses();
        assignTeachers();
        planCombinedTeachers();
        writeTeachers();
        writeAllotments();
        writeCombinedSubjects();
        writeClassTeachers();
        transaction.commit();
        m_summary.periodsPerWeek = m_week;
        return m_summary;
    }

private:
    void writeCalendar()
    {
        m_week = (m_shape.days - 1) * m_shape.periodsPerDay + qMin(m_shape.lastDay, m_shape.periodsPerDay);
        m_sql.run(QStringLiteral("INSERT INTO SchoolSetup VALUES (?, ?, ?, 1, ?, ?, ?, ?, ?, 1)"),
                  {QStringLiteral("St. Thomas Higher Secondary School"), QStringLiteral("Church Road"),
                   QStringLiteral("Kaloor"), QStringLiteral("682017"), m_shape.days, m_shape.periodsPerDay,
                   m_shape.lastDay, m_shape.morning});
        for (int p = 1; p <= m_shape.periodsPerDay; ++p)
            m_sql.run(QStringLiteral("INSERT INTO PeriodDuration VALUES (?, ?, ?)"),
                      {p, QStringLiteral("P%1").arg(p), p <= m_shape.morning ? 45 : 40});
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
        for (int c = 0; c < m_shape.classes.size(); ++c) {
            const int classCode = c + 1;
            m_sql.run(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (?, ?, ?, ?)"),
                      {classCode, m_shape.classes[c], m_shape.divisions, classCode});
            for (int d = 1; d <= m_shape.divisions; ++d) {
                m_sql.run(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (?, ?, ?)"),
                          {classCode, QString(QChar(u'A' + d - 1)), d});
                ++m_summary.classDivisions;
            }
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

    // The top class's elective: one division of each pair takes the first subject while the other takes the
    // second in the same periods (Biology or Computer Science; Hindi or Sanskrit below class IX).
    QPair<int, int> elective() const
    {
        const int top = int(m_shape.classes.size()) - 1;
        return gradeOf(top, top + 1) >= 9 ? qMakePair(int(Biology), int(Computer)) : qMakePair(int(Hindi), int(Sanskrit));
    }

    // Every class division's week, shared out among its subjects.
    void planDemands()
    {
        const int classCount = int(m_shape.classes.size());
        const QPair<int, int> choice = elective();
        for (int c = 0; c < classCount; ++c) {
            const QList<QPair<int, int>> periods = shareOut(curriculum(c, classCount), m_week, m_shape.days);
            for (int d = 1; d <= m_shape.divisions; ++d) {
                for (const auto &[subject, count] : periods) {
                    const bool paired = c == classCount - 1 && d % 2 == 0;
                    m_demands.append({c + 1, d, paired && subject == choice.first ? choice.second : subject, count});
                }
            }
        }
    }

    // Physical Education of divisions A and B of some classes is taught to both together: B's row will be
    // generated from A's, so B's own demand leaves the list.
    void planCombinedClasses()
    {
        const int groups = m_shape.classes.size() <= 3 ? 1 : (m_shape.divisions >= 10 ? 6 : 2);
        for (int g = 0; g < groups && g < m_shape.classes.size(); ++g) {
            const int classCode = int(m_shape.classes.size()) - 1 - g;
            for (Demand &demand : m_demands)
                if (demand.classCode == classCode && demand.division == 2 && demand.subject == PhysicalEducation)
                    demand.generatedCC = true;
            m_combinedClasses.append(classCode);
        }
    }

    int shareFor(const QHash<int, int> &demandBySubject) const
    {
        if (m_shape.targetTeachers == 0)
            return qMax(1, int(m_week * m_shape.loadShare));
        // The smallest load that keeps the staff within the target.
        for (int load = m_week / 3; load <= m_week; ++load) {
            int teachers = 0;
            for (int demand : demandBySubject)
                teachers += (demand + load - 1) / load;
            if (teachers <= m_shape.targetTeachers)
                return load;
        }
        return m_week;
    }

    // Each subject gets as many teachers as its periods need at the planned load; each class division's
    // subject goes to the subject's least loaded teacher, so teachers share the levels evenly.
    void assignTeachers()
    {
        QHash<int, int> demandBySubject;
        for (const Demand &demand : m_demands)
            if (!demand.generatedCC)
                demandBySubject[demand.subject] += demand.periods;
        const int load = shareFor(demandBySubject);
        QList<int> subjects = demandBySubject.keys();
        std::sort(subjects.begin(), subjects.end());
        for (int subject : subjects) {
            const int count = (demandBySubject[subject] + load - 1) / load;
            QList<int> pool;
            for (int i = 0; i < count; ++i)
                pool << newTeacher(subject);
            for (Demand &demand : m_demands) {
                if (demand.subject != subject || demand.generatedCC)
                    continue;
                auto least = std::min_element(pool.begin(), pool.end(), [&](int a, int b) {
                    return m_teachers[a].load < m_teachers[b].load;
                });
                if (m_teachers[*least].load + demand.periods > m_week) {
                    pool << newTeacher(subject);
                    least = pool.end() - 1;
                }
                demand.teacher = m_teachers[*least].code;
                m_teachers[*least].load += demand.periods;
            }
        }
        // The generated Combined Class rows follow their main row's teacher.
        for (Demand &demand : m_demands) {
            if (!demand.generatedCC)
                continue;
            for (const Demand &main : std::as_const(m_demands))
                if (main.classCode == demand.classCode && main.division == 1 && main.subject == demand.subject)
                    demand.teacher = main.teacher;
        }
    }

    // In one division of some middle classes, Art is taught with a Music teacher beside the Art teacher.
    void planCombinedTeachers()
    {
        const int groups = m_shape.classes.size() <= 3 ? 1 : (m_shape.divisions >= 10 ? 4 : 2);
        int made = 0;
        for (const Demand &demand : std::as_const(m_demands)) {
            if (made == groups)
                break;
            if (demand.subject != Art || demand.division != 1 || hasSubject(demand.classCode, 1, Music))
                continue;
            int music = -1;
            for (int i = 0; i < m_teachers.size(); ++i)
                if (m_teachers[i].subject == Music && m_teachers[i].load + demand.periods <= m_week
                    && (music < 0 || m_teachers[i].load < m_teachers[music].load))
                    music = i;
            if (music < 0)
                music = newTeacher(Music);
            m_teachers[music].load += demand.periods;
            m_combinedTeachers.append({demand, m_teachers[music].code});
            ++made;
        }
    }

    bool hasSubject(int classCode, int division, int subject) const
    {
        return std::any_of(m_demands.cbegin(), m_demands.cend(), [&](const Demand &d) {
            return d.classCode == classCode && d.division == division && d.subject == subject;
        });
    }

    int newTeacher(int subject)
    {
        Teacher teacher;
        teacher.code = int(m_teachers.size()) + 1;
        teacher.subject = subject;
        for (;;) {
            const bool female = m_random() % 5 < 3;
            const QString first = QString::fromLatin1(female ? FemaleNames[m_random() % std::size(FemaleNames)]
                                                             : MaleNames[m_random() % std::size(MaleNames)]);
            const QString last = QString::fromLatin1(Surnames[m_random() % std::size(Surnames)]);
            teacher.name = first + QLatin1Char(' ') + last;
            if (m_names.contains(teacher.name.toUpper())) {
                const QChar initial(u'A' + int(m_random() % 26));
                teacher.name = first + QLatin1Char(' ') + initial + QStringLiteral(". ") + last;
            }
            if (m_names.contains(teacher.name.toUpper()))
                continue;
            teacher.salutation = female ? (m_random() % 2 ? 2 : 3) : 1;
            if (m_random() % 20 == 0)
                teacher.salutation = 4;
            teacher.shortName = shortNameFor(first, last);
            break;
        }
        m_names.insert(teacher.name.toUpper());
        m_teachers.append(teacher);
        return int(m_teachers.size()) - 1;
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
        for (const Teacher &teacher : std::as_const(m_teachers)) {
            const QDate born = today.addYears(-25 - int(m_random() % 30)).addDays(-int(m_random() % 365));
            const QDate joined = born.addYears(23 + int(m_random() % 5));
            const bool married = m_random() % 4 != 0;
            const QVariant wedding = married ? QVariant(born.addYears(24 + int(m_random() % 6)).toString(Qt::ISODate))
                                             : QVariant();
            const int spare = m_week - teacher.load >= 3 ? 2 + int(m_random() % 2) : m_week - teacher.load;
            const QString subject = QString::fromLatin1(Subjects[teacher.subject - 1].name);
            const QString degree = teacher.subject == PhysicalEducation ? QStringLiteral("B.P.Ed")
                : teacher.subject <= Evs || teacher.subject >= Art ? QStringLiteral("B.A., B.Ed")
                                                                    : QStringLiteral("M.Sc., B.Ed");
            m_sql.run(QStringLiteral("INSERT INTO TeacherMaster VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
                                     "?, ?, ?, 0, 0, 0, 0)"),
                      {teacher.code, teacher.salutation, teacher.name, teacher.shortName,
                       born.toString(Qt::ISODate), married ? QStringLiteral("M") : QStringLiteral("S"), wedding,
                       joined.toString(Qt::ISODate), QStringLiteral("K. ") + QString::fromLatin1(Surnames[m_random() % std::size(Surnames)]),
                       QStringLiteral("House No. %1").arg(10 + m_random() % 400), QStringLiteral("Ward %1").arg(1 + m_random() % 30),
                       1 + int(m_random() % 5), QStringLiteral("6820%1").arg(10 + m_random() % 80),
                       QStringLiteral("98470%1").arg(10000 + m_random() % 89999), 1 + int(m_random() % 8),
                       degree + QStringLiteral(" (") + subject + QLatin1Char(')'), teacher.load + spare,
                       teacher.code});
        }
        m_summary.teachers = int(m_teachers.size());
    }

    // Allotments are entered teacher by teacher, as the office enters them.
    void writeAllotments()
    {
        for (const Teacher &teacher : std::as_const(m_teachers)) {
            for (const Demand &demand : std::as_const(m_demands)) {
                if (demand.teacher != teacher.code || demand.generatedCC)
                    continue;
                m_sql.run(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, '', '', '', 0, 0, 0, "
                                         "'', '')"),
                          {teacher.code, demand.classCode, demand.division, demand.subject, demand.periods});
                ++m_summary.allotments;
            }
        }
        for (int classCode : std::as_const(m_combinedClasses)) {
            const int groupNo = NextGroupNo(m_db, QStringLiteral("CC"));
            for (const Demand &demand : std::as_const(m_demands)) {
                if (demand.classCode != classCode || demand.subject != PhysicalEducation)
                    continue;
                if (demand.division == 1)
                    m_sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CC = 'CC', CCGroupNo = ? WHERE "
                                             "TeacherCode = ? AND ClassCode = ? AND DivisionCode = 1 AND SubjectCode = ?"),
                              {groupNo, demand.teacher, classCode, demand.subject});
                else if (demand.generatedCC) {
                    m_sql.run(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, '', 'CC', '', 0, ?, "
                                             "0, 'Y', '')"),
                              {demand.teacher, classCode, demand.division, demand.subject, demand.periods, groupNo});
                    ++m_summary.allotments;
                }
            }
            ++m_summary.combinedClassGroups;
        }
        for (const auto &[main, addedTeacher] : std::as_const(m_combinedTeachers)) {
            const int groupNo = NextGroupNo(m_db, QStringLiteral("CT"));
            m_sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CT = 'CT', CTGroupNo = ? WHERE TeacherCode = ? AND "
                                     "ClassCode = ? AND DivisionCode = ? AND SubjectCode = ?"),
                      {groupNo, main.teacher, main.classCode, main.division, main.subject});
            m_sql.run(QStringLiteral("INSERT INTO WorkAllotmentEntry VALUES (?, ?, ?, ?, ?, '', '', 'CT', 0, 0, ?, '', "
                                     "'Y')"),
                      {addedTeacher, main.classCode, main.division, int(Music), main.periods, groupNo});
            ++m_summary.allotments;
            ++m_summary.combinedTeacherGroups;
        }
    }

    // The top class's elective pairs: the first subject of one division with the second of the next.
    void writeCombinedSubjects()
    {
        const int top = int(m_shape.classes.size());
        const QPair<int, int> choice = elective();
        for (int d = 1; d + 1 <= m_shape.divisions; d += 2) {
            const int groupNo = NextGroupNo(m_db, QStringLiteral("CP"));
            m_sql.run(QStringLiteral("UPDATE WorkAllotmentEntry SET CP = 'CP', CPGroupNo = ? WHERE ClassCode = ? AND "
                                     "((DivisionCode = ? AND SubjectCode = ?) OR (DivisionCode = ? AND SubjectCode = ?))"),
                      {groupNo, top, d, choice.first, d + 1, choice.second});
            ++m_summary.combinedSubjectGroups;
        }
    }

    // Each division's class teacher takes its first period every day: the teacher of a subject with a
    // period a day, in no group, and not yet class teacher elsewhere.
    void writeClassTeachers()
    {
        QSqlQuery rows = m_sql.run(QStringLiteral(
            "SELECT w.ClassCode, w.DivisionCode, w.TeacherCode, w.SubjectCode FROM WorkAllotmentEntry w "
            "JOIN ClassDivisionMaster c ON c.ClassCode = w.ClassCode "
            "WHERE w.NoOfSectionPeriods >= ? AND w.CPGroupNo = 0 AND w.CCGroupNo = 0 AND w.CTGroupNo = 0 "
            "AND (w.CCSystem IS NULL OR w.CCSystem = '') AND (w.CTSystem IS NULL OR w.CTSystem = '') "
            "ORDER BY c.ClassOrder, w.DivisionCode, w.NoOfSectionPeriods DESC, w.SubjectCode"),
            {m_shape.days});
        QSet<QPair<int, int>> done;
        QSet<int> taken;
        QList<QList<int>> chosen;
        while (rows.next()) {
            const QPair<int, int> division(rows.value(0).toInt(), rows.value(1).toInt());
            const int teacher = rows.value(2).toInt();
            if (done.contains(division) || taken.contains(teacher))
                continue;
            done.insert(division);
            taken.insert(teacher);
            chosen.append({teacher, division.first, division.second, rows.value(3).toInt()});
        }
        rows = QSqlQuery();
        for (const QList<int> &c : std::as_const(chosen))
            m_sql.run(QStringLiteral("UPDATE TeacherMaster SET ClassCode = ?, DivisionCode = ?, SubjectCode = ?, "
                                     "PeriodCode = 1 WHERE TeacherCode = ?"),
                      {c[1], c[2], c[3], c[0]});
        m_summary.classTeachers = int(chosen.size());
    }

    Sql m_sql;
    QSqlDatabase m_db;
    Shape m_shape;
    std::mt19937 m_random;
    int m_week = 0;
    QList<Demand> m_demands;
    QList<Teacher> m_teachers;
    QList<int> m_combinedClasses;
    QList<QPair<Demand, int>> m_combinedTeachers;
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
    else
        return false;
    return true;
}

Summary build(const QSqlDatabase &db, Size size, quint32 seed)
{
    return Builder(db, size, seed).run();
}

}
