// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/SvgIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace calyvox {

namespace {

struct Colours {
    QColor Ink;
    QColor Accent;
};

Colours ColoursOf(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    const bool selected = mode == QIcon::Selected;
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const QColor ink = palette.color(group, selected ? QPalette::HighlightedText : QPalette::ButtonText);
    if (mode != QIcon::Normal) return {ink, ink};
    return {ink, palette.color(QPalette::Active, QPalette::Highlight)};
}

class SvgIconEngine : public QIconEngine {
public:
    SvgIconEngine(const QString& resource, const QByteArray& svg) : resource_(resource), svg_(svg) {}

    QIconEngine* clone() const override { return new SvgIconEngine(*this); }
    QString key() const override { return QStringLiteral("calyvox-svg"); }
    bool isNull() override { return false; }

    // The size is in device pixels.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        if (size.isEmpty()) return {};
        const Colours colours = ColoursOf(mode);
        const QString cacheKey = QStringLiteral("%1 %2x%3 %4 %5")
                                     .arg(resource_)
                                     .arg(size.width())
                                     .arg(size.height())
                                     .arg(colours.Ink.rgba())
                                     .arg(colours.Accent.rgba());
        QPixmap pixmap;
        if (!QPixmapCache::find(cacheKey, &pixmap)) {
            pixmap = Render(size, colours);
            QPixmapCache::insert(cacheKey, pixmap);
        }
        return pixmap;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap drawn = pixmap(rect.size() * ratio, mode, state);
        drawn.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect.topLeft(), drawn);
    }

private:
    QPixmap Render(const QSize& size, const Colours& colours) const {
        QByteArray svg = svg_;
        svg.replace("\"currentColor\"", '"' + colours.Ink.name().toLatin1() + '"');
        svg.replace("\"accent\"", '"' + colours.Accent.name().toLatin1() + '"');
        QSvgRenderer renderer(svg);
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter);
        return pixmap;
    }

    QString resource_;
    QByteArray svg_;
};

} // namespace

QIcon SvgIcon(const QString& resource) {
    QFile file(resource);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QIcon(new SvgIconEngine(resource, file.readAll()));
}

} // namespace calyvox
