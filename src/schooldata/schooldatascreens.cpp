#include "schooldatascreens.h"
#include "frmbloodgroupmaster.h"
#include "frmcitymaster.h"
#include "frmclasssectionentry.h"
#include "frmclasswiseworkingdayssetup.h"
#include "frmsalutationmaster.h"
#include "frmschoolsetup.h"
#include "frmstatemaster.h"
#include "frmsubjectmaster.h"
#include "frmteachermaster.h"
#include "screenregistry.h"

namespace {
template <typename Form>
ScreenRegistry::Factory make()
{
    return [](AppContext &ctx) -> QWidget * { return new Form(ctx); };
}
}

void registerSchoolDataScreens(ScreenRegistry &registry)
{
    registry.addScreen(QStringLiteral("frmStateMaster"), make<frmStateMaster>());
    registry.addScreen(QStringLiteral("frmCityMaster"), make<frmCityMaster>());
    registry.addScreen(QStringLiteral("frmBloodGroupMaster"), make<frmBloodGroupMaster>());
    registry.addScreen(QStringLiteral("frmSalutationMaster"), make<frmSalutationMaster>());
    registry.addScreen(QStringLiteral("frmSubjectMaster"), make<frmSubjectMaster>());
    registry.addScreen(QStringLiteral("frmTeacherMaster"), make<frmTeacherMaster>());
    registry.addScreen(QStringLiteral("frmClassSectionEntry"), make<frmClassSectionEntry>());
    // Opened from the Phase I screen; it has no menu entry of its own.
    registry.addScreen(QStringLiteral("frmClasswiseWorkingDaysSetup"), make<frmClasswiseWorkingDaysSetup>());
    registry.addExclusiveScreen(
        QStringLiteral("frmSchoolSetup"), make<frmSchoolSetup>(),
        QStringLiteral("You Cannot Open 'School Setup' Form When Other Forms Are Opened. First Close Other Forms"));
}
