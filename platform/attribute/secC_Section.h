#ifndef SECC_SECTION_H
#define SECC_SECTION_H

#include "platform/store/pcl_Persistent.h"

/// A section of the model, as far as assignments need it: its name, and the number of its kind.
class secC_Section : public pcl_Class<secC_Section>
{
public:
    static constexpr const char* className = "secC_Section";
    static constexpr unsigned classId = 0x00200040;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("name", self.m_name);
        visit("sub type", self.m_subType);
    }

    static int TypeId() { return static_cast<int>(classId); }

    std::string m_name;
    int m_subType = 0;
};

#endif
