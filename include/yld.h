#ifndef YLD_H
#define YLD_H

/// The whole public interface.

#include "yld_API.h"
#include "yld_Assembly.h"
#include "yld_DiscreteEntity.h"
#include "yld_Element.h"
#include "yld_Enum.h"
#include "yld_EnumMap.h"
#include "yld_Exception.h"
#include "yld_FieldBulkData.h"
#include "yld_FieldLocation.h"
#include "yld_FieldOutput.h"
#include "yld_FieldValue.h"
#include "yld_Frame.h"
#include "yld_Instance.h"
#include "yld_MassScaling.h"
#include "yld_Node.h"
#include "yld_NodalDofs.h"
#include "yld_Part.h"
#include "yld_Repository.h"
#include "yld_RestartRequest.h"
#include "yld_SectionCategory.h"
#include "yld_Sequence.h"
#include "yld_SequenceElement.h"
#include "yld_SequenceFieldValue.h"
#include "yld_SequenceNode.h"
#include "yld_Set.h"
#include "yld_Step.h"
#include "yld_String.h"
#include "yld_SubField.h"
#include "yld_Timer.h"
#include "yld_Union.h"
#include "yld_WipReporter.h"
#include "yld_Yld.h"

#endif
