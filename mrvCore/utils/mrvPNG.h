// mrvCore/utils/mrvPNG.h
// PNG images in memory and in files. Forwards to LodePNG, which a host then needs no part of.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <cstddef>

namespace mrv {

/// What went wrong, in English; lives for ever.
MRV_CORE_API const char* lodepng_error_text(unsigned int code);

/// @{
/// Each operation does what the one of the same name in LodePNG does, with the same arguments.
///
/// Result: 0, or a code that lodepng_error_text() explains; the outputs are then not to be used, but for a
/// buffer, which is null or the caller's to free.
/// Images: rows from the top, left to right, without padding but at the end of a row of less than whole
/// bytes. `colorType` is the number that PNG has for it (0 grey, 2 RGB, 3 palette, 4 grey and alpha, 6 RGBA;
/// the values of LodePNGColorType fit), `bitDepth` the bits per channel. The operations with 32 in their name
/// take RGBA and those with 24 RGB, 8 bits a channel. A file of that name is replaced; whatever a file holds,
/// the pixels come in the given form. Ownership: the buffer in `out` is the caller's, to be freed by free().
/// Threads: no state.
MRV_CORE_API unsigned int lodepng_encode_memory(unsigned char** out, size_t* outSize,
                                                const unsigned char* image, unsigned int width,
                                                unsigned int height, unsigned int colorType,
                                                unsigned int bitDepth);
MRV_CORE_API unsigned int lodepng_encode32(unsigned char** out, size_t* outSize, const unsigned char* image,
                                           unsigned int width, unsigned int height);
MRV_CORE_API unsigned int lodepng_encode24(unsigned char** out, size_t* outSize, const unsigned char* image,
                                           unsigned int width, unsigned int height);

MRV_CORE_API unsigned int lodepng_encode_file(const char* fileName, const unsigned char* image,
                                              unsigned int width, unsigned int height, unsigned int colorType,
                                              unsigned int bitDepth);
MRV_CORE_API unsigned int lodepng_encode32_file(const char* fileName, const unsigned char* image,
                                                unsigned int width, unsigned int height);
MRV_CORE_API unsigned int lodepng_encode24_file(const char* fileName, const unsigned char* image,
                                                unsigned int width, unsigned int height);

MRV_CORE_API unsigned int lodepng_decode_memory(unsigned char** out, unsigned int* width,
                                                unsigned int* height, const unsigned char* in, size_t inSize,
                                                unsigned int colorType, unsigned int bitDepth);
MRV_CORE_API unsigned int lodepng_decode32(unsigned char** out, unsigned int* width, unsigned int* height,
                                           const unsigned char* in, size_t inSize);
MRV_CORE_API unsigned int lodepng_decode24(unsigned char** out, unsigned int* width, unsigned int* height,
                                           const unsigned char* in, size_t inSize);

MRV_CORE_API unsigned int lodepng_decode_file(unsigned char** out, unsigned int* width, unsigned int* height,
                                              const char* fileName, unsigned int colorType,
                                              unsigned int bitDepth);
MRV_CORE_API unsigned int lodepng_decode32_file(unsigned char** out, unsigned int* width,
                                                unsigned int* height, const char* fileName);
MRV_CORE_API unsigned int lodepng_decode24_file(unsigned char** out, unsigned int* width,
                                                unsigned int* height, const char* fileName);
/// @}

} // namespace mrv
