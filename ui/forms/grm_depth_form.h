#pragma once

#include "ui/form.h"

namespace tarnvik {

class SpreadsheetView;

/// Form of GRM_depth, "GRM  Depth computation".
class GrmDepthForm : public Form {
    Q_OBJECT

  public:
    GrmDepthForm(Session& session, QtDisplay& display);
    void Refresh() override;
    void Opened() override;
    void Called() override;
    void Closed() override;
    QSize sizeHint() const override;

  private:
    Session& Program;
    SpreadsheetView* Grid = nullptr;
};

}  // namespace tarnvik
