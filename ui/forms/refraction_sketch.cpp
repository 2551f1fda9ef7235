#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/forms/splash_form.h"

namespace tarnvik {

namespace {

constexpr double ground_level = 0.46;  // all heights as parts of the picture's
constexpr std::array<double, 2> interface_depth = {0.64, 0.84};
constexpr double shot_place = 0.10;
constexpr int receiver_count = 12;

double Ground(double x) {
    return ground_level + 0.014 * std::sin(7 * x) - 0.008 * std::sin(17 * x);
}

double Interface(int layer, double x) {
    const double wave = layer == 0 ? 0.016 * std::sin(6 * x + 1) : 0.022 * std::sin(4 * x + 2.2);
    return interface_depth[static_cast<std::size_t>(layer)] + wave;
}

double Receiver_Place(int receiver) {
    return 0.18 + 0.76 * receiver / (receiver_count - 1);
}

/// Earth below a line that runs across the picture.
template <class Line>
QPainterPath Below(const QSizeF& size, Line line) {
    QPainterPath path;
    path.moveTo(0, size.height());
    for (int step = 0; step <= 80; ++step) {
        const double x = step / 80.0;
        path.lineTo(x * size.width(), line(x) * size.height());
    }
    path.lineTo(size.width(), size.height());
    path.closeSubpath();
    return path;
}

}  // namespace

void RefractionSketch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QSizeF area = size();
    const auto at = [&area](double x, double y) { return QPointF(x * area.width(), y * area.height()); };

    QLinearGradient sky(0, 0, 0, ground_level * area.height());
    sky.setColorAt(0, QColor(0x17, 0x2c, 0x42));
    sky.setColorAt(1, QColor(0x3f, 0x6a, 0x8c));
    painter.fillRect(rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xd8, 0xb0, 0x78));
    painter.drawPath(Below(area, Ground));
    painter.setBrush(QColor(0xb4, 0x7c, 0x45));
    painter.drawPath(Below(area, [](double x) { return Interface(0, x); }));
    painter.setBrush(QColor(0x6b, 0x47, 0x2c));
    painter.drawPath(Below(area, [](double x) { return Interface(1, x); }));

    // Head waves: down at the critical angle, along the interface, up to each receiver beyond.
    for (const int layer : {1, 0}) {
        const double lean = layer == 0 ? 0.09 : 0.17;
        painter.setPen(QPen(layer == 0 ? QColor(255, 255, 255, 170) : QColor(0xff, 0xd9, 0x8f, 150), 1.2));
        const double enter = shot_place + lean;
        for (int receiver = 0; receiver < receiver_count; ++receiver) {
            const double place = Receiver_Place(receiver);
            const double leave = place - lean;
            const bool deep = place > 0.55;
            if (leave <= enter || deep != (layer == 1)) continue;
            QPainterPath ray(at(shot_place, Ground(shot_place)));
            for (int step = 0; step <= 20; ++step) {
                const double x = enter + (leave - enter) * step / 20;
                ray.lineTo(at(x, Interface(layer, x)));
            }
            ray.lineTo(at(place, Ground(place)));
            painter.setBrush(Qt::NoBrush);
            painter.drawPath(ray);
        }
    }

    // Travel times of the shot, three branches of rising velocity.
    const auto time = [](double x) {
        const double away = x - shot_place;
        return std::min({0.06 + 0.78 * away, 0.10 + 0.42 * away, 0.19 + 0.20 * away});
    };
    painter.setPen(QPen(QColor(255, 255, 255, 60), 1));
    for (int line = 1; line <= 4; ++line) {
        painter.drawLine(at(0.06, 0.40 - 0.085 * line), at(0.97, 0.40 - 0.085 * line));
    }
    QPolygonF curve{at(shot_place, 0.40)};
    for (int receiver = 0; receiver < receiver_count; ++receiver) {
        const double place = Receiver_Place(receiver);
        curve << at(place, 0.42 - time(place));
    }
    painter.setPen(QPen(QColor(0xff, 0xc9, 0x6b), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(curve);
    painter.setBrush(QColor(0x17, 0x2c, 0x42));
    for (const QPointF& pick : curve.mid(1))
        painter.drawEllipse(pick, 3.2, 3.2);

    painter.setPen(QPen(QColor(0x22, 0x22, 0x22), 1));
    painter.setBrush(QColor(0xff, 0xe0, 0x4a));
    for (int receiver = 0; receiver < receiver_count; ++receiver) {
        const double place = Receiver_Place(receiver);
        const QPointF foot = at(place, Ground(place));
        painter.drawPolygon(QPolygonF{foot, foot + QPointF(-4.5, -8), foot + QPointF(4.5, -8)});
    }
    QPolygonF star;
    for (int point = 0; point < 16; ++point) {
        const double angle = point * 3.14159265 / 8;
        const double reach = point % 2 == 0 ? 12 : 5;
        star << at(shot_place, Ground(shot_place)) +
                    QPointF(reach * std::cos(angle), reach * std::sin(angle));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xe2, 0x3b, 0x2e));
    painter.drawPolygon(star);
}

}  // namespace tarnvik
