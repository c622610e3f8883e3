#ifndef YLD_RESTART_REQUEST_H
#define YLD_RESTART_REQUEST_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"

class sto_Restart;

/// A request for restart data: with them a job can be continued from a step. Copies stand for the same request.
class YLD_API yld_RestartRequest
{
public:
    /// No request.
    yld_RestartRequest();
    explicit yld_RestartRequest(const sto_Restart& restart);
    yld_RestartRequest(const yld_RestartRequest&);
    yld_RestartRequest& operator=(const yld_RestartRequest&);
    ~yld_RestartRequest();

    /// The arguments of yld_Step::RestartRequest, in their order; 0 and false where there is no request.
    int argument1() const;
    int argument2() const;
    bool argument3() const;
    bool argument4() const;

    const sto_Restart& restart() const { return *m_restart; }

private:
    shr_CountedHld<sto_Restart> m_restart;
};

#endif
