// The title block of a report's page.

#include <string>
#include <vector>

#include "core/text/number.h"
#include "output/report_picture.h"
#include "output/title_block.h"

namespace tarnvik {

namespace {

TitleCell Scales(const ReportView& view, const ReportFrame& frame) {
    TitleCell cell;
    const double chosen = view.Choices.Scale;
    if (frame.Scale > 0) {
        cell.Rows.push_back({"Horizontal " + Scale_Text(frame.Scale)});
        cell.Rows.push_back({"Vertical " + Scale_Text(frame.Scale / frame.Exaggeration)});
    } else {
        cell.Rows.push_back(
            {chosen > 0 ? "Scale " + Scale_Text(chosen) + " on paper" : "Scale fits the paper"});
    }
    cell.Rows.push_back({"Vertical exaggeration " + Format(frame.Exaggeration, "0.0#")});
    if (!frame.Fits) cell.Rows.push_back({Scale_Text(chosen) + " does not fit this paper", colours::Red});
    return cell;
}

TitleCell Key(const ReportView& view, const std::vector<ReportModel>& models) {
    TitleCell cell;
    bool errors = false;
    for (const ReportModel& model : models) {
        std::string text(Method_Name(model.Source));
        text += view.Choices.Shape == InterfaceShape::Arcs ? ": arcs and their envelope" : ": depths joined";
        cell.Rows.push_back({text, colours::Black, false, true, Method_Colour(model.Source)});
        errors = errors || !model.Errors.empty();
    }
    if (models.empty()) cell.Rows.push_back({"No depths"});
    if (errors && view.Choices.Errors)
        cell.Rows.push_back(
            {"Half the difference of both sides", colours::Black, false, true, colours::Black});
    return cell;
}

std::vector<TitleCell> Cells_Of(const Workspace& workspace, const ReportView& view,
                                const std::vector<ReportModel>& models, const ReportFrame& frame) {
    const ReportChoices& choices = view.Choices;
    const std::string& name = workspace.Project.ProjectName;
    TitleCell what;
    what.Rows.push_back({choices.Line.empty() ? "Line " + name : choices.Line, colours::Black, true});
    what.Rows.push_back({"Seismic refraction section"});
    if (!choices.Company.empty()) what.Rows.push_back({choices.Company});
    TitleCell date;
    date.Rows.push_back({"Date"});
    date.Rows.push_back({choices.Date.empty() ? view.Today : choices.Date});
    std::vector<TitleCell> cells = {what, Scales(view, frame), Key(view, models), date};
    if (!choices.North.empty()) cells.push_back({{{choices.North}}, true});
    return cells;
}

}  // namespace

void Draw_Title_Block(const Workspace& workspace, const ReportView& view,
                      const std::vector<ReportModel>& models, const ReportFrame& frame, Picture& picture) {
    const Frame size = picture.Current_Frame();
    const TitlePlace place{frame.Margin, frame.BlockTop, size.Width - frame.Margin,
                           size.Height - frame.Margin};
    Draw_Title_Cells(picture, place, Cells_Of(workspace, view, models, frame));
}

}  // namespace tarnvik
