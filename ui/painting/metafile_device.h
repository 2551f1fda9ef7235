#pragma once

#include <QPaintDevice>
#include <QSizeF>
#include <memory>

#include "core/metafile.h"

class QPaintEngine;

namespace tarnvik {

/// Paper whose figures become records of a Windows metafile: painted on like a page of a PDF document, so
/// that places, letters and title block agree with those of all other devices. Its pixels are the units of
/// the metafile.
class MetafileDevice : public QPaintDevice {
  public:
    /// `paper` in inches. A very large one gets fewer units an inch, so that all of it can be told.
    explicit MetafileDevice(const QSizeF& paper);
    ~MetafileDevice() override;

    QPaintEngine* paintEngine() const override;
    QSize Size() const { return Units; }
    double Dots_An_Inch() const { return Density; }
    /// The file, when all is painted.
    QByteArray Bytes() const;

  protected:
    int metric(PaintDeviceMetric what) const override;

  private:
    int Density;
    QSize Units;
    Metafile File;
    std::unique_ptr<QPaintEngine> Engine;
};

}  // namespace tarnvik
