// tests/system/utils/mrvProductInformationTest.cpp
#include "mrvCore/system/utils/mrvProductInformation.h"

#include <gtest/gtest.h>

#include <string>

namespace mrv {
namespace {

TEST(ProductInformation, fullTextNamesTheDescriptionOnlyWhenThereIsOne)
{
    const ProductInformation described("Tool", "does it", 1, 2, 3, 4, "1.2", "2020/01/31");
    EXPECT_STREQ(described.getCString(), "Tool - 1.2.3.4 - Release 1.2 of 2020/01/31 - does it");
    const ProductInformation bare("Tool", "", 1, 2, 3, 4294967295u, "1.2", "2020/01/31");
    EXPECT_STREQ(bare.getCString(), "Tool - 1.2.3.4294967295 - Release 1.2 of 2020/01/31");
    EXPECT_STREQ(ProductInformation::getDefaultUnknown().getCString(),
                 "Unknown - 0.0.0.0 - Release Unknown of Unknown - Unknown");
}

TEST(ProductInformation, overlongTextsAreCutAtTheirFields)
{
    const std::string overlong(5000, 'x');
    const char* text = overlong.c_str();
    const ProductInformation product(text, text, 1, 2, 3, 4, text, text);
    for (const char* field : { product.getProductName(), product.getDescription(), product.getVersionLabel(),
                               product.getReleaseDate() })
        EXPECT_EQ(std::string(field), std::string(255, 'x'));
    EXPECT_EQ(std::string(product.getCString()).length(), 1023u);
}

TEST(ProductInformation, releasesAreOrderedByTheirNumbersMajorFirst)
{
    const unsigned int rising[][4] = {
        { 0, 9, 9, 9 }, { 1, 0, 0, 1 }, { 1, 0, 1, 0 }, { 1, 1, 0, 0 }, { 2, 0, 0, 0 }
    };
    for (const auto& a : rising)
    {
        for (const auto& b : rising)
        {
            const ProductInformation left("Left", "", a[0], a[1], a[2], a[3], "z", "z");
            const ProductInformation right("Right", "", b[0], b[1], b[2], b[3], "a", "a");
            EXPECT_EQ(left < right, &a < &b);
            EXPECT_EQ(left == right, &a == &b);
            EXPECT_EQ(left != right, &a != &b);
        }
    }
}

} // namespace
} // namespace mrv
