// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Look.h"

#include <QApplication>
#include <QFont>
#include <QProxyStyle>
#include <QStyleFactory>

namespace editor {
namespace {

constexpr int LabelSpacing = 3; // pixels between a check or option button and its caption
constexpr int FontPixelSize = 11;

class NarrowStyle : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        if (metric == PM_RadioButtonLabelSpacing || metric == PM_CheckBoxLabelSpacing) {
            return LabelSpacing;
        }
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

void ApplyLook(QApplication& application) {
    application.setStyle(new NarrowStyle(QStyleFactory::create(QStringLiteral("Windows"))));
    QFont font(QStringList{QStringLiteral("Liberation Sans"), QStringLiteral("Arial"),
                           QStringLiteral("Helvetica")});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(FontPixelSize);
    QApplication::setFont(font);
}

} // namespace editor
