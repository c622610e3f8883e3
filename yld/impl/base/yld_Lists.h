#ifndef YLD_LISTS_H
#define YLD_LISTS_H

#include "yld_Sequence.h"
#include "yld_String.h"

#include <string>
#include <vector>

// Between the sequences of the public interface and the containers of the floors below. All copy.

inline yld_Sequence<int> yld_sequenceOf(const std::vector<int>& values)
{
    return yld_Sequence<int>(values.data(), static_cast<int>(values.size()));
}

inline std::vector<int> yld_vectorOf(const yld_Sequence<int>& sequence)
{
    std::vector<int> values;
    values.reserve(static_cast<std::size_t>(sequence.size()));
    for (int i = 0, length = 0; i < sequence.size(); i += length) {
        const int* run = sequence.run(i, length);
        values.insert(values.end(), run, run + length);
    }
    return values;
}

inline std::vector<std::string> yld_textsOf(const yld_Sequence<yld_String>& sequence)
{
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(sequence.size()));
    for (const yld_String& text : sequence) texts.emplace_back(text.cStr());
    return texts;
}

#endif
