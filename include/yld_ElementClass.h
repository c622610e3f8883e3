#ifndef YLD_ELEMENT_CLASS_H
#define YLD_ELEMENT_CLASS_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_String.h"

class sto_ElementClass;

/// All elements of one type and one section category in a mesh: a handle on the stored class.
class YLD_API yld_ElementClass
{
public:
    yld_ElementClass();
    yld_ElementClass(const sto_ElementClass& elementClass, int classIndex);
    yld_ElementClass(const yld_ElementClass&);
    yld_ElementClass& operator=(const yld_ElementClass&);
    ~yld_ElementClass();

    /// The number of the class within the mesh.
    int classIndex() const { return m_classIndex; }
    /// The element type label, for example "HEX8".
    yld_String typeLabel() const;
    /// The name of the section category.
    yld_String categoryLabel() const;
    int numElements() const;
    int numNodesPerElement() const;
    int numIntegrationPointsPerElement() const;
    int numFacesPerElement() const;
    int maxIntegrationPointsPerFace() const;

    bool operator==(const yld_ElementClass& other) const;

private:
    shr_CountedHld<sto_ElementClass> m_class;
    int m_classIndex = -1;
};

#endif
