#include "ui/icon_family.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

/// The drawings lie in a static library, whose resources are asked for by name.
static void Load_Drawings() {
    Q_INIT_RESOURCE(icons);
}

namespace tarnvik {

namespace {

constexpr const char* accent = "#d9822b";

/// Draws a drawing of the family in the colours of the palette in force.
class FamilyIconEngine : public QIconEngine {
  public:
    explicit FamilyIconEngine(QByteArray drawing) : Drawing(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
        const QByteArray ink = QApplication::palette().color(group, role).name().toLatin1();
        QByteArray drawing = Drawing;
        drawing.replace("currentColor", ink);
        if (mode == QIcon::Disabled) drawing.replace(accent, ink);
        QSvgRenderer(drawing).render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new FamilyIconEngine(Drawing); }

  private:
    QByteArray Drawing;
};

}  // namespace

QIcon Family_Icon(const QString& name) {
    Load_Drawings();
    QFile file(":/icons/" + name + ".svg");
    if (name.isEmpty() || !file.open(QIODevice::ReadOnly)) return {};
    return QIcon(new FamilyIconEngine(file.readAll()));
}

}  // namespace tarnvik
