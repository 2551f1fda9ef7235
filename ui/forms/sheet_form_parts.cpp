#include "ui/forms/sheet_form_parts.h"

#include <QHBoxLayout>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>
#include <QUrl>

namespace tarnvik {

void Arrange_Beside(QWidget* form, QWidget* choices, QWidget* preview) {
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    constexpr int letters = 46;
    const int width = form->fontMetrics().averageCharWidth() * letters;
    choices->setMaximumWidth(width);
    scroll->setWidget(choices);
    scroll->setFixedWidth(width + scroll->verticalScrollBar()->sizeHint().width());
    auto* columns = new QHBoxLayout(form);
    columns->addWidget(scroll);
    columns->addWidget(preview, 1);
    form->setMinimumSize(760, 480);
    form->setAcceptDrops(true);
}

void Bind_Paper(FieldBinder& fields, PaperChoice& paper, const PaperControls& controls,
                const std::function<void()>& changed) {
    for (const PaperChoice::Size& size : PaperChoice::sizes)
        controls.Paper->addItem(QString::fromUtf8(size.Name));
    fields.Choice(controls.Paper, paper.Choice, changed);
    fields.Finished_Text(controls.OwnWidth, paper.OwnWidth, changed);
    fields.Finished_Text(controls.OwnHeight, paper.OwnHeight, changed);
    fields.Tick(controls.Upright, paper.Upright, changed);
    const auto own = [&paper] { return paper.Choice == PaperChoice::own_size; };
    for (QWidget* control :
         std::initializer_list<QWidget*>{controls.OwnWidth, controls.OwnHeight, controls.LabelOwn})
        fields.Enabled(control, own);
    fields.Enabled(controls.Upright, [own] { return !own(); });
}

const std::vector<std::string>& Offered_Scales() {
    static const std::vector<std::string> scales = {"fitting", "1:100",  "1:200",  "1:250",  "1:400",
                                                    "1:500",   "1:750",  "1:1000", "1:1500", "1:2000",
                                                    "1:2500",  "1:5000", "1:10000"};
    return scales;
}

std::vector<std::string> Dropped_Files(const QDropEvent& event) {
    std::vector<std::string> files;
    for (const QUrl& url : event.mimeData()->urls()) {
        if (url.isLocalFile()) files.push_back(url.toLocalFile().toStdString());
    }
    return files;
}

}  // namespace tarnvik
