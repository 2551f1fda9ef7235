#pragma once

namespace tarnvik {

/// World coordinates of a picture and the pixels they fall on: a plain value, so that what is drawn is what
/// is hit. The corners are those of the top left and the bottom right of the picture, either axis may run
/// either way.
struct Frame {
    double Left = 0;
    double Top = 0;
    double Right = 1;
    double Bottom = 1;
    double Width = 1;   ///< pixels
    double Height = 1;  ///< pixels

    double To_Pixel_X(double x) const { return Right == Left ? 0 : (x - Left) / (Right - Left) * Width; }
    double To_Pixel_Y(double y) const { return Bottom == Top ? 0 : (y - Top) / (Bottom - Top) * Height; }
    double To_World_X(double pixel) const {
        return Width == 0 ? Left : Left + pixel / Width * (Right - Left);
    }
    double To_World_Y(double pixel) const {
        return Height == 0 ? Top : Top + pixel / Height * (Bottom - Top);
    }

    bool operator==(const Frame&) const = default;
};

}  // namespace tarnvik
