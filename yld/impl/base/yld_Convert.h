#ifndef YLD_CONVERT_H
#define YLD_CONVERT_H

#include "yld_Sequence.h"
#include "yld_String.h"

#include <string>
#include <vector>

/// Between the sequences and texts of the interface and the plain ones that the store takes and gives.
class yld_Convert
{
public:
    /// @tparam Values  an array with a size, of elements as the sequence's
    template<class Values> static yld_Sequence<typename Values::value_type> sequence(const Values& values)
    {
        return yld_Sequence<typename Values::value_type>(values.data(), static_cast<int>(values.size()));
    }

    template<class T> static std::vector<T> values(const yld_Sequence<T>& sequence)
    {
        std::vector<T> all;
        all.reserve(static_cast<std::size_t>(sequence.size()));
        for (int i = 0, length = 0; i < sequence.size(); i += length) {
            const T* run = sequence.run(i, length);
            all.insert(all.end(), run, run + length);
        }
        return all;
    }

    static std::string text(const yld_String& string) { return std::string(string.cStr()); }
    static std::vector<std::string> texts(const yld_Sequence<yld_String>& strings)
    {
        std::vector<std::string> all;
        all.reserve(static_cast<std::size_t>(strings.size()));
        for (const yld_String& each : strings) all.push_back(text(each));
        return all;
    }
};

#endif
