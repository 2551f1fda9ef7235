#pragma once

#include <QImage>
#include <QPainter>
#include <functional>
#include <optional>

#include "ui/painting/painter_picture.h"

namespace tarnvik {

/// A picture in memory, as it stands behind a picture box or goes into a bitmap file. It counts in the
/// device's own pixels.
class ImagePicture : public PainterPicture {
  public:
    /// `size` in device pixels; `pixels_per_point` is the density (logical dpi / 72, times the device pixel
    /// ratio of the screen).
    ImagePicture(QSize size, double pixels_per_point);
    ~ImagePicture() override;

    /// Another size or density. The picture is white afterwards; window, pen and modes stay. The same size
    /// and density again change nothing.
    void Resize(QSize size, double pixels_per_point);
    QSize Size() const { return Paper.size(); }

    /// The picture as it stands.
    const QImage& Image();

    void Set_Pointer(PointerShape shape) override;
    void Clear() override;
    void Keep_Background() override;
    bool Bring_Back(double x1, double y1, double x2, double y2) override;

    /// Told after each verb which pixels changed.
    std::function<void(const QRect&)> OnChanged;
    std::function<void(PointerShape)> OnPointer;

  protected:
    QPainter* Active_Painter() override;
    QImage* Pixels() override { return &Paper; }
    void Touched(const QRectF& place) override;

  private:
    QImage Paper;
    QImage Background;  ///< of the size of Paper once one was kept
    bool BackgroundKept = false;
    std::optional<QPainter> Brush;
    bool AllTold = false;
};

}  // namespace tarnvik
