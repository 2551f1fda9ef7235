#pragma once

#include <QDropEvent>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "output/sheets/paper_choice.h"
#include "ui/field_binder.h"

namespace tarnvik {

/// A form of sheets: its choices in a column that scrolls where the window is low, the preview beside it.
void Arrange_Beside(QWidget* form, QWidget* choices, QWidget* preview);

/// The controls of a paper.
struct PaperControls {
    QComboBox* Paper;
    QLineEdit* OwnWidth;
    QLineEdit* OwnHeight;
    QLabel* LabelOwn;
    QAbstractButton* Upright;
};
void Bind_Paper(FieldBinder& fields, PaperChoice& paper, const PaperControls& controls,
                const std::function<void()>& changed);

/// Round scales to choose from, "fitting" first.
const std::vector<std::string>& Offered_Scales();

/// The files of a drop, by their paths.
std::vector<std::string> Dropped_Files(const QDropEvent& event);

}  // namespace tarnvik
