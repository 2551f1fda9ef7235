// Help texts of the header editor, a box of lines for each of its pages.

#include <initializer_list>

#include "processing/header_editor.h"

namespace tarnvik {

namespace {

std::string Lines(std::initializer_list<const char*> lines) {
    std::string text;
    for (const char* line : lines)
        text += (text.empty() ? "" : "\r\n") + std::string(line);
    return text;
}

}  // namespace

void Header::Command9() {
    Say(Lines(
        {"HEADER VALUE EDITOR", "You can display into a grid all Header values of 120 traces",
         "To display selected traces just enter the first trace number to display and then click DISPLAY",
         "You can modify any value, be careful !!!, just type a new value",
         "Corrected cell background color is displayed in grey", "Use Ctrl+C to copy and Ctrl+V to paste"}));
}

void Header::Command8() {
    Say(Lines({"HEADER VALUES IN EXCEL",
               "Select the header words in the list, Ctrl adds one and Shift a range",
               "Enter the first and the last trace, or take all traces",
               "The file gets a column for each word and a row for each trace",
               "Start Excel opens the file that has just been made"}));
}

void Header::Command12() {
    Say(Lines(
        {"GEOMETRY OF SHOTS AND RECEIVERS",
         "Stations, X, Y and elevations of all traces go into a workbook or a text file",
         "Change them there, save as PRN or CSV text and transfer that file into the SU header",
         "X / Y scale and elevation scale: 1, 10, 100 multiply, -10, -100, -1000 divide the header value",
         "Scale 0 takes the coarsest scale that keeps all values to a thousandth",
         "Use Ctrl+Z to take it back"}));
}

void Header::Command4() {
    Say(Lines({"SINGLE HEADER WORD EDITOR", "You can change one header word on a range of traces",
               "Select the word, enter the first and the last trace, choose one way and click Write on file",
               "A file of values has one value per line",
               "The first value of the file goes to the first trace to modify, or to its shot",
               "Shots are counted by the trace number and the number of channels",
               "Nothing is written when one value does not fit the word", "Use Ctrl+Z to take it back"}));
}

void Header::Command5() {
    Say(Lines({"UPDATE OF IMPORTANT HEADER WORDS", "All traces of the file are updated",
               "Trace number: TRACL, TRACR and TRACF go from 1 to the number of traces",
               "Channel number: TRACL, TRACR and TRACF go from 1 to the number of channels and start again",
               "Field record number: FLDR goes up by one after each record, update the channels first",
               "Velocities: WEVEL and SWEVEL get the same value on every trace",
               "Use Ctrl+Z to take it back"}));
}

void Header::Command7() {
    Say(Lines({"COPY HEADER VALUES FROM ONE FILE TO ANOTHER",
               "You can copy all header words or a single one, the samples of the output file do not change",
               "Size of the 2 files and number of samples/trace MUST  BE EQUAL",
               "With other sample numbers each file is read by its own, and the output keeps its NS",
               "The values of a single word can be recorded in a text file too, one value per line"}));
}

}  // namespace tarnvik
