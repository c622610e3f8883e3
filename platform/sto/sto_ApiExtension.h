#ifndef STO_API_EXTENSION_H
#define STO_API_EXTENSION_H

#include "platform/store/pcl_Persistent.h"

#include <string>

class mshK_Model;
class sto_StoData;

/// What a program has added to the interface of a database, with references to what it works on.
class sto_ApiExtension : public pcl_Class<sto_ApiExtension>
{
public:
    static constexpr const char* className = "sto_ApiExtension";
    static constexpr unsigned classId = 0x00400020;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("type", self.m_type);
        visit("name", self.m_name);
        visit("content", self.m_content);
        visit("sto", self.m_sto);
        visit("model", self.m_model);
    }

    int m_type = 0;
    std::string m_name;
    std::string m_content;
    lnk_ShortCut<sto_StoData> m_sto;
    lnk_ShortCut<mshK_Model> m_model;
};

#endif
