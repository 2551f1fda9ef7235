#pragma once

#include <string>

namespace tarnvik {

class Session;

/// Start of the program: insists on a decimal point, reads the settings, and opens the project of the command
/// line or shows the start dialog. `command_line` is the text behind the program's name: a path in quotes. Up
/// to 3 characters count as none; otherwise the first and the last character are taken off, whatever they
/// are.
void Form_Load(Session& session, const std::string& command_line);

/// Road of the start dialog and of the toolbar key "open": file dialog, then the project. The file is read
/// and backed up by the choice and again by the opening, which is the same on every road.
void Read_From_Dialog(Session& session);
/// Road of the button "Display ...": the newest recent file.
void Display_Last_File(Session& session);
/// Opens a project file, curves and field records included, after the question about unsaved work, and offers
/// what a killed program left of it. False when the user gave up or the file was refused, which leaves the
/// project in memory.
bool Open_File_Named(Session& session, const std::string& path);
/// The same without the question and the offer.
bool Load_And_Show(Session& session, const std::string& path);
/// What follows every opening: the curves on the screen in the normal mode, then the field records.
void Show_Opened_Project(Session& session);

/// Before a project is read over the one in memory: Save, Discard or Cancel when that has unsaved work.
/// False when it stays, also when it could not be saved.
bool May_Leave_Project(Session& session);

/// The end with all its questions; `only_ok` asks with an OK button alone, as the toolbar key does.
void Quit(Session& session, bool only_ok);
/// Ends the program without a question; its journal goes.
void End_Session(Session& session);
/// End without saving anything and without writing the settings.
void Exit_At_Once(Session& session);
/// What is asked when the main window closes: both questions come every time. False when the program goes on:
/// after a Cancel, and when the project was to be recorded and could not be.
bool Unload_Form(Session& session);

/// After a change of the main window's size: what its pictures show is drawn again.
void Resize_Form(Session& session);

}  // namespace tarnvik
