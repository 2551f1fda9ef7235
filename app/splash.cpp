#include "app/splash.h"

#include "app/dialog_commands.h"
#include "app/documents.h"
#include "app/session.h"
#include "app/start.h"

namespace tarnvik {

void frmSplash::Load() {
    const std::string& title = Owner.Work.AppTitle;
    lblProductName = title;
    lblVersion = "Version 16.5.0";
    Command5Caption = "Display " + Owner.Work.Settings.RecentFiles[0];
    Command6Caption = "END " + title;
}

bool frmSplash::Command1() {
    Start_New_Profile(Owner);
    return true;
}

bool frmSplash::Command2() {
    Read_From_Dialog(Owner);
    return true;
}

bool frmSplash::Command3() {
    Owner.Outside.Show.Select_Tab(Tab::Record);
    return true;
}

bool frmSplash::Command4() {
    Owner.Outside.Show.Select_Tab(Tab::Curves);
    Open_Manual(Owner);
    return true;
}

bool frmSplash::Command5() {
    Display_Last_File(Owner);
    return true;
}

bool frmSplash::Command6() {
    const std::string& title = Owner.Work.AppTitle;
    if (!Owner.Outside.Ask.Ask_Yes("Do you stop " + title + "?", title)) return false;
    End_Session(Owner);
    return true;
}

}  // namespace tarnvik
