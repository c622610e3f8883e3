#ifndef FLD_FRAME_H
#define FLD_FRAME_H

#include "platform/store/mrp_Container.h"
#include "platform/store/pcl_Persistent.h"

#include <string>
#include <vector>

class fld_Field;

/// One snapshot of a step. Its fields hang in a container whose entries are named
/// "<position code>:<type code>:<field name>", so that names are listed without reading a field; the keys stand
/// in the row, so that a field is found by key without reading the others.
class fld_Frame : public pcl_Class<fld_Frame>
{
public:
    static constexpr const char* className = "fld_Frame";
    static constexpr unsigned classId = 0x00300004;
    static constexpr int classVersion = 2;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("label", self.m_label);
        visit("value", self.m_value);
        visit("increment", self.m_increment);
        visit("load case", self.m_loadCase);
        visit("mode", self.m_mode);
        visit("has mode", self.m_hasMode);
        visit("has association", self.m_hasAssociation);
        visit("imaginary", self.m_isImaginary);
        visit("fields", self.m_fields);
        visit("field keys", self.m_fieldKeys);
        visit("default primary variable", self.m_defaultPrimaryVariable);
        visit("default deformed variable", self.m_defaultDeformedVariable);
    }

    std::string m_label;
    float m_value = 0.0F;
    int m_increment = 0;
    std::string m_loadCase; ///< empty for none
    int m_mode = 0;
    bool m_hasMode = false;
    bool m_hasAssociation = false;
    bool m_isImaginary = false;
    mrp_Container<fld_Field> m_fields;
    std::vector<int> m_fieldKeys; ///< of each entry of the container, in its order
    // The keys of the fields that a viewer shows first, and deforms the model by; -1 for none.
    int m_defaultPrimaryVariable = -1;
    int m_defaultDeformedVariable = -1;
};

#endif
