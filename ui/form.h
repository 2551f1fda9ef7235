#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "core/ports/display.h"
#include "ui/field_binder.h"

namespace tarnvik {

class QtDisplay;
class Session;

/// The form of a dialog: controls and their ties to the logic, no rule of its own.
class Form : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    /// The logic changed fields or grids.
    virtual void Refresh() { Fields.Refresh(); }
    /// The form stands open; a modal one is about to.
    virtual void Opened() {}
    /// The logic calls the form in front, after the picture served it.
    virtual void Called() {}
    /// The form goes away, by its own button or by the window's.
    virtual void Closed() {}

    /// Closes the form; set by whoever shows it.
    std::function<void()> Close_Me;

  protected:
    FieldBinder Fields;
};

/// Makes the form of a dialog; null for one that has none.
using MakeForm = std::unique_ptr<Form> (*)(Session&, QtDisplay&);
MakeForm Form_Of(Dialog dialog);

}  // namespace tarnvik
