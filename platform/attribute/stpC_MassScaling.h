#ifndef STPC_MASSSCALING_H
#define STPC_MASSSCALING_H

#include "platform/attribute/stpC_WithArguments.h"
#include "platform/model/setC_Region.h"

/// Some mass, of a region or of all, that is scaled so that increments in time become longer.
class stpC_MassScaling
    : public stpC_WithArguments<stpC_MassScaling, setC_Region /* null for the whole model */, double /* factor */,
                                double /* time increment wanted; 0 for none */, int /* increments between two times */>
{
public:
    static constexpr const char* className = "stpC_MassScaling";
    static constexpr unsigned classId = 0x00200106;
    static constexpr int classVersion = 1;
    using stpC_WithArguments::stpC_WithArguments;
};

#endif
