// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/forms/ElidedLabel.h"

#include <QEvent>
#include <QPainter>

namespace calyvox {

QSize ElidedLabel::minimumSizeHint() const {
    constexpr int kLetters = 12;
    return {fontMetrics().averageCharWidth() * kLetters, QLabel::minimumSizeHint().height()};
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) setToolTip(text());
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    painter.setPen(palette().color(foregroundRole()));
    const QRect room = contentsRect().adjusted(margin(), 0, -margin(), 0);
    painter.drawText(room, static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft),
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()));
}

} // namespace calyvox
