#include "hosts/qt/designer/ControlIcons.h"

#include <QIcon>
#include <QPainter>
#include <QPixmap>

namespace velmora {
namespace {

constexpr QColor kInk(70, 80, 95);
constexpr QColor kBand(47, 111, 183);
constexpr QColor kChosen(224, 122, 31);

/// On a sheet of 24 x 24 units.
void DrawCalendar(QPainter& painter) {
    painter.fillRect(QRectF(2, 3, 20, 19), kInk);
    painter.fillRect(QRectF(3, 4, 18, 17), Qt::white);
    painter.fillRect(QRectF(3, 4, 18, 4), kBand);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column) {
            const bool chosen = row == 1 && column == 2;
            painter.fillRect(QRectF(5 + 4 * column, 10 + 4 * row, 2, 2), chosen ? kChosen : kInk);
        }
    }
    painter.fillRect(QRectF(6, 1, 2, 4), kInk);
    painter.fillRect(QRectF(16, 1, 2, 4), kInk);
}

void DrawDateBox(QPainter& painter) {
    painter.fillRect(QRectF(1, 6, 22, 12), kInk);
    painter.fillRect(QRectF(2, 7, 13, 10), Qt::white);
    painter.fillRect(QRectF(15, 7, 7, 10), kBand);
    for (const int x : {4, 8, 12}) painter.fillRect(QRectF(x, 11, 2, 2), kInk);
    const QPointF arrow[] = {{16.5, 10.5}, {20.5, 10.5}, {18.5, 13.5}};
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPolygon(arrow, 3);
}

QIcon MakeIcon(void (*draw)(QPainter&)) {
    QIcon icon;
    for (const int size : {24, 48}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 24.0, size / 24.0);
        draw(painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace

QIcon CalendarIcon() { return MakeIcon(DrawCalendar); }

QIcon DateBoxIcon() { return MakeIcon(DrawDateBox); }

}  // namespace velmora
