#include "HostSettings.h"

#include "LanguageTexts.h"

#include <QtCore/QFile>
#include <QtGui/QFont>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

namespace {

HostSettings::DateOrder currentDateOrder = HostSettings::DateOrder::YearFirst;

QPalette darkPalette()
{
    QPalette palette;
    const auto set = [&palette](QPalette::ColorRole role, QRgb color, QRgb disabled) {
        palette.setColor(QPalette::Active, role, QColor(color));
        palette.setColor(QPalette::Inactive, role, QColor(color));
        palette.setColor(QPalette::Disabled, role, QColor(disabled));
    };
    set(QPalette::Window, 0x191A1E, 0x191A1E);
    set(QPalette::WindowText, 0xD6D6D6, 0x6B707E);
    set(QPalette::Base, 0x15161A, 0x1C1D21);
    set(QPalette::AlternateBase, 0x1C1D21, 0x1C1D21);
    set(QPalette::Text, 0xD6D6D6, 0x6B707E);
    set(QPalette::PlaceholderText, 0x8D93A1, 0x6B707E);
    set(QPalette::Button, 0x2B2D34, 0x202227);
    set(QPalette::ButtonText, 0xD6D6D6, 0x6B707E);
    set(QPalette::BrightText, 0xFFFFFF, 0x6B707E);
    set(QPalette::ToolTipBase, 0x2B2D34, 0x2B2D34);
    set(QPalette::ToolTipText, 0xD6D6D6, 0xD6D6D6);
    set(QPalette::Highlight, 0x4A57B8, 0x353841);
    set(QPalette::HighlightedText, 0xFFFFFF, 0x8D93A1);
    set(QPalette::Link, 0x9DACFD, 0x6B707E);
    set(QPalette::LinkVisited, 0xB79DFD, 0x6B707E);
    set(QPalette::Light, 0x4A4D57, 0x353841);
    set(QPalette::Midlight, 0x353841, 0x2B2D34);
    set(QPalette::Mid, 0x3F4147, 0x2E3037);
    set(QPalette::Dark, 0x121316, 0x121316);
    set(QPalette::Shadow, 0x0A0A0C, 0x0A0A0C);
    return palette;
}

} // namespace

QStringList HostSettings::languages()
{
    return LanguageTexts::languages();
}

bool HostSettings::setLanguage(const QString &code)
{
    return LanguageTexts::load(code);
}

QString HostSettings::language()
{
    return LanguageTexts::language();
}

void HostSettings::setDateOrder(DateOrder order)
{
    currentDateOrder = order;
}

HostSettings::DateOrder HostSettings::dateOrder()
{
    return currentDateOrder;
}

void HostSettings::applyTheme()
{
    if (!qApp)
        return;
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(darkPalette());

    QFont font;
    // The first that is there; the later ones lend what it lacks.
    font.setFamilies({QStringLiteral("Inter"), QStringLiteral("Segoe UI"), QStringLiteral("Noto Sans"),
        QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Microsoft YaHei"),
        QStringLiteral("DejaVu Sans")});
    font.setPixelSize(13);
    QApplication::setFont(font);

    QFile sheet(QStringLiteral(":/talvix/theme/dark.qss"));
    if (sheet.open(QIODevice::ReadOnly))
        qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()));
}
