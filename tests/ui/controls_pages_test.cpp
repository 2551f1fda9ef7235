// Each control of the tables' page and of the curves' page with the profile beside them.

#include <QHeaderView>
#include <QListView>
#include <QTableView>
#include <QWheelEvent>

#include "control_table.h"
#include "records/header_words.h"
#include "records/su_file.h"
#include "setup/build_grid.h"
#include "traveltime/curves.h"
#include "traveltime/zoom.h"

namespace tarnvik {
namespace {

class PageControls : public Controls {
  protected:
    double Word(int trace, int word) { return SuTraces(Folder / "demo1.su").Word_Or_Zero(trace, word); }
    /// Types into the cell that is current, as by hand.
    static void Type_Cell(QTableView* table, int row, int column, const QString& text) {
        table->setFocus();
        table->setCurrentIndex(table->model()->index(row, column));
        QTest::keyClicks(table, text.left(1));
        auto* editor = table->findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        QTest::keyClicks(editor, text.mid(1));
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();
    }
};

TEST_F(PageControls, of_the_tables_do_their_work) {
    QWidget* page = Page_Of(Tab::Tables);
    Display.Show_Grids();
    Display.Show_Fields();
    const auto button = [&](const char* name) { return page->findChild<QAbstractButton*>(name); };
    const auto cell = [](QTableView* table, int row, int column) {
        return table->model()->index(row, column).data().toString();
    };
    const auto chosen = [&](ElevationUpdate update, const char* caption) {
        return [&, update, caption](QWidget* control) {
            auto* choice = qobject_cast<QAbstractButton*>(control);
            Program.Elevations = update;
            Display.Show_Fields();
            EXPECT_TRUE(choice->isChecked());
            Program.Elevations = update == ElevationUpdate::ShotsFromReceivers
                                     ? ElevationUpdate::ReceiversFromShots
                                     : ElevationUpdate::ShotsFromReceivers;
            Display.Show_Fields();
            EXPECT_FALSE(choice->isChecked());
            Click(choice);
            EXPECT_EQ(Program.Elevations, update);
            EXPECT_EQ(button("Command3")->text(), caption);
        };
    };
    EXPECT_EQ(button("Command3")->text(), "Interpol  Shot Z from Z geo");
    const float opened = Line.ShotTimes(2, 3);
    const std::vector<Row> rows = {
        {"Buildgrid",
         [&](QWidget* control) {
             auto* table = qobject_cast<QTableView*>(control);
             Program.Work.Grids.Buildgrid.CurrentColumn = 0;
             Display.Show_Fields();
             EXPECT_FALSE(button("TakeOutShot")->isEnabled());
             EXPECT_EQ(button("TakeOutShot")->toolTip(), "Select a cell of the shot first");
             EXPECT_FALSE(button("Undo")->isEnabled());
             Type_Cell(table, 3, 2, "41.5");
             EXPECT_EQ(Line.ShotTimes(2, 3), 41.5F);
             EXPECT_EQ(cell(table, 3, 2), "41.50");
             EXPECT_TRUE(button("TakeOutShot")->isEnabled());
             EXPECT_TRUE(button("TakeOutShot")->toolTip().startsWith("Takes the shot"));
             Line.ShotTimes(4, 5) = 77;
             Fill_Grid(Work);
             Display.Show_Grids();
             EXPECT_EQ(cell(table, 5, 4), "77.00");
         }},
        {"Undo", Clicked({[&] { EXPECT_TRUE(button("Undo")->toolTip().startsWith("Undo")); },
                          [&] { return Line.ShotTimes(2, 3) == opened; }})},
        {"Redo", Clicked({[&] { EXPECT_TRUE(button("Redo")->toolTip().startsWith("Redo")); },
                          [&] { return Line.ShotTimes(2, 3) == 41.5F; }})},
        {"remark_grid",
         [&](QWidget* control) {
             auto* table = qobject_cast<QTableView*>(control);
             Type_Cell(table, 2, 1, "7");
             EXPECT_EQ(Line.remark_grid.Text(2, 1), "7");
             Line.remark_grid.Set_Text(3, 1, "9");
             Display.Show_Grids();
             EXPECT_EQ(cell(table, 3, 1), "9");
         }},
        {"Save", Clicked({[] {}, [&] { return Work.Edits.Is_Saved(); }})},
        {"Grid_2_SU",
         Clicked({[&] { Line.ShotTimes(2, 3) = 42; }, [&] { return Word(27, words::First_Breaks) == 420; }})},
        {"Command20", Clicked({[&] {
                                   Line.ShotTimes(2, 3) = 12;
                                   Prompts.Expect(
                                       "FBP values of the grid will be replaced by FBP from SU Header",
                                       Answer::Ok);
                               },
                               [&] { return Line.ShotTimes(2, 3) == 42; }})},
        {"Text6",
         [&](QWidget* control) {
             auto* length = qobject_cast<QLineEdit*>(control);
             EXPECT_TRUE(length->isReadOnly());
             EXPECT_EQ(length->text(), "120");
             Prompts.Expect_Input(" Enter the End Shot number ", "5");
             Prompts.Expect_Input("Enter line length (From end shot 1 to End Shot 5", "99");
             QTest::mouseDClick(length, Qt::LeftButton);
             EXPECT_EQ(Line.LineLength, 99);
             EXPECT_EQ(length->text(), "99");
         }},
        {"Command6",
         Clicked({[&] {
                      Prompts.Expect_Input("Enter the End Shot 1 number", "2");
                      Prompts.Expect_Input(
                          " Enter the distance to remove or add (End shot 1 must have ZERO distance)", "5");
                  },
                  [&] { return Line.ShotDistance(2) == 5 && Line.DistanceShift == 5; }})},
        {"Text16",
         [&](QWidget* control) {
             EXPECT_TRUE(qobject_cast<QLineEdit*>(control)->isReadOnly());
             EXPECT_EQ(Text(control), "5");
         }},
        {"Text25", Shown(Work.Fields.Text25)},
        {"GeophonesFromShots", chosen(ElevationUpdate::ReceiversFromShots, "Compute  Geo Z from Z Shot")},
        {"ShotsFromGeophones", chosen(ElevationUpdate::ShotsFromReceivers, "Compute  Shot Z from Z geo")},
        {"Command3", Clicked({[&] {
                                  Line.ShotElevation(3) = 1;
                                  Prompts.Expect("Shot elevation update according geophone elevation ?",
                                                 Answer::Yes);
                              },
                              [&] { return Line.ShotElevation(3) > 90; }})},
        {"Command11",
         Clicked({[&] {
                      Prompts.Expect_Input("Enter the avearage distance between geophones, ZERO= Exit module",
                                           "9");
                      Prompts.Expect_Input("Enter the distance between End shot 1 and geophones 1 ", "4");
                      Prompts.Expect("Do you want to interplolate Shot elevation from Geophone elevation",
                                     Answer::No);
                      Prompts.Expect("Do you want to save your modifications", Answer::No);
                  },
                  [&] { return Line.GeoSpace == 9; }})},
        {"Command7", Clicked({[&] { Prompts.Expect_File("Tarnvik XYZ Shot", ""); },
                              [&] { return Prompts.FileRequests.size() == 1; }})},
        {"Command9", Clicked({[&] { Prompts.Expect_File("Tarnvik XYZ Shot", ""); },
                              [&] { return Prompts.FileRequests.size() == 2; }})},
        {"TakeOutShot",
         Clicked({[&] {
                      page->findChild<QTableView*>("Buildgrid")
                          ->setCurrentIndex(page->findChild<QTableView*>("Buildgrid")->model()->index(2, 4));
                      Prompts.Expect("Take shot 4 out of the project in memory ?", Answer::Yes);
                      Prompts.Expect_Start("Take its field record out of ", Answer::No);
                  },
                  [&] { return Line.NbShots == 4; }})},
    };
    Check_All([&] { return page; }, rows);

    // A double click on the heading of a shot, and on no other, asks for its removal.
    auto* table = page->findChild<QTableView*>("Buildgrid");
    auto* heading = table->horizontalHeader();
    const auto double_click = [&](int column) {
        const QPoint place(heading->sectionViewportPosition(column) + heading->sectionSize(column) / 2, 5);
        QTest::mouseClick(heading->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(heading->viewport(), Qt::LeftButton, {}, place);
    };
    Prompts.Expect("Do you want to remove shot 4", Answer::No);
    double_click(4);
    double_click(5);
    // Places that belong to nothing, receivers and picks look different.
    const auto look = [&](int row, int column) {
        return table->model()->index(row, column).data(Qt::BackgroundRole).value<QBrush>().color();
    };
    EXPECT_NE(look(2, 2), look(2, Line.NbShots + 1));

    Work.Settings.Units = "feet";
    Display.Show_Fields();
    QStringList units;
    for (const QLabel* label : page->findChildren<QLabel*>())
        units << label->text();
    EXPECT_EQ(units.count("ft"), 2);
    EXPECT_EQ(units.count("ms"), 1);

    // Without a line there is nothing to do here.
    Line = Project();
    Display.Show_Fields();
    for (const char* name : {"Buildgrid", "remark_grid", "Save", "Command6", "Command3"})
        EXPECT_FALSE(page->findChild<QWidget*>(name)->isEnabled()) << name;
    EXPECT_EQ(Text(page->findChild<QLineEdit*>("Text6")), "");
    EXPECT_EQ(Text(page->findChild<QLineEdit*>("Text16")), "");
}

TEST_F(PageControls, of_the_curves_and_the_profile_do_their_work) {
    QWidget* page = Page_Of(Tab::Curves);
    Display.Show_Curves();
    CurveView& view = Work.Curves;
    const auto frame = [&](const char* name) { return Box(name)->Canvas().Current_Frame(); };
    const auto curves_bar = [&](ScrollBar& field, Qt::Orientation orientation) {
        return [&, orientation](QWidget* control) {
            auto* bar = qobject_cast<QScrollBar*>(control);
            EXPECT_EQ(bar->orientation(), orientation);
            Set_Zoom(view, 1, 1);
            Display.Show_Curves();
            EXPECT_FALSE(bar->isVisible());
            Set_Zoom(view, 4, 4);
            field.Value = 5;
            Display.Show_Curves();
            EXPECT_TRUE(bar->isVisible());
            EXPECT_EQ(bar->value(), 5);
            EXPECT_EQ(bar->maximum(), field.Max);
            const Frame before = frame("Dromo");
            bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
            EXPECT_EQ(field.Value, 6);
            const Frame after = frame("Dromo");
            EXPECT_EQ(after.Left - before.Left, orientation == Qt::Horizontal ? 1 : 0);
            EXPECT_EQ(after.Top - before.Top, orientation == Qt::Horizontal ? 0 : 1);
            // The bar and the wheel go up with the picture: to later times, or to earlier ones.
            for (const bool zero_on_top : {false, true}) {
                view.ZeroOnTop = zero_on_top;
                Display.Show_Curves();
                if (orientation == Qt::Vertical) {
                    EXPECT_NE(bar->invertedAppearance(), zero_on_top);
                }
                field.Value = 30;
                Display.Show_Fields();
                const QPoint turned = orientation == Qt::Horizontal ? QPoint(120, 0) : QPoint(0, 120);
                const QPointF place(100, 100);
                QWheelEvent up(place, Box("Dromo")->mapToGlobal(place), {}, turned, {}, Qt::NoModifier,
                               Qt::NoScrollPhase, false);
                QApplication::sendEvent(Box("Dromo"), &up);
                EXPECT_NE(field.Value, 30);
                EXPECT_EQ(field.Value > 30, orientation == Qt::Vertical && !zero_on_top);
            }
            view.ZeroOnTop = false;
            Set_Zoom(view, 1, 1);
            Display.Show_Curves();
        };
    };
    const auto profile_bar = [&](double& scrolled, Qt::Orientation orientation) {
        return [&, orientation](QWidget* control) {
            auto* bar = qobject_cast<QScrollBar*>(control);
            EXPECT_EQ(bar->orientation(), orientation);
            Run_Command(Program, "S2");
            QApplication::processEvents();
            EXPECT_FALSE(bar->isVisible());
            Work.Profile.ZoomX = Work.Profile.ZoomY = 4;
            scrolled = 40;
            Display.Show_Fields();
            Display.Repaint_Page(Page::Profile);
            EXPECT_TRUE(bar->isVisible());
            EXPECT_EQ(bar->value(), 40);
            EXPECT_EQ(bar->maximum(), orientation == Qt::Horizontal ? 600 : 300);
            const Frame before = frame("Dromo1");
            bar->setSliderPosition(80);
            EXPECT_EQ(scrolled, 80);
            const Frame after = frame("Dromo1");
            EXPECT_EQ(after.Left - before.Left, orientation == Qt::Horizontal ? 10 : 0);
            EXPECT_EQ(after.Bottom - before.Bottom, orientation == Qt::Horizontal ? 0 : 10);
        };
    };
    const auto elevation = [&](std::optional<double>& given) {
        return [&](QWidget* control) {
            given = 75;
            Display.Show_Fields();
            EXPECT_EQ(Text(control), "75");
            const Effect drawn = Redraws("Dromo1");
            drawn.Before();
            Type(control, "88.");
            EXPECT_EQ(given, 88);
            EXPECT_EQ(Text(control), "88.") << "what is typed stays as it is typed";
            EXPECT_TRUE(drawn.Done());
            qobject_cast<QLineEdit*>(control)->selectAll();
            QTest::keyClick(control, Qt::Key_Delete);
            EXPECT_FALSE(given.has_value());
        };
    };
    const std::vector<Row> rows = {
        {"Check11", Ticked(Work.Fields.Check11, Redraws("Dromo"))},
        {"Grille_Shot",
         [&](QWidget* control) {
             auto* list = qobject_cast<QListView*>(control);
             const auto tick = [list](int row) {
                 const QRect place = list->visualRect(list->model()->index(row, 0));
                 QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                                   QPoint(place.left() + 10, place.center().y()));
             };
             const auto ticked = [list](int row) {
                 return list->model()->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
             };
             ASSERT_EQ(list->model()->rowCount(), 5);
             EXPECT_EQ(list->model()->index(2, 0).data().toString(), "3   60 m");
             Work.Fields.Check11 = true;
             Redraws("Dromo").Before();
             tick(2);
             EXPECT_EQ(view.ShotsLeftOut, std::set<int>{3});
             EXPECT_FALSE(Work.Fields.Check11);
             EXPECT_FALSE(ticked(2));
             EXPECT_TRUE(ticked(1));
             EXPECT_FALSE(Blank(Box("Dromo")));
             view.ShotsLeftOut = {2};
             Display.Show_Grids();
             EXPECT_TRUE(ticked(2) && !ticked(1));
             tick(1);
             EXPECT_TRUE(view.ShotsLeftOut.empty());
             // The row of a shot shows its record.
             Redraws("Ecran").Before();
             list->setCurrentIndex(list->model()->index(3, 0));
             EXPECT_EQ(Work.Grids.Grille_Shot.CurrentRow, 3);
             EXPECT_FALSE(Blank(Box("Ecran")));
         }},
        {"HScroll1", curves_bar(view.HScroll1, Qt::Horizontal)},
        {"VScroll1", curves_bar(view.VScroll1, Qt::Vertical)},
        {"ProfileAcross", profile_bar(Work.Profile.Across, Qt::Horizontal)},
        {"ProfileUp", profile_bar(Work.Profile.Up, Qt::Vertical)},
        {"Text27", elevation(Work.Profile.GivenMaxElevation)},
        {"Text33", elevation(Work.Profile.GivenMinElevation)},
        {"Text23", Typed(Work.Fields.Text23)},
        {"Command19",
         [&](QWidget* control) {
             QTest::mouseClick(control, Qt::LeftButton);
             EXPECT_EQ(Work.Profile.GivenMaxElevation, 110);
             EXPECT_EQ(Work.Profile.GivenMinElevation, 100);
             EXPECT_EQ(Text(page->findChild<QLineEdit*>("Text32")), "10");
         }},
        {"Text32",
         [&](QWidget* control) {
             EXPECT_TRUE(qobject_cast<QLineEdit*>(control)->isReadOnly());
             Work.Profile.GivenMaxElevation = 95;
             Work.Profile.GivenMinElevation = 70;
             Display.Show_Fields();
             EXPECT_EQ(Text(control), "25");
         }},
    };
    Check_All([&] { return page; }, rows);
}

}  // namespace
}  // namespace tarnvik
