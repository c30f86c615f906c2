#include "allotmentscreens.h"
#include "frmclassteacherallotmententry.h"
#include "frmcombinedclassentry.h"
#include "frmcombinedsubjectentry.h"
#include "frmcombinedteacherentry.h"
#include "frmworkallotmententry.h"
#include "screenregistry.h"

namespace {
template <typename Form>
ScreenRegistry::Factory make()
{
    return [](AppContext &ctx) -> QWidget * { return new Form(ctx); };
}
}

// The search forms are not registered: each entry screen opens its own and loads the group it hands back.
void registerAllotmentScreens(ScreenRegistry &registry)
{
    registry.addScreen(QStringLiteral("frmWorkAllotmentEntry"), make<frmWorkAllotmentEntry>());
    registry.addScreen(QStringLiteral("frmClassTeacherAllotmentEntry"), make<frmClassTeacherAllotmentEntry>());
    registry.addScreen(QStringLiteral("frmCombinedSubjectEntry"), make<frmCombinedSubjectEntry>());
    registry.addScreen(QStringLiteral("frmCombinedClassEntry"), make<frmCombinedClassEntry>());
    registry.addScreen(QStringLiteral("frmCombinedTeacherEntry"), make<frmCombinedTeacherEntry>());
}
