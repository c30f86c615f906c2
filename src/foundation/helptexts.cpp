#include "helptexts.h"

// The texts of the help screen, one page per screen number. F1 on a screen opens the page with
// that screen's number; the tree of the help screen lists every page by its screen name, so each
// name is unique and matches the caption of the screen's menu entry.

const QList<HelpText> &helpTexts()
{
    static const QList<HelpText> texts = {
        {3, QStringLiteral("State Master"),
         QStringLiteral("Keeps the list of states that School Setup, City Master and Teacher Master choose from.\n"
                        "- Press New, type the State Name (up to 30 characters) and press Save.\n"
                        "- To change or remove a state, type part of its name in the Search box, double-click "
                        "the state in the list (or press Enter on it) and answer Yes to 'Do You Want To "
                        "Edit/Delete ?'. Then press Edit or Delete.\n"
                        "- A name cannot be entered twice; capital and small letters count as the same.\n"
                        "- A state that is still in use, for example by a city, cannot be deleted: the "
                        "database refuses and the reason is shown.\n"
                        "Cancel clears the screen and Exit closes it. Enter moves to the next field; F1 opens "
                        "this help.")},

        {4, QStringLiteral("City Master"),
         QStringLiteral("City Master keeps the cities, each under its state.\n"
                        "- Press New, choose the State Name (the button beside it adds a state), type the City "
                        "Name and press Save; you may then go on under the same state.\n"
                        "- One name may stand in two states, but not twice in the same state.\n"
                        "- To edit or delete, type in the Search box, double-click the city and answer Yes.\n"
                        "- The state of a city that is already used by another screen cannot be changed.\n"
                        "This page also covers Classwise-Working Days Setup, which lets a class work fewer "
                        "days a week than the school. Press Edit, click a class's working days cell, type "
                        "the number and press Enter, then Save. The number must be at least 1 and not more "
                        "than the school's No. Of Working Days. When a class is added or removed, every class "
                        "goes back to the school's number. Only auto generation uses these figures.")},

        {5, QStringLiteral("Blood Group Master"),
         QStringLiteral("Keeps the blood groups offered in Teacher Master.\n"
                        "- Press New, type the Blood Group Name (up to 5 characters, such as O+ or AB-) and "
                        "press Save.\n"
                        "- To change or remove a blood group, type in the Search box, double-click it in the "
                        "list and answer Yes to 'Do You Want To Edit/Delete ?'. Then press Edit or Delete.\n"
                        "- The same name cannot be entered twice; capital and small letters count as the "
                        "same.\n"
                        "- A blood group given to a teacher cannot be deleted: the database refuses and the "
                        "reason is shown.\n"
                        "Cancel clears the screen and Exit closes it. Enter moves to the next field; F1 opens "
                        "this help.")},

        {6, QStringLiteral("School Setup"),
         QStringLiteral("Describes the school. Nothing else works until it is saved: it opens by itself while "
                        "no school is set up, and it opens only when no other screen is open.\n"
                        "- Press New (or Edit) and fill School Name, Address1, State, City and PinCode.\n"
                        "- No. Of Working Days (at most 7), Periods Per Day, Periods On Last Working Day and "
                        "Periods In Morning Session; the last two may not exceed Periods Per Day. With one "
                        "working day both period figures must be equal.\n"
                        "- First Day Of The Week starts the school week.\n"
                        "- Period Details gives each period its minutes; a day may not exceed 1440 minutes.\n"
                        "Once timetable entries exist, days and periods cannot be reduced below those in use "
                        "and the first day is locked; after auto generation the morning session is locked "
                        "too. Save refuses when a teacher's working periods would exceed the new week. Exit "
                        "without a saved school offers to quit the program.")},

        {7, QStringLiteral("Class Division Entry"),
         QStringLiteral("Keeps all classes and their divisions in one grid, saved as a whole. Press New the "
                        "first time and Edit afterwards.\n"
                        "- Type the Class Name (up to 5 characters) and press Enter, then No. Of Divisions, "
                        "then the Priority Number. Divisions are named A, B, C and so on; change a name in "
                        "the division grid if needed (up to 3 characters).\n"
                        "- The Priority Number orders every class list: the highest class gets 1, so enter "
                        "classes in descending order. Giving a number moves the others down.\n"
                        "- To remove a class, type its SNo. and press Delete Row, then Save.\n"
                        "- Class names, and division names within a class, must be unique; each class needs "
                        "at least one division; there can be at most 99 classes.\n"
                        "A class or division that is used in other screens (work allotment, timetable, class "
                        "teachers, substitutes) cannot be removed, and Save tells which one.")},

        {8, QStringLiteral("Subject Master"),
         QStringLiteral("Keeps the subjects. Each has a Subject Name (up to 25 characters) and a Short Name "
                        "(up to 3 characters), which the timetables show.\n"
                        "- Press New, type both names and press Save.\n"
                        "- To change or remove a subject, type part of its name in the Search box, "
                        "double-click it and answer Yes to 'Do You Want To Edit/Delete ?'. Then press Edit "
                        "or Delete.\n"
                        "- Neither name may belong to another subject; capital and small letters count as "
                        "the same.\n"
                        "- A renamed subject keeps its Auto Generation - Phase I settings under the new name.\n"
                        "- A subject that is in use, for example in a work allotment, cannot be deleted: the "
                        "database refuses and the reason is shown.\n"
                        "Cancel clears the screen and Exit closes it. Enter moves to the next field; F1 opens "
                        "this help.")},

        {9, QStringLiteral("Salutation Master"),
         QStringLiteral("Keeps the salutations (such as Mr., Mrs., Dr.) that Teacher Master puts before a "
                        "teacher's name.\n"
                        "- Press New, type the Salutation Name (up to 5 characters) and press Save.\n"
                        "- To change or remove a salutation, type in the Search box, double-click it in the "
                        "list and answer Yes to 'Do You Want To Edit/Delete ?'. Then press Edit or Delete.\n"
                        "- The same name cannot be entered twice; capital and small letters count as the "
                        "same.\n"
                        "- A salutation given to a teacher cannot be deleted: the database refuses and the "
                        "reason is shown.\n"
                        "Cancel clears the screen and Exit closes it. Enter moves to the next field; F1 opens "
                        "this help.")},

        {10, QStringLiteral("Teacher Master"),
         QStringLiteral("Keeps each teacher's details. For the timetable the name, the Short Name (up to 3 "
                        "characters, shown in timetables) and the No. Of Working Periods per week matter.\n"
                        "- Press New, choose the salutation and fill Teacher Name, Short Name and No. Of "
                        "Working Periods; all else is optional. The buttons beside State, City and Blood "
                        "Group open those masters to add an entry.\n"
                        "- Working periods may not exceed the school's periods per week, nor fall below the "
                        "periods already allotted in Work Allotment Entry.\n"
                        "- Date Of Birth must be before today and before the joining and wedding dates.\n"
                        "- Names and short names must be unique.\n"
                        "- Search finds a teacher by name, periods, state or city for Edit or Delete.\n"
                        "A teacher cannot be deleted while timetable entries, Auto Generation - Phase I "
                        "settings or work allotment entries exist for him or her.")},

        {11, QStringLiteral("Work Allotment Entry Format"),
         QStringLiteral("Prepares a blank form on which each teacher's work can be collected on paper before "
                        "it is typed into Work Allotment Entry.\n"
                        "- The grid lists every teacher with his or her Periods/Week, followed by empty lines "
                        "with the columns Class, Division, No Of Periods, Subject, Combined Class and Class "
                        "Teacher.\n"
                        "- Tick Print With Demo Teacher Details to put a filled-in sample teacher first, "
                        "showing how the form is meant to be filled.\n"
                        "- Export sends the form, with the school heading, date and time, to Microsoft Excel, "
                        "from where it can be printed. Excel must be installed.\n"
                        "Cancel clears the screen and Exit closes it. F1 opens this help.")},

        {12, QStringLiteral("Work Allotment Entry"),
         QStringLiteral("Says which teacher teaches which subject to which class division, and for how many "
                        "periods a week. The timetable can only hold what is allotted here.\n"
                        "- Press New, choose the Teacher, then fill each row: Class, Division, Subject and "
                        "Periods, pressing Enter after each. Enter on the last row adds a row.\n"
                        "- Allotted Periods may not exceed the teacher's No. Of Working Periods, and a "
                        "class-division-subject can have only one teacher.\n"
                        "- To change a list, choose the teacher and press Edit. To remove a row, type its "
                        "Sl.No. and press Delete Row. Nothing is stored until Save.\n"
                        "- Rows of combined or class teacher entries cannot be changed here; a row with "
                        "timetable periods keeps its class and subject, and its periods cannot fall below "
                        "those placed.\n"
                        "Delete removes the teacher's whole list when no timetable, class teacher or combined "
                        "entries exist. Insert in a list opens its master; Esc exits.")},

        {13, QStringLiteral("Class Teacher Allotment Entry"),
         QStringLiteral("Names the class teacher of a class division and, if wanted, a uniform period: the "
                        "same period on every working day for that teacher's subject in that class.\n"
                        "- Press New and choose Class Name and Division Name. An existing entry is shown; "
                        "press Edit or Delete to change it.\n"
                        "- Choose Teacher Name and Subject Name. Only teachers with a work allotment in that "
                        "class division are offered.\n"
                        "- Set Uniform Period Allocation to NO, or to YES and choose the Uniform Period Name.\n"
                        "- A teacher can be class teacher of one class division only; choosing one who "
                        "already is offers to show that entry.\n"
                        "While the entry exists, its row cannot be changed in Work Allotment Entry. Uniform "
                        "periods are placed by Auto Generation - Phase I when Uniform Period Required is YES. "
                        "Cancel clears the screen and Exit closes it.")},

        {14, QStringLiteral("Combined Subject Entry"),
         QStringLiteral("Groups work allotment rows that must stand in the same period: different teachers "
                        "teach different subjects to different class divisions at the same time.\n"
                        "- Press New and choose a Class and Division: its free rows join the list of "
                        "candidates. Choose more class divisions to gather more rows.\n"
                        "- Click a candidate to move it into the group; click a group row to send it back.\n"
                        "- All rows of a group need the same No. Of Periods, different teachers and different "
                        "class divisions. A row already placed in the timetable cannot join.\n"
                        "- Save gives the group a new Combined Subject ID.\n"
                        "- Search finds groups by class, subject, teacher or ID; choose one, then press Edit "
                        "or Delete.\n"
                        "A group cannot be edited once any of its periods are in the timetable. It can still "
                        "be deleted; its placed periods then stay but are no longer linked.")},

        {15, QStringLiteral("Combined Class Entry"),
         QStringLiteral("Lets one teacher teach one subject to several class divisions together.\n"
                        "- Press New and choose the main Class, Division and Subject; the Teacher and No. Of "
                        "Periods of that work allotment are shown.\n"
                        "- Choose each further Class and Division and press Add. Click a listed row to remove "
                        "it.\n"
                        "- An added class division may not be the main one, and may not already have a work "
                        "allotment for that subject.\n"
                        "- Save creates a row for each added class division with the same teacher, subject "
                        "and periods. These rows add nothing to the teacher's allotted periods.\n"
                        "- Search finds existing groups; choose one, then press Edit or Delete.\n"
                        "A group whose periods stand in the timetable can be neither edited nor deleted: "
                        "remove those timetable entries first.")},

        {16, QStringLiteral("Combined Teacher Entry"),
         QStringLiteral("Puts several teachers before one class division at the same time, each with a "
                        "subject of his or her own.\n"
                        "- Press New and choose the main Class, Division and Subject; its teacher and periods "
                        "are shown.\n"
                        "- Choose a further Teacher and Subject and press Add. Click a listed row to remove "
                        "it.\n"
                        "- The main teacher cannot be added again, and the class division may not already "
                        "have a work allotment for the added subject.\n"
                        "- An added teacher needs room for these periods within his or her No. Of Working "
                        "Periods, since the new rows count as allotted periods.\n"
                        "- A teacher who is in a combined subject entry with the main teacher cannot be "
                        "added.\n"
                        "- Save creates the rows; Search finds groups for Edit or Delete.\n"
                        "A group whose periods stand in the timetable can be neither edited nor deleted: "
                        "remove those timetable entries first.")},

        {17, QStringLiteral("Manual Periods Entry"),
         QStringLiteral("Places periods by hand, before auto generation or to mend its result. Choose Class, "
                        "Division and Subject: the teacher, Allotted Periods and Occupied Periods are shown, "
                        "with the week of the class and of the teacher.\n"
                        "- Click an empty cell of Teacher TimeTable to place a period; click a filled cell of "
                        "either grid to remove one. Combined entries are placed and removed as a whole.\n"
                        "- If the class already has a period there, you are asked whether to replace it.\n"
                        "- A period is refused when occupied periods would exceed allotted periods, when a "
                        "teacher of the group is not free, or beyond the last working day's periods.\n"
                        "- CS, CC and CT show combined entries; Teachers Free and Teachers - Classes Free "
                        "suggest periods for a combined subject; Periods To Be Filled lists what is open.\n"
                        "Every click is stored at once; there is no Save. Cancel clears the selection.")},

        {18, QStringLiteral("Auto Generation - Phase I"),
         QStringLiteral("Places the demanding periods first: class teachers' uniform periods, teachers and "
                        "subjects with free-period settings, and all combined entries.\n"
                        "- Press New (or Edit) and answer Uniform Period Required. With YES a check grid "
                        "opens; a coloured cell means a clash or too little room, and the class teacher or "
                        "manual entries must be corrected first. Esc closes the screen.\n"
                        "- Teacher Setting: choose a teacher and click each period in which he or she must "
                        "stay free every day. Subject Setting works alike. A free period that leaves too few "
                        "periods for the allotted work, or that is taken by a manual or uniform period, is "
                        "refused.\n"
                        "- Save stores the settings; Delete removes them.\n"
                        "- Process runs the generation; Auto Generation Phase 1 Pending Periods lists what "
                        "stayed open.\n"
                        "After Process the settings stay locked until the Phase I entries are deleted in the "
                        "TimeTable Utility menu.")},

        {19, QStringLiteral("Auto Generation - Phase II"),
         QStringLiteral("Places every allotment that is still open, after Phase I.\n"
                        "- Process starts only when Phase I has been processed and all its periods are "
                        "placed; otherwise it offers to show the Phase I balance. It warns about classes "
                        "whose periods do not add up to the week, and stops at classes with too many.\n"
                        "- When periods stay open, the pending list opens. Fill them in Manual Periods Entry, "
                        "or press Fix Balance Periods: it generates again the Phase II periods of each class "
                        "with open periods, then puts what remains into the first free periods. It may be "
                        "pressed again.\n"
                        "- Balance Periods lists what is still open, with Export to Excel; Total Achieved "
                        "shows how much of the timetable stands, in per cent.\n"
                        "After a run Process stays off until the Phase II entries are deleted in the "
                        "TimeTable Utility menu.")},

        {20, QStringLiteral("Substitute Allotment"),
         QStringLiteral("Finds substitutes for a teacher on leave on one date.\n"
                        "- Choose the Leave Date (the Day follows), the Teacher Name and the Leave: First "
                        "Half, Second Half or Full Day. The teacher's periods of that day are shown.\n"
                        "- Choose a Period: the teachers free then are listed, with their free periods and "
                        "substitutions. Same Class lists teachers of that class, All Classes every teacher "
                        "with work; the sort options reorder the list.\n"
                        "- Click NO in the Allot column to make that teacher the substitute; click a green "
                        "YES to remove it. A new choice for a period replaces the old one.\n"
                        "- A teacher on leave is refused as a substitute; the colour of a name shows the kind "
                        "of leave. A grey YES means that teacher covers someone else.\n"
                        "- A teacher serving as a substitute cannot be given leave for that time.\n"
                        "Details explains a coloured period without text: click it to delete that old "
                        "substitution.")},

        {21, QStringLiteral("Work Allotment Details"),
         QStringLiteral("Shows how the week of each class division or teacher is allotted.\n"
                        "- Choose Classwise or Teacherwise, then tick the class divisions or teachers in the "
                        "tree; Select All ticks every one.\n"
                        "- View lists, for each, the periods per week, the periods allotted, every subject "
                        "and teacher (or class and subject) with its periods, and the Blank Periods left.\n"
                        "- Print sends the same to a printed report.\n"
                        "Classwise, the periods per week are the school's week; teacherwise, they are the "
                        "teacher's No. Of Working Periods. A combined class entry counts once for its "
                        "teacher, and a combined teacher entry once for its class. Nothing can be viewed "
                        "until at least one class or teacher is ticked. Cancel clears the screen and Exit "
                        "closes it.")},

        {22, QStringLiteral("Work Allotment Non Tallied Classes"),
         QStringLiteral("Lists every class division whose allotted periods do not add up to the school's "
                        "periods per week.\n"
                        "- View shows each such class and division with the difference. A positive number is "
                        "the periods still to be allotted; a negative number means too many periods are "
                        "allotted.\n"
                        "- A class division with no work allotment at all shows its whole week.\n"
                        "- Print sends the list to a printed report.\n"
                        "Correct the figures in Work Allotment Entry. Classes with too many periods must be "
                        "corrected before Manual Periods Entry opens or auto generation runs; classes with "
                        "too few only give a warning. Exit closes the screen.")},

        {23, QStringLiteral("Teacher Time Table"),
         QStringLiteral("Shows one teacher's week. Each cell gives the class and division taught in that "
                        "period and the subject's short name.\n"
                        "- Choose the Teacher Name; the grid fills at once.\n"
                        "- Print writes the timetable to a text file named after the teacher in the "
                        "program's folder and opens it in Notepad, from where it can be printed.\n"
                        "- Export sends the timetable, with the school heading, to Microsoft Excel. It is "
                        "available only when the teacher has periods, and Excel must be installed.\n"
                        "Only working days are shown; on a shorter last working day the later periods stay "
                        "blank. Cancel clears the screen and Exit closes it.")},

        {24, QStringLiteral("Class Time Table"),
         QStringLiteral("Shows the week of one class division, with the subject's short name in each "
                        "period.\n"
                        "- Choose the Class Name, then the Division Name; the grid fills at once.\n"
                        "- Print writes the timetable to the text file Classtimetable.txt in the program's "
                        "folder and opens it in Notepad, from where it can be printed. Each print replaces "
                        "the file of the class printed before.\n"
                        "- Export sends the timetable, with the school heading, to Microsoft Excel. It is "
                        "available only when the class has periods, and Excel must be installed.\n"
                        "Cancel clears the screen and Exit closes it.")},

        {25, QStringLiteral("Class - Teacher Time Table"),
         QStringLiteral("Shows the week of one class division with, in each period, the subject's short "
                        "name and the teacher's short name.\n"
                        "- Choose the Class Name, then the Division Name; the grid fills at once.\n"
                        "- Where several teachers share a period (a combined teacher entry), the main entry "
                        "is shown.\n"
                        "- Print writes the timetable to the text file Classteachertimetable.txt in the "
                        "program's folder and opens it in Notepad, from where it can be printed. Each print "
                        "replaces the previous file.\n"
                        "- Export sends it to Microsoft Excel, which must be installed.\n"
                        "Cancel clears the screen and Exit closes it.")},

        {26, QStringLiteral("All Teachers Time Table"),
         QStringLiteral("Shows the week of every teacher in one grid: a row per teacher, a column per period "
                        "of each day.\n"
                        "- Choose Sort By (SeniorityNo or TeacherName); the grid fills in that order.\n"
                        "- For Print, choose Day Wise (one table per day) or Full Week (one wide table), and "
                        "With Separator or Without Separator. Print writes the text file AllTeacherTT.txt "
                        "in the program's folder and opens it in Notepad.\n"
                        "- Export sends the grid to Microsoft Excel, which must be installed.\n"
                        "Cancel clears the grid and Exit closes the screen.")},

        {27, QStringLiteral("All Classes Time Table"),
         QStringLiteral("Shows the week of every class division in one grid: a row per class division, a "
                        "column per period of each day, holding the subject's short name.\n"
                        "- Press View to fill the grid.\n"
                        "- For Print, choose Day Wise (one table per day) or Full Week (one wide table), and "
                        "With Separator or Without Separator. Print writes the text file AllClassesTT.txt "
                        "in the program's folder and opens it in Notepad.\n"
                        "- Export sends the grid to Microsoft Excel, which must be installed.\n"
                        "Cancel empties the grid; press View again to refill it. After Cancel, Print is "
                        "available again only when the screen is reopened. Exit closes the screen.")},

        {28, QStringLiteral("Free Teachers Time Table"),
         QStringLiteral("Shows, for every teacher, the free periods of the week: a '*' marks each period in "
                        "which the teacher has no class. Use it to find a teacher who is free.\n"
                        "- Choose Sort By (SeniorityNo or TeacherName); the grid fills in that order.\n"
                        "- Periods that do not exist on a shorter last working day are left blank.\n"
                        "- For Print, choose Day Wise or Full Week, and With Separator or Without Separator. "
                        "Print writes the text file FreeTeacherTT.txt in the program's folder and opens it "
                        "in Notepad.\n"
                        "- Export sends the grid to Microsoft Excel, which must be installed.\n"
                        "Cancel clears the grid and Exit closes the screen.")},

        {29, QStringLiteral("Teacherwise Working Hours"),
         QStringLiteral("Shows how many hours a week each teacher works, from the minutes of the periods "
                        "in his or her timetable.\n"
                        "- Choose All Teachers, or Specific Teacher and then the Teacher Name.\n"
                        "- View lists each teacher with Hours / Week.\n"
                        "- Print sends the list to a printed report.\n"
                        "Hours are written as hours and minutes: 1.30 means 1 hour 30 minutes, not one and a "
                        "third hours. A teacher with no periods shows 0.00. Period lengths are set in "
                        "School Setup under Period Details. Cancel clears the screen and Exit closes it.")},

        {30, QStringLiteral("Free Period Teacher List"),
         QStringLiteral("Lists the teachers who have no class in a given period, for example to find "
                        "someone to take a class.\n"
                        "- Choose the Day and the Period; both are required.\n"
                        "- Choose a Subject as well to list only teachers who teach that subject.\n"
                        "- View shows the list; Print sends it to a printed report.\n"
                        "Substitutions already made in Substitute Allotment do not count: the list looks at "
                        "the weekly timetable only. 'No Record Exists' means that nobody is free. Cancel "
                        "clears the screen and Exit closes it.")},

        {31, QStringLiteral("Conditional Periods Display"),
         QStringLiteral("Lists the combined entries, the work that must stand in the same period.\n"
                        "- Choose Combined Subjects, Combined Class or Combined Teacher.\n"
                        "- The grid shows each group by its ID, with the class, division, subject, teacher "
                        "and number of periods of every row in it.\n"
                        "- Print sends the list to a printed report, grouped by ID.\n"
                        "The groups themselves are made in Combined Subject Entry, Combined Class Entry and "
                        "Combined Teacher Entry. Cancel clears the screen and Exit closes it.")},

        {32, QStringLiteral("Class Teachers List"),
         QStringLiteral("Lists the class teachers of all class divisions.\n"
                        "- The grid shows the Class Name, Division Name, Teacher Name, Subject Name and the "
                        "uniform Period, in class and division order.\n"
                        "- A class teacher without a uniform period shows no period.\n"
                        "- Print sends the list to a printed report, List Of Class Teachers.\n"
                        "Class teachers are named in Class Teacher Allotment Entry. 'No Record Exists' means "
                        "that none has been named yet. Exit closes the screen. F1 opens this help.")},

        {33, QStringLiteral("Subject List"),
         QStringLiteral("Lists all subjects in alphabetical order, with a serial number, the Subject Name and "
                        "the Subject Short Name.\n"
                        "- The grid shows every subject.\n"
                        "- Print sends it to a printed report, List Of Subjects, under the school heading.\n"
                        "Subjects are entered and changed in Subject Master; this screen only shows them, and "
                        "is handy for checking names and short names before work allotment. "
                        "Exit closes the screen. F1 opens this help.")},

        {34, QStringLiteral("Teachers List"),
         QStringLiteral("Lists all teachers in alphabetical order, with a serial number, the Teacher Name "
                        "with its salutation and the Teacher Short Name.\n"
                        "- The grid shows the list.\n"
                        "- Print sends it to a printed report, List Of Teachers, under the school heading.\n"
                        "Teachers are entered and changed in Teacher Master; this screen only shows them. "
                        "Exit closes the screen. F1 opens this help.")},

        {35, QStringLiteral("Teacher Details"),
         QStringLiteral("Shows the full personal details of chosen teachers.\n"
                        "- Tick the teachers in the list, or tick Select All.\n"
                        "- View shows, for each, the name, short name, father or spouse name, address, "
                        "telephone, dates of birth, wedding and joining, marital status, blood group, "
                        "qualification, working periods per week and seniority number. The number of rows "
                        "is shown below the grid.\n"
                        "- Export sends the details to Microsoft Excel, which must be installed.\n"
                        "Nothing is shown until at least one teacher is ticked. The details are entered in "
                        "Teacher Master. Cancel clears the screen and Exit closes it.")},

        {36, QStringLiteral("Leave List"),
         QStringLiteral("Lists who was on leave, and when, between two dates.\n"
                        "- Choose the From Date and To Date; To Date must be later than From Date.\n"
                        "- Choose a teacher to see only his or her leave, or leave it blank for all.\n"
                        "- View lists the leave date by date: each teacher with First Half, Second Half or "
                        "Full Day. A full day counts 1, a half day 0.5.\n"
                        "- Print sends the list to a printed report; Export sends it to Microsoft Excel.\n"
                        "Leave is taken from Substitute Allotment: a leave appears only when a substitute "
                        "was allotted for it. Cancel clears the screen and Exit closes it.")},

        {37, QStringLiteral("Substitute List"),
         QStringLiteral("Lists the substitutions of one date.\n"
                        "- Choose the Leave Date. The teacher list then holds the teachers on leave that "
                        "day; choose one, or leave it blank for all.\n"
                        "- Choose the order: Leave Teacher, Substitute Teacher, Period or Class/Division.\n"
                        "- View shows each substituted period: the teacher on leave, the class and division, "
                        "the period and the substitute teacher.\n"
                        "- Print sends the list to a printed report, Substitute List; Export sends it to "
                        "Microsoft Excel.\n"
                        "Substitutes are allotted in Substitute Allotment. Cancel clears the screen and Exit "
                        "closes it.")},

        {38, QStringLiteral("Substitute History"),
         QStringLiteral("Lists the substitutions made between two dates.\n"
                        "- Choose the From Date and To Date; To Date must be later than From Date.\n"
                        "- Datewise lists them by date and teacher on leave.\n"
                        "- Teacherwise lists them by substitute teacher; choose a SubstituteTeacher to see "
                        "only that teacher's substitutions.\n"
                        "- View shows the date, the teacher on leave, the class and division, the period and "
                        "the substitute.\n"
                        "- Export sends the list to Microsoft Excel, which must be installed.\n"
                        "Deleting the substitute history in the TimeTable Utility menu empties this report. "
                        "Cancel clears the screen and Exit closes it.")},

        {45, QStringLiteral("User Master"),
         QStringLiteral("Keeps the names of the people who use the program.\n"
                        "- Press New, type the User Name and press Save.\n"
                        "- To change or remove a user, type part of the name in the Search box, double-click "
                        "the user and answer Yes to 'Do You Want To Edit/Delete ?'. Then press Edit or "
                        "Delete.\n"
                        "- The same name cannot be entered twice; capital and small letters count as the "
                        "same.\n"
                        "A user can log in only after a login has been made for him or her in User "
                        "Privileges. Deleting a user does not remove the login, which then no longer works; the last "
                        "user who may grant privileges cannot be deleted. "
                        "Cancel clears the screen and Exit closes it. Enter moves to the next field; F1 opens "
                        "this help.")},

        {46, QStringLiteral("User Privileges"),
         QStringLiteral("Gives a user a login and decides which screens and buttons he or she may use.\n"
                        "- Press New, choose the User Name and fill Login ID, Password, Re-Type Password and "
                        "Blocked (YES stops the login).\n"
                        "- Tick the screens and buttons in the tree. Ticking an entry ticks everything under "
                        "it; a button cannot be saved without its screen.\n"
                        "- At least one unblocked user must keep Utilities, User Privileges and its New and "
                        "Edit.\n"
                        "- Copying Privileges: choose From User and To User and press Copy; both need a "
                        "login.\n"
                        "Until the first login is saved, any login ID and password are accepted and every "
                        "button is allowed; after that each user sees only the menus granted. Choosing a user "
                        "who has a login offers to show it for Edit.")},

        {47, QStringLiteral("Database Backup / Database Restore"),
         QStringLiteral("Copies the database to a safe place, or brings a copy back. The screen opens only "
                        "when no other screen is open.\n"
                        "- Database Backup: give the Destination Path, a file name ending in .mdb (Browse... "
                        "helps), and press the Backup button. An existing file is replaced only after you confirm.\n"
                        "- Database Restore: give the Source Path of a backup and press the Restore button. Only a "
                        "database of this program is accepted. The current database is replaced and this "
                        "cannot be undone, so you are asked twice.\n"
                        "- Source and destination may not be the same file.\n"
                        "- Details >> shows the history of backups or restores.\n"
                        "Take a backup regularly, and always before deleting entries in the TimeTable Utility "
                        "menu. Cancel clears the screen and Exit closes it.")},

        {49, QStringLiteral("Options"),
         QStringLiteral("Holds the settings that apply to the whole program.\n"
                        "- Display Message To Confirm Exit (In All Screens): when ticked, every screen asks "
                        "'Do You Want To Exit ... ?' before it closes, so that a screen is not closed by "
                        "mistake. When not ticked, Exit closes a screen at once.\n"
                        "- Press Save to store the setting; the program answers 'Settings Saved'.\n"
                        "Saving needs the Save privilege of this screen, given in User Privileges. Exit "
                        "closes the screen. F1 opens this help.")},
    };
    return texts;
}
