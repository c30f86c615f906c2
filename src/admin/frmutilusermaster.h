#pragma once
#include "referencemasterscreen.h"

// Keeps the names of the people who use the program; their logins are made on User Privileges.
class frmUtilUserMaster : public ReferenceMasterScreen
{
    Q_OBJECT
public:
    explicit frmUtilUserMaster(AppContext &ctx, QWidget *parent = nullptr);

protected:
    // The last user who can grant privileges stays; any other user goes, the login left behind.
    void removeRecord(int code) override;
};
