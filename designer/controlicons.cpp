#include "controlicons.h"

#include <QFont>
#include <QPainter>
#include <QPixmap>

namespace Tarnwell {
namespace {

QPixmap drawIcon(const QString &glyph, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    // A text box: white field, grey frame, the glyph in dark blue with a caret after it.
    const QRectF box(0.5, size * 0.2 + 0.5, size - 1.0, size * 0.6);
    painter.setPen(QPen(QColor(0x70, 0x70, 0x70), 1.0));
    painter.setBrush(Qt::white);
    painter.drawRect(box);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(qMax(6, int(size * 0.42)));
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(0x1f, 0x3f, 0x8f));
    const QRectF text = box.adjusted(size * 0.08, 0, -size * 0.12, 0);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, glyph);
    const qreal caretX = box.right() - size * 0.1;
    painter.setPen(QPen(Qt::black, qMax(1.0, size / 22.0)));
    painter.drawLine(QPointF(caretX, box.top() + 2), QPointF(caretX, box.bottom() - 2));
    return pixmap;
}

} // namespace

QIcon controlIcon(const QString &glyph)
{
    QIcon icon;
    for (int size : {16, 22, 32})
        icon.addPixmap(drawIcon(glyph, size));
    return icon;
}

} // namespace Tarnwell
