#include "platform/result/fld_FieldDescription.h"

namespace {

// The names of contact variables are padded to this width before the surfaces follow.
constexpr std::size_t paddedName = 9;

} // namespace

std::string fld_FieldDescription::fieldName() const
{
    const std::size_t colon = m_keyText.find(':');
    if (position() != fld_OutputPositionEnm::NODAL_BY_ELEMENT && colon == std::string::npos) return m_label;

    std::string name = m_label;
    std::string suffix;
    const bool isDerivative = name.starts_with("d_");
    if (isDerivative) {
        name.erase(0, 2);
        const std::size_t bar = name.rfind('_');
        if (bar != std::string::npos) {
            suffix = name.substr(bar);
            name.erase(bar);
        }
    }
    name.resize(paddedName, ' ');
    if (colon != std::string::npos) name += m_keyText.substr(colon + 1);
    return isDerivative ? "d_" + name + suffix : name;
}

std::string fld_FieldDescription::keyName() const
{
    return std::to_string(m_position) + ":" + std::to_string(m_dataType) + ":" + m_label;
}

bool fld_FieldDescription::isTensor(fld_DataTypeEnm type)
{
    return type >= fld_DataTypeEnm::TENSOR_3D_FULL && type <= fld_DataTypeEnm::TENSOR_2D_SURFACE;
}

int fld_FieldDescription::typeWidth(fld_DataTypeEnm type)
{
    switch (type) {
    case fld_DataTypeEnm::BOOLEAN:
    case fld_DataTypeEnm::INTEGER:
    case fld_DataTypeEnm::SCALAR:
        return 1;
    case fld_DataTypeEnm::QUATERNION_2D:
        return 2;
    case fld_DataTypeEnm::QUATERNION_3D:
    case fld_DataTypeEnm::TENSOR_3D_PLANAR:
    case fld_DataTypeEnm::TENSOR_2D_PLANAR:
        return 4;
    case fld_DataTypeEnm::TENSOR_3D_FULL:
        return 6;
    case fld_DataTypeEnm::TENSOR_3D_SURFACE:
    case fld_DataTypeEnm::TENSOR_2D_SURFACE:
        return 3;
    default:
        return 0;
    }
}
