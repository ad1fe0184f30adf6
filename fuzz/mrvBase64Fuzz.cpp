// fuzz/mrvBase64Fuzz.cpp
// Any bytes come back through the text, and any text decodes to something that encodes to its beginning.
#include "mrvCore/utils/mrvBase64.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto bytesOf = [](const mrv::MrvString& text) {
        return reinterpret_cast<const unsigned char*>(text.data());
    };
    const unsigned int count = static_cast<unsigned int>(size);
    const mrv::MrvString text = mrv::base64_encode(data, count);
    const mrv::MrvString bytes = mrv::base64_decode(bytesOf(text), static_cast<unsigned int>(text.size()));
    if (bytes.size() != size || (size != 0 && std::memcmp(bytes.data(), data, size) != 0))
        std::abort();

    const mrv::MrvString decoded = mrv::base64_decode(data, count);
    const mrv::MrvString again =
        mrv::base64_encode(bytesOf(decoded), static_cast<unsigned int>(decoded.size()));
    const size_t whole = decoded.size() / 3 * 4;
    if (whole > size || (whole != 0 && std::memcmp(again.data(), data, whole) != 0))
        std::abort();
    return 0;
}
