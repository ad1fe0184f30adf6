// mrvCore/utils/mrvColors.cpp
#include "mrvCore/utils/mrvColors.h"

#include <algorithm>
#include <cmath>

namespace mrv {

namespace {

/// The channels of a colour as they are compared: in 0 to 255.
struct Channels
{
    explicit Channels(uint32_t color)
    {
        uint8_t red, green, blue, alpha;
        getColorComponents(color, red, green, blue, alpha);
        r = red;
        g = green;
        b = blue;
    }

    float getLightness() const
    {
        float h, s, l;
        rbgToHsl(r, g, b, h, s, l);
        return l;
    }

    float r, g, b;
};

bool isNear(const Channels& a, const Channels& b, float tolerance)
{
    return std::fabs(a.r - b.r) <= tolerance && std::fabs(a.g - b.g) <= tolerance &&
           std::fabs(a.b - b.b) <= tolerance;
}

/// A share of the way to 1, or to 0 if negative.
float moved(float value, float share)
{
    return value + (share > 0.0f ? (1.0f - value) * share : value * share);
}

} // namespace

uint32_t getColor(uint8_t red, uint8_t green, uint8_t blue, uint8_t alpha)
{
    return red | uint32_t(green) << 8 | uint32_t(blue) << 16 | uint32_t(alpha) << 24;
}

void getColorComponents(uint32_t color, uint8_t& red, uint8_t& green, uint8_t& blue, uint8_t& alpha)
{
    red = static_cast<uint8_t>(color);
    green = static_cast<uint8_t>(color >> 8);
    blue = static_cast<uint8_t>(color >> 16);
    alpha = static_cast<uint8_t>(color >> 24);
}

void rbgToHsl(float r, float g, float b, float& h, float& s, float& l)
{
    const float max = std::max({ r, g, b });
    const float min = std::min({ r, g, b });
    l = (max + min) / 2.0f;
    h = s = 0.0f;
    if (max == min)
        return;

    const float range = max - min;
    s = l > 0.5f ? range / (2.0f - max - min) : range / (max + min);
    if (max == r)
        h = (g - b) / range + (g < b ? 6.0f : 0.0f);
    else if (max == g)
        h = (b - r) / range + 2.0f;
    else
        h = (r - g) / range + 4.0f;
    h /= 6.0f;
}

float hueToRgb(float a, float b, float hue)
{
    if (hue < 0.0f)
        hue += 1.0f;
    if (hue > 1.0f)
        hue -= 1.0f;
    if (hue < 0.16666667f)
        return (b - a) * 6.0f * hue + a;
    if (hue < 0.5f)
        return b;
    if (hue < 0.6666667f)
        return (b - a) * (0.6666667f - hue) * 6.0f + a;
    return a;
}

void hslToRgb(float h, float s, float l, float& r, float& g, float& b)
{
    if (s == 0.0f)
    {
        r = g = b = l;
        return;
    }
    const float q = l < 0.5f ? (1.0f + s) * l : s + l - s * l;
    const float p = 2.0f * l - q;
    r = hueToRgb(p, q, h + 0.33333334f);
    g = hueToRgb(p, q, h);
    b = hueToRgb(p, q, h - 0.33333334f);
}

void changeColorHSL(float r, float g, float b, float dh, float ds, float dl, float& outR, float& outG,
                    float& outB)
{
    float h, s, l;
    rbgToHsl(r, g, b, h, s, l);
    h = std::fmod(h + std::clamp(dh, -1.0f, 1.0f) / 2.0f, 1.0f);
    if (h < 0.0f)
        h = std::fmod(h + 1.0f, 1.0f); // a hue just below 0 rounds to 1, which is 0
    s = moved(s, std::clamp(ds, -1.0f, 1.0f));
    l = moved(l, std::clamp(dl, -1.0f, 1.0f));
    hslToRgb(h, s, l, outR, outG, outB);
}

bool compareColors(uint32_t a, ComparisonOperator::Value op, uint32_t b, float tolerance)
{
    const Channels channelsOfA(a);
    const Channels channelsOfB(b);
    const float lightnessOfA = channelsOfA.getLightness();
    const float lightnessOfB = channelsOfB.getLightness();
    switch (op)
    {
    case ComparisonOperator::NOT_EQUAL:
        return !isNear(channelsOfA, channelsOfB, tolerance);
    case ComparisonOperator::LOWER_EQUAL:
        return lightnessOfA <= lightnessOfB + tolerance;
    case ComparisonOperator::LOWER:
        return lightnessOfA < lightnessOfB + tolerance;
    case ComparisonOperator::GREATER:
        return lightnessOfB < lightnessOfA + tolerance;
    case ComparisonOperator::GREATER_EQUAL:
        return lightnessOfB <= lightnessOfA + tolerance;
    default:
        return isNear(channelsOfA, channelsOfB, tolerance);
    }
}

} // namespace mrv
