#ifndef FLD_RESULT_H
#define FLD_RESULT_H

#include "platform/store/mrp_Container.h"
#include "platform/store/pcl_Persistent.h"

class fld_Step;

/// The results of a database: the result side of the steps, in the order of the analysis.
class fld_Result : public pcl_Class<fld_Result>
{
public:
    static constexpr const char* className = "fld_Result";
    static constexpr unsigned classId = 0x00300001;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit) { visit("steps", self.m_steps); }

    mrp_Container<fld_Step> m_steps;
};

#endif
