// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Look.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

namespace editor {
namespace {

constexpr int LabelSpacing = 3; // pixels between a check or option button and its caption
constexpr int FontPixelSize = 11;
constexpr int LeastPixelSize = 6;

// Of another face, the size has to be one at which this one fits: no caption of the layouts has
// less room to spare.
constexpr const char* TightestCaption = "Start points";
constexpr int TightestRoom = 57;

// Behind white captions, where the style's own colours are too pale to read them.
constexpr QRgb ActiveBar = 0xff1d6aa0;
constexpr QRgb InactiveBar = 0xff6e6e6e;

class OwnStyle : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        if (metric == PM_RadioButtonLabelSpacing || metric == PM_CheckBoxLabelSpacing) {
            return LabelSpacing;
        }
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override {
        const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
        if (control != CC_TitleBar || bar == nullptr || bar->state.testFlag(State_Active)) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        QStyleOptionTitleBar legible(*bar);
        legible.palette.setColor(QPalette::Highlight, InactiveBar);
        legible.palette.setColor(QPalette::Base, InactiveBar); // where the bar's gradient ends
        legible.palette.setColor(QPalette::HighlightedText, Qt::white);
        QProxyStyle::drawComplexControl(control, &legible, painter, widget);
    }
};

} // namespace

void KeepDesktopLookOut() {
    qputenv("QT_QPA_PLATFORMTHEME", "generic"); // that of no desktop
}

void ApplyLook(QApplication& application) {
    application.setStyle(new OwnStyle(QStyleFactory::create(QStringLiteral("Windows"))));
    QPalette palette = QApplication::style()->standardPalette();
    palette.setColor(QPalette::Highlight, ActiveBar);
    QApplication::setPalette(palette);
    QFont font;
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(FontPixelSize);
    // Those that have the same widths; the system may call any face by the names of the last two.
    for (const char* name : {"Liberation Sans", "Arimo", "Arial", "Helvetica"}) {
        if (QFontDatabase::hasFamily(QLatin1String(name))) {
            font.setFamily(QLatin1String(name));
            break;
        }
    }
    QApplication::setFont(Fitting(font, QLatin1String(TightestCaption), TightestRoom));
}

QFont Fitting(QFont font, const QString& caption, int width) {
    while (font.pixelSize() > LeastPixelSize &&
           QFontMetrics(font).horizontalAdvance(caption) > width) {
        font.setPixelSize(font.pixelSize() - 1);
    }
    return font;
}

} // namespace editor
