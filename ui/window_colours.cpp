#include "ui/window_colours.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace tarnvik {

namespace {

QPalette Dark_Palette() {
    const QColor ground(0x2b, 0x2d, 0x31);
    const QColor field(0x1f, 0x21, 0x24);
    const QColor raised(0x3a, 0x3d, 0x42);
    const QColor text(0xe6, 0xe6, 0xe6);
    const QColor faint(0x8a, 0x8d, 0x92);
    const QColor accent(0x3d, 0x8f, 0xd1);
    QPalette palette(raised, ground);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, field);
    palette.setColor(QPalette::AlternateBase, ground);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, raised);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent.lighter());
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, raised);
    return palette;
}

}  // namespace

void Show_Dark_Windows(bool dark) {
    // The colours and the style of the desktop, as they were before the first change.
    static const QPalette usual = QApplication::palette();
    static const QString style = QApplication::style()->name();
    // Other styles paint with colours of their own.
    QApplication::setStyle(QStyleFactory::create(dark ? QStringLiteral("Fusion") : style));
    QApplication::setPalette(dark ? Dark_Palette() : usual);
}

}  // namespace tarnvik
