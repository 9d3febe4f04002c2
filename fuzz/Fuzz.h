#pragma once

#include <QByteArray>
#include <cstdio>
#include <cstdlib>

// Each fuzzer is one file that defines this: it gives the bytes to a routine and requires what the routine promises.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

inline QByteArray BytesOf(const unsigned char* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

// Ends the program on a broken promise, so that the fuzzer keeps the input.
inline void Require(bool kept, const char* promise) {
    if (!kept) {
        std::fprintf(stderr, "Broken promise: %s\n", promise);
        std::abort();
    }
}
