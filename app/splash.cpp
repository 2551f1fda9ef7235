#include "app/splash.h"

#include "app/dialog_commands.h"
#include "app/documents.h"
#include "app/session.h"
#include "app/start.h"
#include "core/files.h"

namespace tarnvik {

void frmSplash::Load() {
    const std::string& title = Owner.Work.AppTitle;
    lblProductName = title;
    lblVersion = "Version 16.5.0";
    Command5Caption = "Display " + Owner.Work.Settings.RecentFiles[0];
    HasLastFile = File_Exists(Owner.Work.Settings.RecentFiles[0]);
    Command6Caption = "END " + title;
    Recent = Recent_Projects(Owner.Work.Settings);
    Demos = Demo_Lines(Owner);
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

bool frmSplash::Open_Recent(std::size_t place) {
    if (place < Recent.size()) Open_File_Named(Owner, Recent[place].Path);
    return true;
}

bool frmSplash::Open_Demo(std::size_t place) {
    if (place < Demos.size()) Open_Demo_Line(Owner, Demos[place].Path);
    return true;
}

bool frmSplash::Command6() {
    const std::string& title = Owner.Work.AppTitle;
    if (!Owner.Outside.Ask.Ask_Yes("Do you stop " + title + "?", title)) return false;
    End_Session(Owner);
    return true;
}

}  // namespace tarnvik
