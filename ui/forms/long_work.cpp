#include "ui/forms/long_work.h"

#include <QProgressBar>
#include <QProgressDialog>
#include <memory>

namespace tarnvik {

namespace {

constexpr int shown_after_ms = 300;

}  // namespace

void Run_Long_Work(QWidget* form, const std::function<QString(std::int64_t done, std::int64_t all)>& label,
                   const std::function<void(const TraceProgress&)>& work) {
    // Questions come before the work: the box is there only when the first trace is told.
    std::unique_ptr<QProgressDialog> box;
    work([&](std::int64_t done, std::int64_t all) {
        if (!box) {
            box = std::make_unique<QProgressDialog>(QString(), QObject::tr("Stop"), 0, 1, form);
            auto* bar = new QProgressBar(box.get());
            bar->setObjectName("ProgressBar1");
            box->setBar(bar);
            box->setWindowTitle(form->window()->windowTitle());
            box->setWindowModality(Qt::ApplicationModal);
            box->setMinimumDuration(shown_after_ms);
            box->setMinimumWidth(form->fontMetrics().averageCharWidth() * 60);
            box->setRange(0, static_cast<int>(all));
            // It stays until the last message is read: a message over nothing would stand over the main
            // window and bring that one in front of the form.
            box->setAutoClose(false);
            box->setAutoReset(false);
        }
        box->setLabelText(label(done, all));
        box->setValue(static_cast<int>(done));
        // One that was quick enough not to be seen does not come any more.
        if (done >= all && !box->isVisible()) box->reset();
        return !box->wasCanceled();
    });
    if (!box) return;
    box.reset();
    form->window()->activateWindow();
}

}  // namespace tarnvik
