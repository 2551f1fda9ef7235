#pragma once

#include <QComboBox>
#include <QLabel>
#include <initializer_list>

#include "core/workspace.h"
#include "ui/field_binder.h"

namespace tarnvik {

/// Keeps the room of a control that is hidden for a while, so that what stands beside and below it stays
/// where it is.
inline void Keep_Room(QWidget* control) {
    QSizePolicy policy = control->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control->setSizePolicy(policy);
}

/// A box with a receiver's number, the mark beside it, and what the dialog calls it.
template <class Meaning>
struct ReceiverBoxControls {
    QComboBox* Box;
    QLabel* Mark;
    Meaning Means;
};

/// Ties the receiver boxes of a dialog: a press on the curves fills the one that was entered last, which its
/// mark shows while the dialog has the picture.
template <class Logic>
void Bind_Receiver_Boxes(FieldBinder& fields, const Workspace& work, Dialog dialog, Logic& logic,
                         std::initializer_list<ReceiverBoxControls<typename Logic::ReceiverBox>> boxes) {
    for (const auto& [box, mark, means] : boxes) {
        fields.On_Focus(box, [&fields, &logic, means = means] {
            logic.Enter_Receiver(means);
            fields.Refresh();
        });
        Keep_Room(mark);
        fields.Shown(mark, [&work, &logic, dialog, means = means] {
            return work.Mode.Held_By(dialog) && logic.LastEntered == means;
        });
    }
}

}  // namespace tarnvik
