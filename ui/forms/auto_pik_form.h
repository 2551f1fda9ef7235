#pragma once

#include "ui/form.h"

namespace tarnvik {

class AutoPik;

/// Form of AutoPik, automatic picking of first breaks: stands beside the record and picks again at each
/// change.
class AutoPikForm : public Form {
    Q_OBJECT

  public:
    AutoPikForm(Session& session, QtDisplay& display);
    void Closed() override;

  private:
    void Pick_All();
    AutoPik& Logic;
};

}  // namespace tarnvik
