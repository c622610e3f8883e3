#ifndef STPC_NODALDOFS_H
#define STPC_NODALDOFS_H

#include "platform/attribute/stpC_WithArguments.h"
#include "platform/model/setC_Region.h"

#include <vector>

/// Degrees of freedom, by number, of the nodes of a region.
class stpC_NodalDofs : public stpC_WithArguments<stpC_NodalDofs, setC_Region, std::vector<int>>
{
public:
    static constexpr const char* className = "stpC_NodalDofs";
    static constexpr unsigned classId = 0x00200108;
    static constexpr int classVersion = 1;
    using stpC_WithArguments::stpC_WithArguments;
};

#endif
