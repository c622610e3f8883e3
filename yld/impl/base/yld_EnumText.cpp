#include "yld_EnumText.h"

#include "platform/result/fld_DataType.h"
#include "platform/result/fld_OutputPosition.h"
#include "yld/impl/base/yld_PrimEnum.h"

namespace {

template<class E> const char* textOf(E value)
{
    const val_PrimEnumRow* row = val_PrimEnum<E>::Table();
    while (row->text && row->value != static_cast<std::int32_t>(value)) ++row;
    return row->text;
}

} // namespace

const char* yld_EnumText::of(yld_Enum::yld_AnalysisCodeEnum code) { return textOf(code); }
const char* yld_EnumText::of(yld_Enum::yld_PrecisionEnum precision) { return textOf(precision); }
const char* yld_EnumText::of(yld_Enum::yld_ProductAddOnEnum addOn) { return textOf(addOn); }
const char* yld_EnumText::of(yld_Enum::yld_DimensionEnum dimension) { return textOf(dimension); }
const char* yld_EnumText::of(yld_Enum::yld_PartTypeEnum type) { return textOf(type); }
const char* yld_EnumText::of(yld_Enum::yld_DomainEnum domain) { return textOf(domain); }
const char* yld_EnumText::of(yld_Enum::yld_DataSubtypeEnum subtype) { return textOf(subtype); }
const char* yld_EnumText::of(yld_Enum::yld_DataTypeEnum type)
{
    return type == yld_Enum::UNDEFINED_DATATYPE ? "UNDEFINED_DATATYPE" : fld_DataType::shownBy(type).name;
}
const char* yld_EnumText::of(yld_Enum::yld_ResultPositionEnum position)
{
    const fld_OutputPosition* place = fld_OutputPosition::shownBy(position);
    return place ? place->name : nullptr;
}
const char* yld_EnumText::of(yld_Enum::yld_InvariantEnum invariant) { return textOf(invariant); }
const char* yld_EnumText::of(yld_Enum::yld_ElementFaceEnum face) { return textOf(face); }
