#include "ui/magnifier_box.h"

#include <QVBoxLayout>
#include <algorithm>

#include "app/session.h"
#include "records/magnifier.h"
#include "records/record_files.h"
#include "ui/picture_box.h"
#include "ui/qt_display.h"

namespace tarnvik {

namespace {
constexpr QSize preferred_size(300, 240);
constexpr int from_edge = 8;
}  // namespace

MagnifierBox::MagnifierBox(Session& session, QtDisplay& display, PictureBox* record)
    : QFrame(record), Program(session), Record(record) {
    setObjectName("Magnifier");
    setFrameShape(QFrame::Box);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    auto* picture = new PictureBox;
    picture->setFocusPolicy(Qt::NoFocus);
    layout->addWidget(picture);
    display.Register(Canvas::Magnifier, picture);
    connect(picture, &PictureBox::Resized, this, [this] { Show_Magnifier(Program.Work, Program.Outside); });
    connect(record, &PictureBox::Moved, this, [this] { Follow(); });
    hide();
}

void MagnifierBox::Follow() {
    const PickingView& view = Program.Work.Record.Picking;
    const bool wanted = view.Magnifier && Program.Work.Record.RecordWidth > 0 && view.MagnifiedTrace > 0;
    if (!wanted) {
        hide();
        return;
    }
    const Frame frame = Record->Canvas().Current_Frame();
    const double x = frame.To_Pixel_X(view.MagnifiedTrace * trace_width + trace_width / 2);
    const bool on_the_left = x > frame.Width / 2;
    resize(std::min(preferred_size.width(), Record->width() / 2 - 2 * from_edge),
           std::min(preferred_size.height(), Record->height() / 2));
    // First breaks lie in the upper part of most records.
    move(on_the_left ? from_edge : Record->width() - width() - from_edge,
         Record->height() - height() - from_edge);
    if (isHidden()) {
        show();
        raise();
    }
}

}  // namespace tarnvik
