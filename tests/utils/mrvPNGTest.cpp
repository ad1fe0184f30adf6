// tests/utils/mrvPNGTest.cpp
// Images out and in again, through every pair of operations that belong together.
#include "mrvCore/utils/mrvPNG.h"

#include "tests/support/mrvTemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace mrv {

namespace {

constexpr unsigned int width = 5;
constexpr unsigned int height = 3;
constexpr unsigned int grey = 0;
constexpr unsigned int rgb = 2;
constexpr unsigned int rgba = 6;

using Bytes = std::vector<unsigned char>;

/// What an operation left in the caller's hands.
struct Buffer
{
    ~Buffer() { std::free(bytes); }

    unsigned char* bytes = nullptr;
    size_t size = 0;
    unsigned int imageWidth = 0;
    unsigned int imageHeight = 0;
};

/// Every byte differs, so that no mix-up of rows, channels or sizes goes unseen.
Bytes makeImage(size_t channels)
{
    Bytes image(width * height * channels);
    for (size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<unsigned char>(7 * i + 1);
    return image;
}

struct PairCase
{
    const char* name;
    size_t channels;
    unsigned int (*encode)(Buffer& out, const unsigned char* image);
    unsigned int (*decode)(Buffer& out, const Buffer& in);
    unsigned int (*encodeFile)(const char* fileName, const unsigned char* image);
    unsigned int (*decodeFile)(Buffer& out, const char* fileName);
};

template <unsigned int colorType>
unsigned int encodeAs(Buffer& out, const unsigned char* image)
{
    return lodepng_encode_memory(&out.bytes, &out.size, image, width, height, colorType, 8);
}
template <unsigned int colorType>
unsigned int decodeAs(Buffer& out, const Buffer& in)
{
    return lodepng_decode_memory(&out.bytes, &out.imageWidth, &out.imageHeight, in.bytes, in.size, colorType,
                                 8);
}
template <unsigned int colorType>
unsigned int encodeFileAs(const char* fileName, const unsigned char* image)
{
    return lodepng_encode_file(fileName, image, width, height, colorType, 8);
}
template <unsigned int colorType>
unsigned int decodeFileAs(Buffer& out, const char* fileName)
{
    return lodepng_decode_file(&out.bytes, &out.imageWidth, &out.imageHeight, fileName, colorType, 8);
}

const PairCase pairCases[] = {
    { "grey", 1, encodeAs<grey>, decodeAs<grey>, encodeFileAs<grey>, decodeFileAs<grey> },
    { "rgbIsNamed24", 3,
      [](Buffer& out, const unsigned char* image) {
          return lodepng_encode24(&out.bytes, &out.size, image, width, height);
      },
      decodeAs<rgb>,
      [](const char* fileName, const unsigned char* image) {
          return lodepng_encode24_file(fileName, image, width, height);
      },
      decodeFileAs<rgb> },
    { "24IsNamedRgb", 3, encodeAs<rgb>,
      [](Buffer& out, const Buffer& in) {
          return lodepng_decode24(&out.bytes, &out.imageWidth, &out.imageHeight, in.bytes, in.size);
      },
      encodeFileAs<rgb>,
      [](Buffer& out, const char* fileName) {
          return lodepng_decode24_file(&out.bytes, &out.imageWidth, &out.imageHeight, fileName);
      } },
    { "rgbaIsNamed32", 4,
      [](Buffer& out, const unsigned char* image) {
          return lodepng_encode32(&out.bytes, &out.size, image, width, height);
      },
      decodeAs<rgba>,
      [](const char* fileName, const unsigned char* image) {
          return lodepng_encode32_file(fileName, image, width, height);
      },
      decodeFileAs<rgba> },
    { "32IsNamedRgba", 4, encodeAs<rgba>,
      [](Buffer& out, const Buffer& in) {
          return lodepng_decode32(&out.bytes, &out.imageWidth, &out.imageHeight, in.bytes, in.size);
      },
      encodeFileAs<rgba>,
      [](Buffer& out, const char* fileName) {
          return lodepng_decode32_file(&out.bytes, &out.imageWidth, &out.imageHeight, fileName);
      } },
};

void expectImage(const Buffer& found, const Bytes& image)
{
    ASSERT_EQ(found.imageWidth, width);
    ASSERT_EQ(found.imageHeight, height);
    EXPECT_EQ(Bytes(found.bytes, found.bytes + image.size()), image);
}

class PNGPairs : public testing::TestWithParam<PairCase>
{};

TEST_P(PNGPairs, whatGoesOutComesInAgain)
{
    const PairCase& row = GetParam();
    const Bytes image = makeImage(row.channels);
    Buffer encoded;
    Buffer decoded;
    ASSERT_EQ(row.encode(encoded, image.data()), 0u);
    ASSERT_EQ(row.decode(decoded, encoded), 0u);
    expectImage(decoded, image);

    const TemporaryFolder folder;
    Buffer read;
    ASSERT_EQ(row.encodeFile(folder.path("image.png").c_str(), image.data()), 0u);
    ASSERT_EQ(row.decodeFile(read, folder.path("image.png").c_str()), 0u);
    expectImage(read, image);
}

INSTANTIATE_TEST_SUITE_P(Table, PNGPairs, testing::ValuesIn(pairCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PNG, aFailureHasACodeWithAText)
{
    const TemporaryFolder folder;
    Buffer read;
    const unsigned int code = lodepng_decode32_file(&read.bytes, &read.imageWidth, &read.imageHeight,
                                                    folder.path("missing.png").c_str());
    EXPECT_NE(code, 0u);
    EXPECT_STRNE(lodepng_error_text(code), lodepng_error_text(0));
}

} // namespace

} // namespace mrv
