#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "core/files.h"
#include "support/test_ports.h"
#include "ui/painting/image_picture.h"
#include "ui/painting/picture_file.h"

namespace tarnvik {
namespace {

constexpr double screen_density = 96.0 / 72.0;

QRect Ink(const QImage& image, QRgb paper = qRgb(255, 255, 255)) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != paper) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

TEST(Painter_picture, world_windows_run_either_way_on_both_axes) {
    struct Case {
        double Left, Top, Right, Bottom;
        QPoint Pixel;  // of world (25, 10)
    };
    constexpr Case cases[] = {
        {0, 100, 100, 0, {50, 90}}, {0, 0, 100, 100, {50, 10}}, {100, 0, 0, 100, {150, 10}}};
    for (const Case& one : cases) {
        ImagePicture picture({200, 100}, screen_density);
        picture.Scale(one.Left, one.Top, one.Right, one.Bottom);
        picture.Point(25, 10, colours::Red);
        EXPECT_LE((Ink(picture.Image()).center() - one.Pixel).manhattanLength(), 1);
        EXPECT_DOUBLE_EQ(picture.Current_Frame().To_World_X(one.Pixel.x()), 25);
        EXPECT_DOUBLE_EQ(picture.Current_Frame().To_World_Y(one.Pixel.y()), 10);
    }
}

TEST(Painter_picture, colours_have_red_in_the_low_byte) {
    ImagePicture picture({20, 20}, screen_density);
    picture.Scale(0, 0, 20, 20);
    picture.Box(0, 0, 20, 20, 0x302010, true);
    EXPECT_EQ(picture.Image().pixel(10, 10), qRgb(0x10, 0x20, 0x30));
}

TEST(Painter_picture, a_figure_drawn_twice_in_xor_vanishes) {
    ImagePicture picture({200, 150}, screen_density);
    picture.Scale(0, 100, 96, 0);
    picture.Line(3, 7, 80, 91, colours::Blue);
    picture.Print_At(20, 50, "72", colours::Green);
    const QImage before = picture.Image().copy();
    for (const Colour colour : {colours::Yellow, colours::Black, colours::Cyan}) {
        for (int time = 0; time < 2; ++time) {
            picture.Set_Draw_Mode(DrawMode::Xor);
            picture.Set_Draw_Width(2);
            picture.Line(5, 5, 90, 63.3, colour);
            picture.Circle(40, 40, 7, colour);
            picture.Box(10, 10, 50, 70, colour, false);
            picture.Print_At(30, 30, "Velocity", colour);
            EXPECT_EQ(picture.Image() == before, time == 1) << "a black band must be seen as well";
        }
    }
    picture.Set_Draw_Mode(DrawMode::Copy);
    picture.Line(5, 5, 90, 63.3, colours::Red);
    EXPECT_NE(picture.Image(), before);
}

TEST(Painter_picture, a_band_shows_on_paper_in_its_colour_or_the_complement_whichever_is_darker) {
    constexpr std::pair<Colour, QRgb> cases[] = {{colours::Blue, qRgb(0, 0, 255)},
                                                 {colours::Black, qRgb(0, 0, 0)},
                                                 {colours::White, qRgb(0, 0, 0)},
                                                 {colours::Yellow, qRgb(0, 0, 255)},
                                                 {colours::Cyan, qRgb(255, 0, 0)}};
    for (const auto& [colour, seen] : cases) {
        ImagePicture picture({50, 50}, screen_density);
        picture.Scale(0, 0, 50, 50);
        picture.Set_Draw_Mode(DrawMode::Xor);
        picture.Line(0, 25.5, 50, 25.5, colour);
        EXPECT_EQ(picture.Image().pixel(25, 25), seen) << colour;
    }
}

TEST(Painter_picture, letters_and_pens_grow_with_the_density_and_not_with_the_window) {
    const auto text_height = [](double density, double world) {
        ImagePicture picture({600, 400}, density);
        picture.Scale(0, world, world, 0);
        picture.Set_Font_Size(12);
        picture.Print_At(world / 2, world / 2, "H", colours::Black);
        return Ink(picture.Image()).height();
    };
    EXPECT_NEAR(text_height(2 * screen_density, 96), 2 * text_height(screen_density, 96), 1);
    EXPECT_EQ(text_height(screen_density, 96), text_height(screen_density, 5));
}

TEST(Painter_picture, print_starts_at_the_pen_and_leaves_it_on_the_next_line) {
    ImagePicture picture({300, 200}, screen_density);
    picture.Scale(0, 100, 100, 0);
    picture.Print_At(50, 60, "H", colours::Black);
    const QRect ink = Ink(picture.Image());
    EXPECT_GE(ink.left(), 150);
    EXPECT_LE(ink.left(), 153);
    EXPECT_GE(ink.top(), 80);
    EXPECT_GT(picture.Current_Frame().To_Pixel_Y(picture.Pen_Y()), ink.bottom());
    EXPECT_LT(picture.Pen_Y(), 60);
    EXPECT_EQ(picture.Pen_X(), 0);
}

TEST(Painter_picture, axis_texts_outside_the_window_are_moved_into_the_margin_and_figures_are_cut) {
    ImagePicture picture({400, 300}, screen_density);
    picture.Set_Margins(Curves_Layout().Margins);
    picture.Scale(0, 100, 96, 0);
    const QRect window = picture.Window().toRect();
    struct Case {
        double X, Y;
        const char* Text;
    };
    for (const Case& one : {Case{-5, 100, " ms"}, Case{96, -5, "m"}, Case{-3.5, -1, "0"}}) {
        picture.Clear();
        picture.Print_At(one.X, one.Y, one.Text, colours::Black);
        const QRect ink = Ink(picture.Image());
        EXPECT_FALSE(ink.isEmpty()) << one.Text;
        EXPECT_GE(ink.left(), 0);
        EXPECT_LT(ink.right(), 399);
        EXPECT_LT(ink.bottom(), 299);
    }
    picture.Clear();
    picture.Line(-1000, 50, 1000, 50, colours::Black);
    picture.Circle(300, 50, 2, colours::Red);
    picture.Print_At(40, 500, "far away", colours::Black);
    EXPECT_TRUE(window.adjusted(-3, -3, 3, 3).contains(Ink(picture.Image())));
}

TEST(Painter_picture, a_strip_shows_each_height_beside_the_picture_it_belongs_to) {
    ImagePicture main({400, 300}, screen_density);
    ImagePicture strip({60, 300}, screen_density);
    main.Set_Margins(Curves_Layout().Margins);
    strip.Follow_Rows_Of(&main);
    main.Scale(0, 60, 96, 40);
    strip.Scale(0, 61, 10, 39);
    for (const double y : {40.0, 47.0, 60.0}) {
        EXPECT_NEAR(main.Window().top() + main.Current_Frame().To_Pixel_Y(y),
                    strip.Window().top() + strip.Current_Frame().To_Pixel_Y(y), 1e-9);
    }
}

TEST(Painter_picture, texts_of_a_distance_scale_get_narrower_letters_where_one_would_cover_the_next) {
    constexpr int texts = 4;
    const auto painted = [](int width) {
        ImagePicture main({width, 100}, screen_density);
        main.Scale(0, 100, texts, 0);
        ImagePicture strip({width, 30}, screen_density);
        strip.Follow_Columns_Of(&main);
        strip.Clear();
        strip.Scale(0, 0, texts, 10);
        for (int text = 0; text < texts; ++text)
            strip.Print_At(text, 1, "102.5", colours::Black);
        return strip.Image().copy();
    };
    const auto blank_columns_before_the_next = [](const QImage& strip) {
        const int pitch = strip.width() / texts;
        return pitch - 1 - Ink(strip.copy(0, 0, pitch, strip.height())).right();
    };
    const QImage wide = painted(400);
    const int usual = Ink(wide.copy(0, 0, 100, 30)).width();
    const QImage narrow = painted(texts * (usual - 4));
    EXPECT_GE(blank_columns_before_the_next(narrow), 1);
}

TEST(Painter_picture, places_that_are_no_number_or_far_away_do_no_harm) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    constexpr double endless = std::numeric_limits<double>::infinity();
    ImagePicture picture({100, 100}, screen_density);
    picture.Scale(0, 0, 0, 0);
    picture.Line(1, 1, 2, 2, colours::Black);
    picture.Scale(0, 100, 100, 0);
    picture.Clear();
    for (const double bad : {none, endless, -endless}) {
        picture.Line(0, 0, bad, 10, colours::Black);
        picture.Circle(10, bad, 3, colours::Black);
        picture.Circle(10, 10, bad, colours::Black);
        picture.Arc(10, 10, 3, colours::Black, 0, bad, 1);
        picture.Box(bad, 0, 10, 10, colours::Black, true);
        picture.Print_At(bad, bad, "x", colours::Black);
    }
    EXPECT_EQ(picture.Pen_X(), 0);
    picture.Line(-1e12, 150, 1e12, 150, colours::Black);
    picture.Circle(0, 0, 1e9, colours::Black);
    const std::array<PixelPoint, 3> wild = {{{-2147483647, 200}, {2147483647, 300}, {0, 2147483647}}};
    picture.Polygon(wild, colours::Red);
    EXPECT_TRUE(Ink(picture.Image()).isEmpty() || picture.Image().width() == 100);
}

TEST(Painter_picture, lobes_and_traces_fall_on_their_pixels_and_stay_inside_the_picture) {
    constexpr QRgb red = qRgb(255, 0, 0);
    ImagePicture picture({60, 40}, screen_density);
    picture.Scale(0, 0, 60, 40);
    // To the right of its axis, to the left, and so far that it leaves the picture.
    picture.Polygon(std::array<PixelPoint, 3>{{{10, 5}, {20, 15}, {10, 25}}}, colours::Red);
    picture.Polygon(std::array<PixelPoint, 4>{{{40, 5}, {34, 5}, {34, 9}, {40, 9}}}, colours::Red);
    constexpr int far = std::numeric_limits<int>::max();
    picture.Polygon(std::array<PixelPoint, 4>{{{30, 30}, {far, 30}, {far, 32}, {30, far}}}, colours::Red);
    const auto row_of = [&](int y) {
        QString row;
        for (int x = 0; x < 60; ++x)
            row += picture.Image().pixel(x, y) == red ? '#' : '.';
        return row.toStdString();
    };
    EXPECT_EQ(row_of(4).find('#'), std::string::npos);
    EXPECT_EQ(row_of(10), std::string(10, '.') + std::string(6, '#') + std::string(44, '.'));
    EXPECT_EQ(row_of(15), std::string(10, '.') + std::string(11, '#') + std::string(39, '.'));
    EXPECT_EQ(row_of(7).substr(30), "....#######...................");
    EXPECT_EQ(row_of(31), std::string(30, '.') + std::string(30, '#'));

    picture.Clear();
    picture.Set_Draw_Width(1);
    picture.Polyline(std::array<PixelPoint, 4>{{{5, 0}, {5, 10}, {25, 15}, {-far, 39}}}, colours::Black);
    for (const QPoint at : {QPoint(5, 0), QPoint(5, 7), QPoint(5, 10), QPoint(25, 15)}) {
        EXPECT_EQ(picture.Image().pixel(at), qRgb(0, 0, 0)) << at.x() << ", " << at.y();
    }
    // A slanting part shares its ink between two pixels.
    EXPECT_EQ(qRed(picture.Image().pixel(6, 10)), 63);
    EXPECT_EQ(qRed(picture.Image().pixel(6, 11)), 191);
    EXPECT_EQ(picture.Image().pixel(6, 9), qRgb(255, 255, 255));
}

TEST(Picture_file, each_type_is_written_and_an_unknown_one_is_refused) {
    const test::TemporaryFolder folder;
    int drawn = 0;
    const DrawPage draw = [&drawn](Picture& main, Picture& strip_x, Picture& strip_y) {
        ++drawn;
        main.Scale(0, 100, 96, 0);
        strip_x.Scale(0, 0, 96, 10);
        strip_y.Scale(0, 101, 10, -1);
        main.Clear();
        main.Line(0, 0, 96, 100, colours::Blue);
        strip_x.Print_At(48, 1, "g=12", colours::Black);
        strip_y.Print_At(1, 52, "50   ms", colours::Black);
    };
    const std::pair<const char*, const char*> types[] = {
        {"a.png", "\x89PNG"}, {"a.svg", "<?xml"}, {"a.PDF", "%PDF"}};
    for (const auto& [name, start] : types) {
        EXPECT_EQ(Write_Picture_File(folder / name, {640, 400}, Curves_Layout(), {}, draw), "");
        EXPECT_EQ(Read_File(folder / name).value_or("").rfind(start, 0), 0U) << name;
    }
    EXPECT_EQ(drawn, 3);
    EXPECT_NE(Read_File(folder / "a.svg")->find("50   ms"), std::string::npos) << "letters stay letters";
    EXPECT_NE(Write_Picture_File(folder / "a.xyz", {640, 400}, Curves_Layout(), {}, draw), "");
    EXPECT_NE(Write_Picture_File(folder / "no/a.png", {640, 400}, Curves_Layout(), {}, draw), "");
    EXPECT_FALSE(File_Exists(folder / "a.xyz"));
}

}  // namespace
}  // namespace tarnvik
