#include "yld_EnumText.h"

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
const char* yld_EnumText::of(yld_Enum::yld_InvariantEnum invariant) { return textOf(invariant); }
const char* yld_EnumText::of(yld_Enum::yld_ElementFaceEnum face) { return textOf(face); }
