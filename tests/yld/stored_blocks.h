#ifndef STORED_BLOCKS_H
#define STORED_BLOCKS_H

#include "platform/sto/sto_Field.h"
#include "platform/sto/sto_FieldFrame.h"
#include "platform/sto/sto_FieldStep.h"
#include "yld.h"

#include <cstring>
#include <string>
#include <vector>

// Blocks written past the checks of the public interface, as a solver may write them.

inline std::string listed(const int* numbers, int count)
{
    if (!numbers) return "null";
    std::string text;
    for (int i = 0; i < count; ++i) text += std::to_string(numbers[i]) + " ";
    return text;
}

inline fld_FieldDescription describe(const char* label, fld_DataTypeEnm type, fld_OutputPositionEnm position,
                                     int length)
{
    fld_FieldDescription description;
    description.m_label = label;
    description.m_dataType = static_cast<int>(type);
    description.m_position = static_cast<int>(position);
    description.m_length = length;
    return description;
}

template<class T> fio_Buffer bufferOf(const std::vector<double>& numbers)
{
    fio_Buffer buffer(numbers.size() * sizeof(T));
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        reinterpret_cast<T*>(buffer.writable())[i] = static_cast<T>(numbers[i]);
    }
    return buffer;
}

/// Numbers of a block in either precision.
struct BlockNumbers
{
    std::vector<double> values;
    std::vector<double> conjugate; ///< none for a real block
    std::vector<double> systems;   ///< quaternions of 2 or 4 components; none for a block without local systems
    bool isDouble = false;
};

inline sto_Field writeNumbers(const yld_Frame& frame, fld_FieldDescription description, int key,
                              const BlockNumbers& numbers)
{
    sto_FieldFrame fields = frame.fieldOutputs().fieldFrame().ConstGet();
    sto_FieldStep step = frame.fieldOutputs().fieldStep().ConstGet();
    const int storage = numbers.isDouble ? 1 : 0;
    const auto buffer = [&](const std::vector<double>& list) {
        return numbers.isDouble ? bufferOf<double>(list) : bufferOf<float>(list);
    };
    description.m_isPair = !numbers.conjugate.empty();
    sto_Field systems;
    if (!numbers.systems.empty()) {
        fld_FieldDescription orientation(description);
        const int width = static_cast<int>(numbers.systems.size()) / description.m_length;
        orientation.m_label = "orientation";
        orientation.m_dataType =
            static_cast<int>(width == 2 ? fld_DataTypeEnm::QUATERNION_2D : fld_DataTypeEnm::QUATERNION_3D);
        orientation.m_width = width;
        orientation.m_isPair = false;
        const sto_FieldDescription described = step.Field(std::move(orientation));
        description.m_orientation = described.shortCut();
        systems = fields.Orientation(described, key, buffer(numbers.systems), storage);
        ++key;
    }
    const sto_Field field = fields.Field(step.Field(std::move(description)), key, buffer(numbers.values),
                                         buffer(numbers.conjugate), systems, storage);
    step.setNumberField(key + 1);
    return field;
}

inline sto_Field writeBlock(const yld_Frame& frame, fld_FieldDescription description, int key,
                            const std::vector<float>& values, const std::vector<double>& doubles = {})
{
    BlockNumbers numbers;
    numbers.isDouble = !doubles.empty();
    numbers.values = numbers.isDouble ? doubles : std::vector<double>(values.begin(), values.end());
    return writeNumbers(frame, std::move(description), key, numbers);
}

#endif
