#ifndef FLD_HISTORY_H
#define FLD_HISTORY_H

#include "platform/result/fld_inPlace.h"
#include "platform/store/mrp_Container.h"
#include "platform/store/pcl_Persistent.h"

#include <string>

class fld_HistoryStep;
class fld_Series;
class mshK_Assembly;
class mshK_PartInstance;
class setC_Set;

/// The times of a curve: the first so many of a series of times, which curves written side by side have in common.
class fld_HistoryClock : public pcl_Class<fld_HistoryClock>
{
public:
    static constexpr const char* className = "fld_HistoryClock";
    static constexpr unsigned classId = 0x00300012;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("step", self.m_step);
        visit("times", self.m_times);
        visit("count", self.m_count);
    }
    void StoreArrays(const std::shared_ptr<fio_FileBody>&) override { m_mark.clear(); }

    lnk_ShortCut<fld_HistoryStep> m_step;
    lnk_ShortCut<fld_Series> m_times;
    long long m_count = 0;
    fld_InPlaceMark m_mark;
};

/// One curve: what it is and where in the model it was taken. The numbers lie apart, so that a thousand curves are
/// listed without reading one of them.
class fld_History : public pcl_Class<fld_History>
{
public:
    static constexpr const char* className = "fld_History";
    static constexpr unsigned classId = 0x00300011;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("type", self.m_type);
        visit("name", self.m_name);
        visit("label", self.m_label);
        visit("description", self.m_description);
        visit("load case", self.m_loadCase);
        visit("instance", self.m_instance);
        visit("assembly", self.m_assembly);
        visit("class index", self.m_classIndex);
        visit("element number", self.m_elementNumber);
        visit("node number", self.m_nodeNumber);
        visit("integration point", self.m_integrationPoint);
        visit("face", self.m_face);
        visit("location index", self.m_locationIndex);
        visit("set", self.m_set);
        visit("storage type", self.m_storageType);
        visit("clock", self.m_clock);
        visit("values", self.m_values);
    }

    int m_type = 0;                             ///< position code; numbers without a meaning of their own are kept
    std::string m_name;                         ///< of the region that the curve is filed under; empty for none
    std::string m_label;                        ///< of the variable
    std::string m_description;                  ///< of the variable
    std::string m_loadCase;                     ///< empty for none
    lnk_ShortCut<mshK_PartInstance> m_instance; ///< null for the assembly's own mesh
    lnk_ShortCut<mshK_Assembly> m_assembly;
    int m_classIndex = -1;
    int m_elementNumber = -1;   ///< place in the element class, from 0
    int m_nodeNumber = -1;      ///< place in the mesh, from 0
    int m_integrationPoint = 0; ///< from 0
    int m_face = 0;             ///< from 0
    int m_locationIndex = -1;   ///< of the section point in its element class, or -1
    lnk_ShortCut<setC_Set> m_set;
    int m_storageType = 0; ///< 0 single precision, 1 double
    lnk_ShortCut<fld_HistoryClock> m_clock;
    lnk_ShortCut<fld_Series> m_values;
};

/// The curves of a step, in the order in which they were made, and the series of times that they use.
class fld_HistoryStep : public pcl_Class<fld_HistoryStep>
{
public:
    static constexpr const char* className = "fld_HistoryStep";
    static constexpr unsigned classId = 0x00300010;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("histories", self.m_histories);
        visit("times", self.m_times);
    }

    mrp_Container<fld_History> m_histories; ///< by the variable's label
    mrp_Container<fld_Series> m_times;
};

#endif
