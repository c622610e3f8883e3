#ifndef STPC_RESTART_H
#define STPC_RESTART_H

#include "platform/attribute/stpC_WithArguments.h"

/// A request for the data with which a job can be continued from a step.
class stpC_Restart : public stpC_WithArguments<stpC_Restart, int, bool, bool, int>
{
public:
    static constexpr const char* className = "stpC_Restart";
    static constexpr unsigned classId = 0x0020010a;
    static constexpr int classVersion = 1;
    using stpC_WithArguments::stpC_WithArguments;
};

#endif
