// mrvCore/utils/mrvPNG.cpp
#include "mrvCore/utils/mrvPNG.h"

#include <lodepng.h>

namespace mrv {

const char* lodepng_error_text(unsigned int code)
{
    return ::lodepng_error_text(code);
}

unsigned int lodepng_encode_memory(unsigned char** out, size_t* outSize, const unsigned char* image,
                                   unsigned int width, unsigned int height, unsigned int colorType,
                                   unsigned int bitDepth)
{
    return ::lodepng_encode_memory(out, outSize, image, width, height,
                                   static_cast<LodePNGColorType>(colorType), bitDepth);
}

unsigned int lodepng_encode32(unsigned char** out, size_t* outSize, const unsigned char* image,
                              unsigned int width, unsigned int height)
{
    return ::lodepng_encode32(out, outSize, image, width, height);
}

unsigned int lodepng_encode24(unsigned char** out, size_t* outSize, const unsigned char* image,
                              unsigned int width, unsigned int height)
{
    return ::lodepng_encode24(out, outSize, image, width, height);
}

unsigned int lodepng_encode_file(const char* fileName, const unsigned char* image, unsigned int width,
                                 unsigned int height, unsigned int colorType, unsigned int bitDepth)
{
    return ::lodepng_encode_file(fileName, image, width, height, static_cast<LodePNGColorType>(colorType),
                                 bitDepth);
}

unsigned int lodepng_encode32_file(const char* fileName, const unsigned char* image, unsigned int width,
                                   unsigned int height)
{
    return ::lodepng_encode32_file(fileName, image, width, height);
}

unsigned int lodepng_encode24_file(const char* fileName, const unsigned char* image, unsigned int width,
                                   unsigned int height)
{
    return ::lodepng_encode24_file(fileName, image, width, height);
}

unsigned int lodepng_decode_memory(unsigned char** out, unsigned int* width, unsigned int* height,
                                   const unsigned char* in, size_t inSize, unsigned int colorType,
                                   unsigned int bitDepth)
{
    return ::lodepng_decode_memory(out, width, height, in, inSize, static_cast<LodePNGColorType>(colorType),
                                   bitDepth);
}

unsigned int lodepng_decode32(unsigned char** out, unsigned int* width, unsigned int* height,
                              const unsigned char* in, size_t inSize)
{
    return ::lodepng_decode32(out, width, height, in, inSize);
}

unsigned int lodepng_decode24(unsigned char** out, unsigned int* width, unsigned int* height,
                              const unsigned char* in, size_t inSize)
{
    return ::lodepng_decode24(out, width, height, in, inSize);
}

unsigned int lodepng_decode_file(unsigned char** out, unsigned int* width, unsigned int* height,
                                 const char* fileName, unsigned int colorType, unsigned int bitDepth)
{
    return ::lodepng_decode_file(out, width, height, fileName, static_cast<LodePNGColorType>(colorType),
                                 bitDepth);
}

unsigned int lodepng_decode32_file(unsigned char** out, unsigned int* width, unsigned int* height,
                                   const char* fileName)
{
    return ::lodepng_decode32_file(out, width, height, fileName);
}

unsigned int lodepng_decode24_file(unsigned char** out, unsigned int* width, unsigned int* height,
                                   const char* fileName)
{
    return ::lodepng_decode24_file(out, width, height, fileName);
}

} // namespace mrv
