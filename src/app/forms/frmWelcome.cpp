// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/frmWelcome.h"

#include "app/Version.h"
#include "ui_frmWelcome.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace calyvox {

namespace {

// A sound wave over the window's own colours, so that it suits light and dark.
QPixmap WelcomePicture(const QPalette& palette, QSize size, qreal ratio) {
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(palette.color(QPalette::Base));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    constexpr int kBar = 6;
    constexpr int kGap = 3;
    const int middle = size.height() / 2;
    const int bars = size.width() / (kBar + kGap);
    for (int i = 0; i < bars; ++i) {
        const double place = static_cast<double>(i) / bars;
        const double envelope = std::sin(place * M_PI);
        const double height = middle * 0.85 * envelope * (0.35 + 0.65 * std::abs(std::sin(i * 0.9)));
        QColor colour = palette.color(QPalette::Highlight);
        colour.setAlphaF(static_cast<float>(0.35 + 0.65 * envelope));
        painter.setBrush(colour);
        painter.drawRoundedRect(QRectF(i * (kBar + kGap), middle - height, kBar, 2 * height), 3, 3);
    }
    return picture;
}

} // namespace

frmWelcome::frmWelcome() : ui_(std::make_unique<Ui::frmWelcome>()) {
    ui_->setupUi(this);
    setWindowFlags(Qt::SplashScreen);
}

frmWelcome::~frmWelcome() = default;

void frmWelcome::Load() {
    ui_->Welcome->setPixmap(WelcomePicture(palette(), ui_->Welcome->minimumSize(), devicePixelRatioF()));
    SetVersionText(VersionText());
}

QString frmWelcome::VersionText() { return QStringLiteral("Version: ") + QLatin1String(kVersion); }

void frmWelcome::SetVersionText(const QString& text) { ui_->Version->setText(text); }

void frmWelcome::SetStatusText(const QString& text) { ui_->Status->setText(text); }

} // namespace calyvox
