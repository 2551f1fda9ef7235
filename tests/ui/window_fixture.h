#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <cmath>
#include <memory>

#include "app/session.h"
#include "support/test_ports.h"
#include "ui/main_window.h"
#include "ui/picture_box.h"
#include "ui/qt_display.h"

namespace tarnvik {

/// The program with its main window, on files in a folder of the test's own.
class WindowTest : public testing::Test {
  protected:
    ~WindowTest() override { Display.End_Program(); }

    void Show_Window(int width, int height) {
        Display.Attach(Program);
        Screen =
            std::make_unique<MainWindow>(Program, Display, QString::fromStdString(Folder / "Windows.ini"));
        Screen->resize(width, height);
        Screen->show();
    }
    static bool Blank(PictureBox* box) {
        const QImage& image = box->Canvas().Image();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) != qRgb(255, 255, 255)) return false;
            }
        }
        return true;
    }

    test::TemporaryFolder Folder;
    test::ScriptedPrompts Prompts;
    test::RecordingLauncher Launcher;
    QtDisplay Display;
    Session Program{{Prompts, Display, Launcher}, Folder / "Tarnvik32.INI"};
    std::unique_ptr<MainWindow> Screen;
};

/// The main window over a small line: 3 shots, 12 receivers 5 m apart.
class Window : public WindowTest {
  protected:
    Window() {
        Project& line = Program.Work.Project;
        line.NbShots = 3;
        line.NbReceivers = 12;
        line.LineLength = 55;
        Redimension_Project(line);
        for (int receiver = 1; receiver <= 12; ++receiver) {
            line.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(5 * (receiver - 1));
            for (int shot = 1; shot <= 3; ++shot) {
                line.ShotTimes(shot, receiver) =
                    static_cast<float>(3 + 2 * std::abs(5 * (receiver - 1) - 27.5 * (shot - 1)));
            }
        }
        line.ShotDistance(2) = 27.5;
        line.ShotDistance(3) = 55;
        Show_Window(1100, 700);
        Display.Select_Tab(Tab::Curves);
        Display.Show_Curves();
        QApplication::processEvents();
    }

    template <class Control>
    Control* Find(const char* name) {
        auto* control = Screen->findChild<Control*>(name);
        EXPECT_NE(control, nullptr) << name;
        return control;
    }
    QPoint Pixel(PictureBox* box, double x, double y) {
        const Frame frame = box->Canvas().Current_Frame();
        return (box->Canvas().Window().topLeft() + QPointF(frame.To_Pixel_X(x), frame.To_Pixel_Y(y)))
            .toPoint();
    }
};

}  // namespace tarnvik
