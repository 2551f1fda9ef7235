#include "ui/painting/image_picture.h"

#include <algorithm>
#include <cstring>
#include <utility>

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
    BackgroundKept = false;
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

void ImagePicture::Clear() {
    BackgroundKept = false;
    PainterPicture::Clear();
}

void ImagePicture::Keep_Background() {
    if (Background.size() != Paper.size()) Background = QImage(Paper.size(), Paper.format());
    std::memcpy(Background.bits(), Paper.constBits(), static_cast<std::size_t>(Paper.sizeInBytes()));
    BackgroundKept = true;
}

bool ImagePicture::Bring_Back(double x1, double y1, double x2, double y2) {
    if (!BackgroundKept) return false;
    const QRect place = Pixels_Of(x1, y1, x2, y2).intersected(Paper.rect());
    if (place.isEmpty()) return true;
    uchar* to = Paper.bits();
    const uchar* from = std::as_const(Background).bits();
    constexpr qsizetype pixel = sizeof(QRgb);
    for (int row = place.top(); row <= place.bottom(); ++row) {
        const qsizetype start = row * Paper.bytesPerLine() + place.left() * pixel;
        std::memcpy(to + start, from + start, static_cast<std::size_t>(place.width() * pixel));
    }
    Touched(place);
    return true;
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
