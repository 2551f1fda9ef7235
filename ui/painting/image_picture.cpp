#include "ui/painting/image_picture.h"

#include <algorithm>

namespace tarnvik {

ImagePicture::ImagePicture(QSize size, double pixels_per_point) {
    Resize(size, pixels_per_point);
}

ImagePicture::~ImagePicture() = default;

void ImagePicture::Resize(QSize size, double pixels_per_point) {
    size = size.expandedTo({1, 1}).boundedTo({16384, 16384});
    if (size == Paper.size() && pixels_per_point == Pixels_Per_Point()) return;
    Brush.reset();
    Paper = QImage(size, QImage::Format_RGB32);
    Paper.fill(Qt::white);
    AllTold = false;
    Attach(nullptr, QRectF(QPointF(0, 0), QSizeF(size)), pixels_per_point, true);
    if (OnChanged) OnChanged(Paper.rect());
}

const QImage& ImagePicture::Image() {
    if (Brush) {
        Brush.reset();
        Attach(nullptr, Area(), Pixels_Per_Point(), true);
    }
    AllTold = false;
    return Paper;
}

QPainter* ImagePicture::Active_Painter() {
    if (!Brush) Brush.emplace(&Paper);
    return &*Brush;
}

void ImagePicture::Touched(const QRectF& place) {
    // A full drawing has thousands of verbs and is shown once, at the end of the event.
    if (AllTold || !OnChanged) return;
    const QRect changed = place.toAlignedRect().intersected(Paper.rect());
    if (changed.isEmpty()) return;
    if (changed == Paper.rect()) AllTold = true;
    OnChanged(changed);
}

void ImagePicture::Set_Pointer(PointerShape shape) {
    if (OnPointer) OnPointer(shape);
}

}  // namespace tarnvik
