#ifndef STPC_RESTART_H
#define STPC_RESTART_H

#include "platform/attribute/stpC_WithArguments.h"

/// When a job leaves behind what it needs to be taken up again.
class stpC_Restart : public stpC_WithArguments<stpC_Restart, int, bool, bool, int>
{
public:
    static constexpr const char* className = "stpC_Restart";
    static constexpr unsigned classId = 0x0020010a;
    static constexpr int classVersion = 1;
    using stpC_WithArguments::stpC_WithArguments;
};

#endif
