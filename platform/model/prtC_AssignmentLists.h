#ifndef PRTC_ASSIGNMENT_LISTS_H
#define PRTC_ASSIGNMENT_LISTS_H

#include "platform/model/prtC_BeamOrientation.h"
#include "platform/model/prtC_ConnectorOrientation.h"
#include "platform/model/prtC_MaterialOrientation.h"
#include "platform/model/prtC_SectionAssignment.h"
#include "platform/store/mrp_Container.h"

/// Appends a new object to a list, which is made with its first entry.
template<class T>
void prtC_append(const std::shared_ptr<fio_FileBody>& file, mrp_Container<T>& list, const std::string& key, T object)
{
    if (list.isNull()) list = mrp_Container<T>::create(file);
    list.append(key, lnk_ShortCut<T>::create(file, std::move(object)));
}

/// What is assigned to the regions of a part or of an instance, in the order of the assignments.
class prtC_AssignmentLists
{
public:
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("section assignments", self.m_sections);
        visit("material orientations", self.m_materials);
        visit("rebar orientations", self.m_rebars);
        visit("beam orientations", self.m_beams);
        visit("solver input", self.m_solverInput);
    }

    mrp_Container<prtC_SectionAssignment> m_sections;
    mrp_Container<prtC_MaterialOrientation> m_materials;
    mrp_Container<prtC_MaterialOrientation> m_rebars;
    mrp_Container<prtC_BeamOrientation> m_beams;
    std::string m_solverInput; ///< text for the solver, taken and given back as it is
};

#endif
