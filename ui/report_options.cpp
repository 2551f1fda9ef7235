#include "ui/report_options.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QVBoxLayout>
#include <utility>

#include "app/session.h"
#include "ui/field_binder.h"
#include "ui/notice_label.h"

namespace tarnvik {

namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("ReportOptions", text);
}

/// The groups of the panel and what they are made of.
class ReportPanel {
  public:
    ReportPanel(Session& session, FieldBinder& fields)
        : Report(session.Report), Fields(fields), Changed([&session] { session.Report.Choice_Changed(); }) {}

    QWidget* Make() {
        auto* panel = new QWidget;
        auto* rows = new QVBoxLayout(panel);
        rows->setContentsMargins(0, 0, 0, 0);
        Fields.Follow([this_report = &Report] { this_report->Follow(); });
        rows->addWidget(Layers());
        rows->addWidget(Contents());
        rows->addWidget(Paper());
        rows->addWidget(Title());
        return panel;
    }

  private:
    QComboBox* List(const char* name, const QStringList& entries, const QString& tooltip, int& field) {
        auto* list = new QComboBox;
        list->setObjectName(name);
        list->addItems(entries);
        list->setToolTip(tooltip);
        Fields.Choice(list, field, Changed);
        return list;
    }
    void Tick(QBoxLayout* rows, const char* name, const QString& caption, const QString& tooltip,
              bool& field) {
        auto* tick = new QCheckBox(caption);
        tick->setObjectName(name);
        tick->setToolTip(tooltip);
        Fields.Tick(tick, field, Changed);
        rows->addWidget(tick);
    }
    QComboBox* Typed(const char* name, const QStringList& entries, const QString& tooltip,
                     std::string& field) {
        auto* list = new QComboBox;
        list->setObjectName(name);
        list->setEditable(true);
        list->addItems(entries);
        list->setToolTip(tooltip);
        list->setMinimumContentsLength(7);
        Fields.Finished_Text(list, field, Changed);
        return list;
    }
    QLineEdit* Text(const char* name, const QString& tooltip, const QString& usual, std::string& field) {
        auto* edit = new QLineEdit;
        edit->setObjectName(name);
        edit->setToolTip(tooltip);
        edit->setPlaceholderText(usual);
        Fields.Finished_Text(edit, field, Changed);
        return edit;
    }

    QWidget* Layers() {
        auto* group = new QGroupBox(Tr("Layers"));
        auto* within = new QVBoxLayout(group);
        auto* form = new QFormLayout;
        form->addRow(Tr("Depths by"),
                     List("ReportSource", {Tr("Shots"), Tr("ABC"), Tr("GRM")},
                          Tr("Method whose layers are filled and have velocities"), Report.SourceChoice));
        form->addRow(Tr("Interfaces"),
                     List("ReportShape", {Tr("Joined"), Tr("Arcs and envelope")},
                          Tr("Depths straight below joined by lines, or arcs with the depth as radius and "
                             "the refractor that touches them"),
                          Report.ShapeChoice));
        form->addRow(Tr("Filled with"),
                     List("ReportFill", {Tr("Nothing"), Tr("Colours"), Tr("Hatching")},
                          Tr("Colours are those of the coloured section, paler"), Report.FillChoice));
        within->addLayout(form);
        auto* note = new NoticeLabel(false);
        note->setObjectName("ReportNote");
        Fields.Text(note, Report.Note);
        within->addWidget(note);
        auto* also = new QHBoxLayout;
        also->addWidget(new QLabel(Tr("Also")));
        const std::pair<const char*, const char*> methods[] = {
            {"ReportAlsoShots", "Shots"}, {"ReportAlsoAbc", "ABC"}, {"ReportAlsoGrm", "GRM"}};
        for (std::size_t source = 0; source < Report.View.Choices.Also.size(); ++source) {
            Tick(also, methods[source].first, Tr(methods[source].second),
                 Tr("The interfaces of this method are drawn too"), Report.View.Choices.Also[source]);
        }
        also->addStretch(1);
        within->addLayout(also);
        return group;
    }

    QWidget* Contents() {
        auto* group = new QGroupBox(Tr("Shown"));
        auto* within = new QVBoxLayout(group);
        ReportChoices& choices = Report.View.Choices;
        auto* marks = new QHBoxLayout;
        Tick(marks, "ReportShots", Tr("Shots"), Tr("Shots on the line with their numbers"), choices.Shots);
        Tick(marks, "ReportGeophones", Tr("Geophones"), Tr("A mark at each geophone"), choices.Geophones);
        marks->addStretch(1);
        auto* values = new QHBoxLayout;
        Tick(values, "ReportVelocities", Tr("Velocities"), Tr("Written in the layers"), choices.Velocities);
        Tick(values, "ReportErrors", Tr("Errors"),
             Tr("Bars of half the difference between the depths that the two sides of a shot give; a shot "
                "with one side has none, nor have depths below receivers"),
             choices.Errors);
        values->addStretch(1);
        within->addLayout(marks);
        within->addLayout(values);
        return group;
    }

    QWidget* Paper() {
        auto* group = new QGroupBox(Tr("Scale on paper"));
        auto* form = new QFormLayout(group);
        form->addRow(
            Tr("Scale"),
            Typed("ReportScale",
                  {"fitting", "1:100", "1:200", "1:250", "1:500", "1:1000", "1:2000", "1:5000"},
                  Tr("True scale of printed pages and picture files; fitting takes the largest round one"),
                  Report.Scale));
        form->addRow(Tr("Exaggeration"),
                     Typed("ReportExaggeration", {"fitting", "1", "2", "3", "5", "10"},
                           Tr("Of heights against distances; fitting takes the largest round one"),
                           Report.Exaggeration));
        return group;
    }

    QWidget* Title() {
        auto* group = new QGroupBox(Tr("Title block"));
        auto* form = new QFormLayout(group);
        ReportChoices& choices = Report.View.Choices;
        form->addRow(Tr("Line"),
                     Text("ReportLine", Tr("Empty for the project's name"), Tr("project"), choices.Line));
        form->addRow(Tr("Company"), Text("ReportCompany", Tr("Empty for none"), {}, choices.Company));
        form->addRow(Tr("Date"), Text("ReportDate", Tr("Empty for today"), Tr("today"), choices.Date));
        form->addRow(Tr("North"), Text("ReportNorth", Tr("Text beside the north arrow, empty for no arrow"),
                                       Tr("such as N 35 E"), choices.North));
        return group;
    }

    SectionReport& Report;
    FieldBinder& Fields;
    const FieldBinder::Reaction Changed;
};

}  // namespace

QWidget* Report_Options(Session& session, FieldBinder& fields) {
    return ReportPanel(session, fields).Make();
}

}  // namespace tarnvik
