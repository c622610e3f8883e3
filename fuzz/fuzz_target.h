#ifndef FUZZ_TARGET_H
#define FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>

/// What a fuzzer of this folder offers to what drives it: libFuzzer, or replay.cpp where there is none.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t count, std::size_t largest,
                                               unsigned seed);

/// Whether the last input was read to its end; otherwise it was refused.
extern bool fuzz_gaveData;

#endif
