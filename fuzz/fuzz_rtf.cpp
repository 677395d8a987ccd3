// Any bytes as the agreement's rich text.
#include "language/rtf_reader.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    RtfToHtml(QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size)));
    return 0;
}
