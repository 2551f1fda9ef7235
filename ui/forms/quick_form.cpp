#include "ui/forms/quick_form.h"

#include <QButtonGroup>
#include <QHeaderView>

#include "app/session.h"
#include "app/table_commands.h"
#include "ui/forms/form_keys.h"
#include "ui/spreadsheet_view.h"
#include "ui/text_grid_model.h"
#include "ui_quick_form.h"

namespace tarnvik {

namespace {

/// Velocities and intercept times can be typed; thicknesses and depths are computed from them.
class QuickCells : public FormCells {
  public:
    QuickCells(TextGrid& grid, std::function<void()> changed) : FormCells(grid, std::move(changed)) {}
    bool Editable(int row, int column) const override {
        return column < QuickInterpret::Thickness && FormCells::Editable(row, column);
    }
};

}  // namespace

QuickForm::QuickForm(Session& session, QtDisplay&) : Program(session) {
    Ui::QuickForm controls;
    controls.setupUi(this);
    QuickInterpret& logic = session.Quick;
    ShotBox = controls.Combo1;
    Bind_Shot(controls);
    Bind_Sides(controls);
    Make_Grid(controls);

    Fields.Text(controls.Status, session.Work.Velocity.QuickStatus);
    QPalette red = controls.Status->palette();
    red.setColor(QPalette::WindowText, QColor(0xd0, 0x20, 0x20));
    controls.Status->setPalette(red);
    // What stands below keeps its place when a text comes.
    controls.Status->setMinimumHeight(3 * fontMetrics().lineSpacing());

    Fields.Command(controls.Command1, [&logic] { logic.Command1(); });
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.Command3, [&logic] { logic.Command3(); });
    Fields.Command(controls.Command4, [&session] { Show_Results(session); });
    On_Enter(this, [&logic] { logic.Command2(); });
    On_Escape(this, [this] { Close_Me(); });
}

void QuickForm::Bind_Shot(const Ui::QuickForm& controls) {
    QuickInterpret& logic = Program.Quick;
    Fields.Entries(controls.Combo1, logic.ShotEntries);
    Fields.Entries(controls.Combo2, logic.LayerEntries);
    Fields.Finished_Text(controls.Combo1, logic.Shot, [&logic] { logic.Shot_Changed(); });
    Fields.Finished_Text(controls.Combo2, logic.LayerCount, [&logic] { logic.Layers_Changed(); });
    Fields.Finished_Text(controls.Text1, logic.ShotDepth, [&logic] { logic.Quick_Depth(); });
    Fields.Text(controls.Text2, logic.FirstGeophone);
    Fields.Text(controls.Text3, logic.LastGeophone);
    const int width = fontMetrics().horizontalAdvance("88888.8") + 24;
    for (QWidget* box : std::initializer_list<QWidget*>{controls.Combo1, controls.Combo2, controls.Text1,
                                                        controls.Text2, controls.Text3}) {
        box->setFixedWidth(width);
    }
    Fields.Follow([this, unit = controls.DepthUnit] {
        unit->setText(Program.Work.Settings.Metric() ? tr("m") : tr("f"));
    });
}

void QuickForm::Bind_Sides(const Ui::QuickForm& controls) {
    auto* group = new QButtonGroup(this);
    group->addButton(controls.Option1, QuickInterpret::Left);
    group->addButton(controls.Option2, QuickInterpret::Right);
    group->addButton(controls.Option3, QuickInterpret::Both);
    Fields.Choice(group, Program.Quick.SideChoice, [this] { Program.Quick.Side_Changed(); });
}

void QuickForm::Make_Grid(const Ui::QuickForm& controls) {
    QuickInterpret& logic = Program.Quick;
    auto cells = std::make_unique<QuickCells>(logic.Grid1, [&logic] { logic.Cells_Changed(); });
    Grid1 = new SpreadsheetView(logic.Grid1, std::move(cells));
    Grid1->setObjectName("Grid1");
    Grid1->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    Grid1->horizontalHeader()->setMinimumSectionSize(fontMetrics().horizontalAdvance("IT Right") + 10);
    Grid1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Grid1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Grid1->setMinimumWidth(6 * (fontMetrics().horizontalAdvance("IT Right") + 10) +
                           fontMetrics().horizontalAdvance("8") + 20);
    Grid1->Cells().Look_Of = [](int, int column) {
        return column < QuickInterpret::Thickness ? TextGridModel::Look::Plain : TextGridModel::Look::Grouped;
    };
    Grid1->Cells().Heading_Tip = [this](int section, Qt::Orientation orientation) -> QString {
        const bool metric = Program.Work.Settings.Metric();
        const QString speed = metric ? "m/s" : "f/s";
        const QString length = metric ? "m" : "f";
        if (orientation == Qt::Vertical) return tr("Layer");
        switch (section) {
            case QuickInterpret::VelocityLeft:
                return tr("Velocity towards lower distance, %1").arg(speed);
            case QuickInterpret::InterceptLeft:
                return tr("Intercept time of the top of the layer towards lower distance, ms");
            case QuickInterpret::VelocityRight:
                return tr("Velocity towards higher distance, %1").arg(speed);
            case QuickInterpret::InterceptRight:
                return tr("Intercept time of the top of the layer towards higher distance, ms");
            case QuickInterpret::Thickness:
                return tr("Thickness of the layer below the shot, %1").arg(length);
            case QuickInterpret::Depth:
                return tr("Depth of the bottom of the layer, %1").arg(length);
            default:
                return {};
        }
    };
    controls.GridPlace->addWidget(Grid1);
    controls.GridPlace->addStretch();
}

/// The grid is as high as its rows; the controls below it stay where four layers leave them.
void QuickForm::Show_Rows() {
    const int frame = 2 * Grid1->frameWidth();
    const int header = Grid1->horizontalHeader()->sizeHint().height();
    const int row = Grid1->verticalHeader()->defaultSectionSize();
    Grid1->setFixedHeight(frame + header + row * Program.Quick.Layers());
    Grid1->parentWidget()->setFixedHeight(frame + header + row * most_quick_layers);
}

void QuickForm::Refresh() {
    Form::Refresh();
    Grid1->Refresh();
    Show_Rows();
}

void QuickForm::Opened() {
    Program.Quick.Load();
    ShotBox->setFocus();
}

void QuickForm::Closed() {
    Program.Quick.Close();
}

}  // namespace tarnvik
