// Any bytes as the content of ascii.dat.
#include "transfer/asciiDat.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ReadFields(QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size)));
    return 0;
}
