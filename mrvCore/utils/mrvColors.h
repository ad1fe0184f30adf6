// mrvCore/utils/mrvColors.h
// Colours as one number, as red, green and blue, and as hue, saturation and lightness.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstdint>

namespace mrv {

/// How two values are compared.
struct ComparisonOperator
{
    enum Value { EQUAL, NOT_EQUAL, LOWER_EQUAL, LOWER, GREATER, GREATER_EQUAL, END };
};

// Channels and hues are in [0, 1] unless said otherwise; what lies outside is computed alike. No state.

/// One byte each: red in the lowest, then green, blue and alpha.
MRV_CORE_API uint32_t getColor(uint8_t red, uint8_t green, uint8_t blue, uint8_t alpha);
MRV_CORE_API void getColorComponents(uint32_t color, uint8_t& red, uint8_t& green, uint8_t& blue,
                                     uint8_t& alpha);

/// Hue and saturation of a grey are 0. The name stands as hosts call it.
MRV_CORE_API void rbgToHsl(float r, float g, float b, float& h, float& s, float& l);
/// The way back.
MRV_CORE_API void hslToRgb(float h, float s, float l, float& r, float& g, float& b);

/// One channel of a colour: from `a` to `b` and back over the hue, which is wrapped once.
MRV_CORE_API float hueToRgb(float a, float b, float hue);

/// Turns the hue by half of `dh`, and moves saturation and lightness by the share `ds` and `dl` of the way to
/// 1, or to 0 if negative. The changes are clamped to [-1, 1].
MRV_CORE_API void changeColorHSL(float r, float g, float b, float dh, float ds, float dl, float& outR,
                                 float& outG, float& outB);

/// Compares two colours; alpha plays no part, and the tolerance is in units of 1/255.
///
/// EQUAL and NOT_EQUAL look at each channel, the others at the lightness. The tolerance widens those four,
/// the strict ones too: with one above 0 a colour is LOWER than itself. END and above act as EQUAL.
MRV_CORE_API bool compareColors(uint32_t a, ComparisonOperator::Value op, uint32_t b, float tolerance);

} // namespace mrv
