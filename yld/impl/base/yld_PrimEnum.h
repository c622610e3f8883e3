#ifndef YLD_PRIM_ENUM_H
#define YLD_PRIM_ENUM_H

#include "platform/value/val_PrimEnum.h"
#include "yld_AnalysisWarningError.h"
#include "yld_DiagnosticData.h"
#include "yld_Enum.h"

// The public enumerations that have texts. An enumerator without a row here (BOOLEAN and INTEGER, say) is
// good in memory and refused as a value that stands in a file.

template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_AnalysisCodeEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_PrecisionEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_ProductAddOnEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_DimensionEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_PartTypeEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_DomainEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_DataTypeEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_DataSubtypeEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_ResultPositionEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_InvariantEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_Enum::yld_ElementFaceEnum>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_AnalysisWarningError::Category>::Table();
template<> const val_PrimEnumRow* val_PrimEnum<yld_DiagnosticData::JobStatus>::Table();

#endif
