#include <TalvixWidgets/QssFormatHelper.h>

#include <QtCore/QHash>

#include <algorithm>
#include <cmath>

namespace {

const QHash<QString, QColor> &colours()
{
    static const QHash<QString, QColor> table = {
        {QStringLiteral("$background_chart_color_1"), QColor(0x3D, 0xCB, 0x96)},
        {QStringLiteral("$word_tabbar2_select"), QColor(0x7C, 0x8C, 0xF8)},
        {QStringLiteral("$word_color_2"), QColor(0xD6, 0xD6, 0xD6)},
        {QStringLiteral("$word_color_4"), QColor(0x7C, 0x8C, 0xF8)},
        {QStringLiteral("$word_color_5"), QColor(0x9D, 0xAC, 0xFD)},
        {QStringLiteral("$word_normaltemp"), QColor(0x3D, 0xCB, 0x96)},
        {QStringLiteral("$word_overtemp"), QColor(0xF0, 0x6A, 0x78)},
        {QStringLiteral("$word_lowtemp"), QColor(0x43, 0xB2, 0xF9)},
        {QStringLiteral("$word_anormaltemp"), QColor(0xF9, 0xA9, 0x4F)},
        {QStringLiteral("$word_weared"), QColor(0x3D, 0xCB, 0x96)},
        {QStringLiteral("$word_uncovered"), QColor(0xF0, 0x6A, 0x78)},
        {QStringLiteral("$word_undetected"), QColor(0x8D, 0x93, 0xA1)},
    };
    return table;
}

} // namespace

QssFormatHelper *QssFormatHelper::getInstance()
{
    static QssFormatHelper helper;
    return &helper;
}

QColor QssFormatHelper::findColorByKey(QString key)
{
    return colours().value(key);
}

QString QssFormatHelper::findColorStrByKey(QString key)
{
    const QColor color = colours().value(key);
    return color.isValid() ? color.name() : QString();
}

QString QssFormatHelper::changeColorStrOpacity(QString color, float opacity)
{
    QColor changed(color);
    if (!changed.isValid())
        return {};
    changed.setAlphaF(std::isnan(opacity) ? 1.0F : std::clamp(opacity, 0.0F, 1.0F));
    return changed.name(QColor::HexArgb);
}
