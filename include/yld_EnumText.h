#ifndef YLD_ENUMTEXT_H
#define YLD_ENUMTEXT_H

#include "platform/base/bas_Export.h"
#include "yld_Enum.h"

/// The name of an enumerator as it is written in yld_Enum, "TIME" say, good for the life of the process. Null for a
/// number that has none; the edges and SIDE3 have none either. Raises nothing.
class YLD_API yld_EnumText
{
public:
    static const char* of(yld_Enum::yld_AnalysisCodeEnum code);
    static const char* of(yld_Enum::yld_PrecisionEnum precision);
    static const char* of(yld_Enum::yld_ProductAddOnEnum addOn);
    static const char* of(yld_Enum::yld_DimensionEnum dimension);
    static const char* of(yld_Enum::yld_PartTypeEnum type);
    static const char* of(yld_Enum::yld_DomainEnum domain);
    static const char* of(yld_Enum::yld_DataTypeEnum type);
    static const char* of(yld_Enum::yld_DataSubtypeEnum subtype);
    static const char* of(yld_Enum::yld_ResultPositionEnum position);
    static const char* of(yld_Enum::yld_InvariantEnum invariant);
    static const char* of(yld_Enum::yld_ElementFaceEnum face);
};

#endif
