#include "screens/kit/Palette.h"

namespace zolva {
namespace {

struct Shade
{
    QRgb rgb = 0;
    double opacity = 1;
};

struct Row
{
    Shade light;
    Shade dark;
};

// In the order of the properties.
constexpr std::array<Row, Palette::fields> table = {{
    {{0xFFFFFF}, {0x1C1C1E}},               // win
    {{0xF6F6F8, 0.8}, {0x262628, 0.72}},    // sidebar
    {{0xFFFFFF}, {0x1C1C1E}},               // content
    {{0xF5F5F7}, {0x2C2C2E}},               // card
    {{0xEEEEF1}, {0x333335}},               // cardHover
    {{0xFAFAFC}, {0x242426}},               // well
    {{0x000000, 0.09}, {0xFFFFFF, 0.09}},   // sep
    {{0x000000, 0.055}, {0xFFFFFF, 0.055}}, // sep2
    {{0x000000}, {0xFFFFFF}},               // label
    {{0x000000, 0.64}, {0xFFFFFF, 0.66}},   // label2
    {{0x000000, 0.58}, {0xFFFFFF, 0.56}},   // label3
    {{0x000000, 0.06}, {0xFFFFFF, 0.11}},   // btn
    {{0x000000, 0.1}, {0xFFFFFF, 0.17}},    // btnHover
    {{0x007AFF}, {0x0A84FF}},               // accent
    {{0x0A6FE0}, {0x3D9DFF}},               // accentHover
    {{0x007AFF, 0.12}, {0x0A84FF, 0.16}},   // accentTint
    {{0xFF3B30}, {0xFF453A}},               // red
    {{0xE32A20}, {0xFF6259}},               // redHover
    {{0x34C759}, {0x30D158}},               // green
    {{0xFF9F0A}, {0xFFD60A}},               // amber
    {{0xF2F2F5}, {0x3A3A3C}},               // sheet
    {{0x000000, 0.24}, {0x000000, 0.42}},   // scrim
}};

QColor colorOf(const Shade& shade)
{
    QColor color(shade.rgb); // takes it for opaque
    color.setAlphaF(static_cast<float>(shade.opacity));
    return color;
}

} // namespace

Palette::Palette(Kind kind, QObject* parent) : QObject(parent)
{
    for (std::size_t i = 0; i < fields; ++i)
        m_colors[i] = colorOf(kind == Kind::Light ? table[i].light : table[i].dark);
}

} // namespace zolva
