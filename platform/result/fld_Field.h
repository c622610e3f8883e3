#ifndef FLD_FIELD_H
#define FLD_FIELD_H

#include "platform/store/pcl_Persistent.h"

class fld_FieldDescription;

/// The values of one block of a field in one frame: rows of equal width, in single or double precision. The values go
/// to disk as soon as they are given and are read through sto_Field, which keeps what it reads to itself: an object of
/// this class stays small however much it describes.
class fld_Field : public pcl_Class<fld_Field>
{
public:
    static constexpr const char* className = "fld_Field";
    static constexpr unsigned classId = 0x00300006;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("key", self.m_key);
        visit("description", self.m_description);
        visit("orientation", self.m_orientation);
        visit("rows", self.m_rows);
        visit("width", self.m_width);
        visit("storage type", self.m_storageType);
        visit("values", self.m_values);
        visit("double values", self.m_doubleValues);
        visit("conjugate", self.m_conjugate);
        visit("double conjugate", self.m_doubleConjugate);
    }

    int m_key = -1;
    lnk_ShortCut<fld_FieldDescription> m_description;
    lnk_ShortCut<fld_Field> m_orientation; ///< the local systems of the rows, as quaternions; null for none
    int m_rows = 0;
    int m_width = 0;
    int m_storageType = 0; ///< 0 single precision, 1 double
    pcl_Array<float> m_values;
    pcl_Array<double> m_doubleValues;
    pcl_Array<float> m_conjugate;
    pcl_Array<double> m_doubleConjugate;
};

#endif
